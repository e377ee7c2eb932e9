#pragma once
// What the tests of sockets and servers share: one application object for
// the whole test program, a wait on the event loop for a condition with a
// limit, and the loopback ports they listen on.
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <functional>

namespace tesorel::testing
{

// Made once when the program has none; never destroyed, so that it outlives
// every object of the tests.
inline QCoreApplication &aplicacionDePrueba()
{
    if (QCoreApplication *a = QCoreApplication::instance())
        return *a;
    static int argc = 1;
    static char nombre[] = "test";
    static char *argv[] = {nombre, nullptr};
    static QCoreApplication *instancia = new QCoreApplication(argc, argv);
    return *instancia;
}

// Runs events until `condicion` holds or `ms` pass; whether it held.
inline bool esperarA(const std::function<bool()> &condicion, int ms = 10000)
{
    aplicacionDePrueba();
    QDeadlineTimer limite(ms);
    while (!condicion()) {
        if (limite.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }
    return true;
}

// Runs events for `ms`, for what must not happen.
inline void dejarCorrer(int ms)
{
    esperarA([] { return false; }, ms);
}

// A loopback port where nothing listens (until someone takes it).
inline quint16 puertoLibre()
{
    QTcpServer sonda;
    sonda.listen(QHostAddress::LocalHost, 0);
    return sonda.serverPort();
}

// Waits until a server started apart accepts on `puerto`.
inline bool esperarPuerto(quint16 puerto, int ms = 10000)
{
    return esperarA(
        [puerto] {
            QTcpSocket s;
            s.connectToHost(QHostAddress::LocalHost, puerto);
            return s.waitForConnected(100);
        },
        ms);
}

} // namespace tesorel::testing
