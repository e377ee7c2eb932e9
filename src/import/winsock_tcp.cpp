#include <QTcpSocket>
#include <QTimer>

#include "core/texto_1252.h"
#include "import/winsock.h"

namespace tesorel
{

namespace
{
struct ErrorWinsock {
    int numero;
    const char *descripcion;
};

ErrorWinsock traducir(QAbstractSocket::SocketError e)
{
    switch (e) {
    case QAbstractSocket::ConnectionRefusedError:
        return {10061, "Connection is forcefully rejected"};
    case QAbstractSocket::HostNotFoundError:
        return {11001, "Authoritative answer: Host not found"};
    case QAbstractSocket::SocketTimeoutError:
        return {10060, "Connection timed out"};
    case QAbstractSocket::NetworkError:
        return {10051, "Network is unreachable"};
    case QAbstractSocket::SocketAccessError:
        return {10013, "Permission denied"};
    case QAbstractSocket::AddressInUseError:
        return {10048, "Address in use"};
    default:
        return {10053, "Connection is aborted due to timeout or other failure"};
    }
}

class WinsockTcp : public Winsock
{
  public:
    WinsockTcp()
    {
        QObject::connect(&socket_, &QTcpSocket::connected, [this] {
            if (alConectar)
                alConectar();
        });
        QObject::connect(&socket_, &QTcpSocket::readyRead, [this] { leer(); });
        QObject::connect(&socket_, &QTcpSocket::errorOccurred, [this](QAbstractSocket::SocketError e) {
            if (cerrando_)
                return;
            if (e == QAbstractSocket::RemoteHostClosedError) {
                cerradoPorElOtro();
                return;
            }
            const ErrorWinsock w = traducir(e);
            if (alFallar)
                alFallar(w.numero, QString::fromLatin1(w.descripcion));
        });
        QObject::connect(&socket_, &QTcpSocket::disconnected, [this] { cerradoPorElOtro(); });
    }
    ~WinsockTcp() override
    {
        cerrando_ = true;
        socket_.abort();
    }

    void Connect(const QString &host, int port) override
    {
        cerrando_ = false;
        avisadoCierre_ = false;
        socket_.connectToHost(host, quint16(port));
    }
    void SendData(const QString &text) override { socket_.write(a1252(text)); }
    void Close() override
    {
        cerrando_ = true;
        socket_.abort();
    }
    bool abierto() const override { return socket_.state() != QAbstractSocket::UnconnectedState; }

  private:
    // One event for what is there; what comes while a handler runs (a
    // message box of its own) gets an event of its own afterwards.
    void leer()
    {
        if (leyendo_ || cerrando_)
            return;
        leyendo_ = true;
        const QByteArray datos = socket_.readAll();
        if (!datos.isEmpty() && alLlegarDatos)
            alLlegarDatos(desde1252(datos));
        leyendo_ = false;
        if (!cerrando_ && socket_.bytesAvailable() > 0)
            QTimer::singleShot(0, &socket_, [this] { leer(); });
        else if (pendienteCierre_) {
            pendienteCierre_ = false;
            cerradoPorElOtro();
        }
    }
    void cerradoPorElOtro()
    {
        if (cerrando_ || avisadoCierre_)
            return;
        if (leyendo_ || socket_.bytesAvailable() > 0) {
            // The data that came before the close is told first.
            pendienteCierre_ = true;
            if (!leyendo_)
                QTimer::singleShot(0, &socket_, [this] { leer(); });
            return;
        }
        avisadoCierre_ = true;
        if (alCerrar)
            alCerrar();
    }

    QTcpSocket socket_;
    bool cerrando_ = false, leyendo_ = false, avisadoCierre_ = false, pendienteCierre_ = false;
};
} // namespace

std::unique_ptr<Winsock> crearWinsockTcp()
{
    return std::make_unique<WinsockTcp>();
}

void separarHostPuerto(const QString &texto, QString &host, int &puerto)
{
    host = texto.trimmed();
    const qsizetype dosPuntos = host.lastIndexOf(u':');
    if (dosPuntos <= 0 || host.indexOf(u':') != dosPuntos)
        return;
    bool ok = false;
    const int p = host.mid(dosPuntos + 1).toInt(&ok);
    if (!ok || p <= 0 || p > 65535)
        return;
    puerto = p;
    host.truncate(dosPuntos);
}

} // namespace tesorel
