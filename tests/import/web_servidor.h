#pragma once
// A loopback HTTP server of the tests' own, serving each path as told:
// a file, a page, silence (the connection is taken and never answered)
// or a file cut in the middle. Anything else is a 404.
#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>

#include "support/esperar.h"

namespace tesorel::testing
{

class ServidorWeb
{
  public:
    enum class Modo { Archivo, Silencio, Corte };
    struct Respuesta {
        QByteArray cuerpo;
        Modo modo = Modo::Archivo;
        QByteArray tipo = "text/plain";
    };

    ServidorWeb()
    {
        aplicacionDePrueba();
        servidor_.listen(QHostAddress::LocalHost, 0);
        QObject::connect(&servidor_, &QTcpServer::newConnection, [this] {
            while (QTcpSocket *c = servidor_.nextPendingConnection())
                QObject::connect(c, &QTcpSocket::readyRead, c, [this, c] { atender(c); });
        });
    }
    QString base() const { return QStringLiteral("http://127.0.0.1:%1").arg(servidor_.serverPort()); }

    // A base address where nothing listens.
    static QString puertoCerrado() { return QStringLiteral("http://127.0.0.1:%1").arg(puertoLibre()); }

    QHash<QByteArray, Respuesta> rutas; // by the path as sent
    QList<QByteArray> pedidos;          // every path asked for, in order

  private:
    void atender(QTcpSocket *c)
    {
        QByteArray &leido = entrantes_[c];
        leido += c->readAll();
        if (!leido.contains("\r\n\r\n"))
            return;
        const QByteArray ruta = leido.split(' ').value(1);
        entrantes_.remove(c);
        pedidos << ruta;
        const auto it = rutas.constFind(ruta);
        if (it == rutas.constEnd()) {
            c->write("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
            c->disconnectFromHost();
            return;
        }
        if (it->modo == Modo::Silencio)
            return;
        const bool corte = it->modo == Modo::Corte;
        c->write("HTTP/1.1 200 OK\r\nContent-Type: " + it->tipo + "\r\nContent-Length: " +
                 QByteArray::number(it->cuerpo.size()) + "\r\nConnection: close\r\n\r\n");
        c->write(corte ? it->cuerpo.left(it->cuerpo.size() / 2) : it->cuerpo);
        c->flush();
        if (corte)
            c->abort();
        else
            c->disconnectFromHost();
    }

    QTcpServer servidor_;
    QHash<QTcpSocket *, QByteArray> entrantes_;
};

} // namespace tesorel::testing
