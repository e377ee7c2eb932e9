#pragma once
// What the online tests share: one application object for the whole
// executable, and a wait on the event loop for a condition, with a limit.
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <functional>

namespace tesorel
{

inline QCoreApplication &aplicacionDePrueba()
{
    if (QCoreApplication *a = QCoreApplication::instance())
        return *a;
    static int argc = 1;
    static char name[] = "test_online";
    static char *argv[] = {name, nullptr};
    static QCoreApplication instance(argc, argv);
    return instance;
}

// Runs events until `condicion` holds or `ms` pass; whether it held.
inline bool esperarA(const std::function<bool()> &condicion, int ms = 5000)
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

} // namespace tesorel
