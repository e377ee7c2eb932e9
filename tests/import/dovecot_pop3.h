#pragma once
// Dovecot's POP3 server for the mail tests, started from a configuration of
// its own (its own base_dir, a passwd-file with a plain password, a maildir
// that the test fills) on a loopback port, and stopped at the end.
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

namespace tesorel::testing::correo
{

// Dovecot's POP3 on a loopback port, user "demo" with password "secreto";
// messages go into its maildir before start. `arrancar` says why it failed.
class DovecotPop3
{
  public:
    DovecotPop3()
    {
        chmod(dir_.path().toLocal8Bit().constData(), 0755);
        QDir(dir_.path()).mkpath("run");
        // The mail processes run as nobody: the maildir and its messages are open to all.
        for (const char *sub : {"Maildir", "Maildir/new", "Maildir/cur", "Maildir/tmp"}) {
            QDir(dir_.path()).mkpath(QString::fromLatin1(sub));
            chmod(QFile::encodeName(dir_.path() + '/' + sub).constData(), 0777);
        }
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
        f.close();
        chmod(QFile::encodeName(f.fileName()).constData(), 0666);
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
        proceso_.setProcessChannelMode(QProcess::MergedChannels);
        proceso_.start(QStringLiteral("/usr/sbin/dovecot"), {"-F", "-c", d + "/dovecot.conf"});
        if (!proceso_.waitForStarted(5000))
            return QStringLiteral("dovecot cannot be started: ") + proceso_.errorString();
        QDeadlineTimer limite(10000);
        while (!limite.hasExpired()) {
            if (saluda(puerto_))
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
    static sockaddr_in loopback(quint16 puerto)
    {
        sockaddr_in a{};
        a.sin_family = AF_INET;
        a.sin_port = htons(puerto);
        a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        return a;
    }
    // Whether a POP3 greeting comes from the port.
    static bool saluda(quint16 puerto)
    {
        const int fd = socket(AF_INET, SOCK_STREAM, 0);
        if (fd < 0)
            return false;
        sockaddr_in a = loopback(puerto);
        timeval espera{2, 0};
        setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &espera, sizeof espera);
        char buf[4] = {};
        const bool ok = connect(fd, reinterpret_cast<sockaddr *>(&a), sizeof a) == 0 &&
                        recv(fd, buf, 3, MSG_WAITALL) == 3 && QByteArray(buf, 3) == "+OK";
        close(fd);
        return ok;
    }
    // A port that nothing holds at the moment.
    static quint16 puertoLibre()
    {
        const int fd = socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in a = loopback(0);
        socklen_t n = sizeof a;
        bind(fd, reinterpret_cast<sockaddr *>(&a), sizeof a);
        getsockname(fd, reinterpret_cast<sockaddr *>(&a), &n);
        close(fd);
        return ntohs(a.sin_port);
    }

    QTemporaryDir dir_;
    QProcess proceso_;
    quint16 puerto_ = 0;
    int mensajes_ = 0;
};

} // namespace tesorel::testing::correo
