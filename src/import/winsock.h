#pragma once
#include <QString>
#include <functional>
#include <memory>

namespace tesorel
{

// The socket control of a window: a TCP client whose events arrive on the
// interface thread through the callbacks. Text goes over the wire as
// Windows-1252, one byte a character.
class Winsock
{
  public:
    virtual ~Winsock() = default;
    virtual void Connect(const QString &host, int port) = 0;
    virtual void SendData(const QString &text) = 0;
    // Closes at once; no event follows a close asked for.
    virtual void Close() = 0;
    virtual bool abierto() const = 0;

    std::function<void()> alConectar;
    // The whole buffer of one arrival.
    std::function<void(const QString &)> alLlegarDatos;
    // The peer closed the connection.
    std::function<void()> alCerrar;
    // A socket error with the numbers and texts of the socket control.
    std::function<void(int, const QString &)> alFallar;
};

// Over QTcpSocket, on the thread that creates it.
std::unique_ptr<Winsock> crearWinsockTcp();

// "host" or "host:port"; the port stays `puerto` when none is given.
void separarHostPuerto(const QString &texto, QString &host, int &puerto);

} // namespace tesorel
