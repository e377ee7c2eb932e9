#pragma once
// The scripted POP3 peer of the mail tests, which can refuse in any state,
// cut a reply into packets, fall silent or hang up (Dovecot, the real
// server, is in dovecot_pop3.h).
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <functional>

#include "support/esperar.h"

namespace tesorel::testing::correo
{

// A message as the server sends it for RETR: dot-stuffed, CR LF lines.
inline QByteArray enLinea(QByteArray mensaje)
{
    mensaje.replace("\r\n", "\n").replace("\n.", "\n..");
    if (mensaje.startsWith('.'))
        mensaje.prepend('.');
    if (!mensaje.endsWith('\n'))
        mensaje += '\n';
    return mensaje.replace("\n", "\r\n");
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
        aplicacionDePrueba();
        servidor_.listen(QHostAddress::LocalHost, 0);
        QObject::connect(&servidor_, &QTcpServer::newConnection, [this] {
            while (QTcpSocket *c = servidor_.nextPendingConnection()) {
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
    QByteArray pendiente_;
};

// A message of the own mailing with a day file attached as plain text.
inline QByteArray mensajeConAdjunto(const QByteArray &remitente, const QByteArray &nombre,
                                    const QByteArray &contenido)
{
    return QByteArray("From: %F\r\n"
                      "Subject: Cotizaciones %N\r\n"
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
                      "\tname=\"%N\"\r\n"
                      "Content-Transfer-Encoding: 7bit\r\n"
                      "Content-Disposition: attachment;\r\n"
                      "\tfilename=\"%N\"\r\n"
                      "\r\n"
                      "%C\r\n"
                      "\r\n"
                      "--XX--\r\n")
        .replace("%F", remitente)
        .replace("%N", nombre)
        .replace("%C", contenido);
}

} // namespace tesorel::testing::correo
