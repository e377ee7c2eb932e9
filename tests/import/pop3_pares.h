#pragma once
// The POP3 servers of the mail tests: a scripted peer of the tests' own,
// which can refuse in any state, cut a reply into packets, fall silent or
// hang up; and a real Dovecot started on a loopback port from a
// configuration of its own, with a maildir that the test fills.
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <functional>
#include <sys/stat.h>

namespace tesorel::testing::correo
{

inline void aplicacion()
{
    static int argc = 1;
    static char nombre[] = "test";
    static char *argv[] = {nombre, nullptr};
    if (!QCoreApplication::instance())
        new QCoreApplication(argc, argv); // lives as long as the process
}

// Runs events until `condicion` holds or `ms` pass; whether it held.
inline bool esperarA(const std::function<bool()> &condicion, int ms = 10000)
{
    aplicacion();
    QDeadlineTimer limite(ms);
    while (!condicion()) {
        if (limite.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }
    return true;
}

inline quint16 puertoLibre()
{
    QTcpServer sonda;
    sonda.listen(QHostAddress::LocalHost, 0);
    return sonda.serverPort();
}

// A message as the server sends it for RETR: dot-stuffed, CR LF lines.
inline QByteArray enLinea(QByteArray mensaje)
{
    mensaje.replace("\r\n", "\n").replace("\n", "\r\n");
    QByteArray out;
    for (const QByteArray &l : mensaje.split('\n')) {
        if (l.startsWith('.'))
            out += '.';
        out += l + '\n';
    }
    out.chop(1);
    if (!out.endsWith("\r\n"))
        out += "\r\n";
    return out;
}

class PeerPop3
{
  public:
    // What the peer does with one command line: packets sent apart, then
    // hang up if told; no packets and no hang-up is silence.
    struct Respuesta {
        QList<QByteArray> paquetes;
        bool colgar = false;
    };

    explicit PeerPop3(QList<QByteArray> buzon = {}) : buzon(std::move(buzon))
    {
        aplicacion();
        servidor_.listen(QHostAddress::LocalHost, 0);
        QObject::connect(&servidor_, &QTcpServer::newConnection, [this] {
            while (QTcpSocket *c = servidor_.nextPendingConnection()) {
                cliente_ = c;
                QObject::connect(c, &QTcpSocket::readyRead, c, [this, c] { leer(c); });
                enviar(c, {{saludo}, false});
            }
        });
        responder = [this](const QByteArray &l) { return comoBuzon(l); };
    }
    QString host() const { return QStringLiteral("127.0.0.1:%1").arg(servidor_.serverPort()); }

    QByteArray saludo = "+OK peer ready\r\n";
    QList<QByteArray> buzon;
    QList<QByteArray> recibidos;
    int trozo = 0; // > 0: every reply to RETR goes out in packets of this size
    std::function<Respuesta(const QByteArray &)> responder;

    // An ordinary mailbox: every command accepted, QUIT answered and hung up.
    Respuesta comoBuzon(const QByteArray &l)
    {
        if (l.startsWith("STAT")) {
            qsizetype total = 0;
            for (const auto &m : buzon)
                total += m.size();
            return {{"+OK " + QByteArray::number(buzon.size()) + ' ' + QByteArray::number(total) + "\r\n"}};
        }
        if (l.startsWith("RETR ")) {
            const int n = l.mid(5).toInt();
            if (n < 1 || n > buzon.size())
                return {{"-ERR no such message\r\n"}};
            const QByteArray todo = "+OK message follows\r\n" + enLinea(buzon[n - 1]) + ".\r\n";
            if (trozo <= 0)
                return {{todo}};
            Respuesta r;
            for (qsizetype i = 0; i < todo.size(); i += trozo)
                r.paquetes << todo.mid(i, trozo);
            return r;
        }
        if (l.startsWith("QUIT"))
            return {{"+OK bye\r\n"}, true};
        return {{"+OK\r\n"}};
    }

  private:
    void leer(QTcpSocket *c)
    {
        pendiente_ += c->readAll();
        qsizetype fin;
        while ((fin = pendiente_.indexOf("\r\n")) >= 0) {
            const QByteArray linea = pendiente_.left(fin);
            pendiente_.remove(0, fin + 2);
            recibidos << linea;
            enviar(c, responder(linea));
        }
    }
    // Packets leave a few milliseconds apart, so that each is a read of its own.
    void enviar(QTcpSocket *c, Respuesta r)
    {
        if (r.paquetes.isEmpty()) {
            if (r.colgar)
                c->disconnectFromHost();
            return;
        }
        c->write(r.paquetes.takeFirst());
        c->flush();
        QTimer::singleShot(r.paquetes.isEmpty() ? 0 : 3, c, [this, c, r] { enviar(c, r); });
    }

    QTcpServer servidor_;
    QTcpSocket *cliente_ = nullptr;
    QByteArray pendiente_;
};

// Dovecot's POP3 on a loopback port, user "demo" with password "secreto";
// messages go into its maildir before start. `arrancar` says why it failed.
class DovecotPop3
{
  public:
    DovecotPop3()
    {
        aplicacion();
        chmod(dir_.path().toLocal8Bit().constData(), 0755);
        for (const char *sub : {"run", "Maildir/new", "Maildir/cur", "Maildir/tmp"})
            QDir(dir_.path()).mkpath(QString::fromLatin1(sub));
    }
    ~DovecotPop3()
    {
        if (proceso_.state() != QProcess::NotRunning) {
            proceso_.terminate();
            if (!proceso_.waitForFinished(5000))
                proceso_.kill();
            proceso_.waitForFinished(2000);
        }
    }
    void poner(const QByteArray &mensaje)
    {
        QFile f(dir_.path() + QStringLiteral("/Maildir/new/%1.M%1P1.prueba").arg(++mensajes_));
        f.open(QIODevice::WriteOnly);
        f.write(QByteArray(mensaje).replace("\r\n", "\n"));
    }
    QString host() const { return QStringLiteral("127.0.0.1:%1").arg(puerto_); }

    QString arrancar()
    {
        const QString d = dir_.path();
        puerto_ = puertoLibre();
        QFile pw(d + "/passwd");
        pw.open(QIODevice::WriteOnly);
        pw.write("demo:{PLAIN}secreto\n");
        pw.close();
        QFile conf(d + "/dovecot.conf");
        conf.open(QIODevice::WriteOnly);
        conf.write(QStringLiteral(R"(protocols = pop3
listen = 127.0.0.1
base_dir = %1/run
state_dir = %1/run
instance_name = tesorel-prueba-%2
default_internal_user = root
default_internal_group = root
default_login_user = nobody
log_path = %1/log
ssl = no
disable_plaintext_auth = no
auth_mechanisms = plain
mail_location = maildir:%1/Maildir
passdb {
  driver = passwd-file
  args = scheme=PLAIN username_format=%u %1/passwd
}
userdb {
  driver = static
  args = uid=65534 gid=65534 home=%1
}
service pop3-login {
  inet_listener pop3 {
    address = 127.0.0.1
    port = %2
  }
}
)")
                       .arg(d)
                       .arg(puerto_)
                       .toUtf8());
        conf.close();
        abrirATodos(d + "/Maildir");
        proceso_.setProcessChannelMode(QProcess::MergedChannels);
        proceso_.start(QStringLiteral("/usr/sbin/dovecot"), {"-F", "-c", d + "/dovecot.conf"});
        if (!proceso_.waitForStarted(5000))
            return QStringLiteral("dovecot cannot be started: ") + proceso_.errorString();
        QDeadlineTimer limite(10000);
        while (!limite.hasExpired()) {
            QTcpSocket sonda;
            sonda.connectToHost(QStringLiteral("127.0.0.1"), puerto_);
            if (sonda.waitForConnected(300) && sonda.waitForReadyRead(2000) &&
                sonda.readAll().startsWith("+OK"))
                return {};
            if (proceso_.state() == QProcess::NotRunning)
                break;
            QThread::msleep(100);
        }
        QFile log(d + "/log");
        log.open(QIODevice::ReadOnly);
        return QStringLiteral("dovecot did not answer on port %1: %2 %3")
            .arg(puerto_)
            .arg(QString::fromLocal8Bit(proceso_.readAll()),
                 QString::fromLocal8Bit(log.readAll().right(600)));
    }

  private:
    // The mail processes run as nobody.
    static void abrirATodos(const QString &ruta)
    {
        chmod(ruta.toLocal8Bit().constData(), 0777);
        for (const QFileInfo &i : QDir(ruta).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
            if (i.isDir())
                abrirATodos(i.filePath());
            else
                chmod(i.filePath().toLocal8Bit().constData(), 0666);
        }
    }

    QTemporaryDir dir_;
    QProcess proceso_;
    quint16 puerto_ = 0;
    int mensajes_ = 0;
};

// A message of the own mailing with a day file attached as plain text.
inline QByteArray mensajeConAdjunto(const QByteArray &remitente, const QByteArray &nombre,
                                    const QByteArray &contenido, const QByteArray &id = "<1@tesorel>")
{
    return "Return-Path: <cotizaciones@tesorel.example>\r\n"
           "From: " +
           remitente +
           "\r\n"
           "To: demo@localhost\r\n"
           "Subject: Cotizaciones " +
           nombre +
           "\r\n"
           "Message-ID: " +
           id +
           "\r\n"
           "MIME-Version: 1.0\r\n"
           "Content-Type: multipart/mixed; boundary=\"XX\"\r\n"
           "\r\n"
           "--XX\r\n"
           "Content-Type: text/plain\r\n"
           "\r\n"
           "Fichero adjunto.\r\n"
           "\r\n"
           "--XX\r\n"
           "Content-Type: text/plain;\r\n"
           "\tname=\"" +
           nombre +
           "\"\r\n"
           "Content-Transfer-Encoding: 7bit\r\n"
           "Content-Disposition: attachment;\r\n"
           "\tfilename=\"" +
           nombre +
           "\"\r\n"
           "\r\n" +
           contenido + "\r\n\r\n--XX--\r\n";
}

} // namespace tesorel::testing::correo
