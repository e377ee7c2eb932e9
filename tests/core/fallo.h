#pragma once
#include "core/runtime_error.h"

#include <QString>

namespace tesorel::testing
{

// The run-time error an action raised: its number and text, or 0 and no text
// when the action ended without one.
struct Fallo {
    int numero = 0;
    QString texto;
};

template <typename F> Fallo falloDe(F &&accion)
{
    try {
        accion();
    } catch (const RuntimeError &e) {
        return {e.number(), e.description()};
    }
    return {};
}

template <typename F> int errorNumber(F &&accion)
{
    return falloDe(accion).numero;
}

template <typename F> bool desborda(F &&accion)
{
    const Fallo f = falloDe(accion);
    return f.numero == err::Overflow && f.texto == QStringLiteral("Desbordamiento");
}

} // namespace tesorel::testing
