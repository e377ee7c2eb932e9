#pragma once
#include <QByteArray>
#include <QElapsedTimer>
#include <QHash>
#include <QHostAddress>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

#include "online/tramas_servidor.h"

class QTcpServer;
class QTcpSocket;
class QTimer;

namespace tesorel
{

// The limits of the chat server; tests shorten them.
struct OpcionesServidorChat {
    double tramasPorSegundo = 20;  // steady rate a client may send
    double rafaga = 200;           // frames it may send at once
    int latidoMs = 60000;          // how often every client is asked "spl"
    int silencioMs = 180000;       // a client silent this long is dropped
    qint64 salidaMaxima = 4 << 20; // bytes waiting for a client that does not read
    int nickMaximo = 30;           // characters of a nick
};

// The club's chat server: frames only. It accepts or refuses nicks, tells
// everyone who comes and goes, relays each "say" to the others and asks
// clients "ver" and "spl" as the program's client answers them. One thread,
// the Qt event loop; a client that sends garbage, floods or stops reading
// is dropped alone. Chat text passes through and is never kept.
class ServidorChat
{
  public:
    explicit ServidorChat(OpcionesServidorChat opciones = {});
    ~ServidorChat();
    ServidorChat(const ServidorChat &) = delete;
    ServidorChat &operator=(const ServidorChat &) = delete;

    // Listens; false with the reason in `error`.
    bool escuchar(const QHostAddress &host, quint16 puerto, QString *error = nullptr);
    quint16 puerto() const;
    int clientes() const { return static_cast<int>(clientes_.size()); }

    // Every line of the log (stderr by default).
    std::function<void(const QString &)> registro;

  private:
    struct Cliente {
        QTcpSocket *socket = nullptr;
        QString direccion;
        QByteArray nick;     // empty until accepted
        quint64 entrada = 0; // order of arrival, for the list a newcomer gets
        LectorTramas lector;
        double fichas = 0;   // the flood bucket
        QElapsedTimer reloj; // for its refill
        qint64 ultimaActividad = 0;
        QByteArray salida; // relays gathered during one read, written at its end
    };

    void nuevaConexion();
    void leer(Cliente &c);
    bool atender(Cliente &c, const QByteArray &trama); // false: drop the client
    void aceptarNick(Cliente &c, const QByteArray &nick);
    void expulsar(Cliente &c, const QString &motivo);
    void alCerrar(QTcpSocket *socket);
    void latido();
    void volcar();
    void log(const QString &linea) const;

    OpcionesServidorChat opciones_;
    std::unique_ptr<QTcpServer> servidor_;
    std::unique_ptr<QTimer> latido_;
    QElapsedTimer reloj_;
    quint64 entradas_ = 0;
    QHash<QTcpSocket *, std::shared_ptr<Cliente>> clientes_;
    QHash<QByteArray, QTcpSocket *> porNick_; // case-folded nick
    std::vector<QTcpSocket *> pendientesDeVolcar_;
};

} // namespace tesorel
