#pragma once
// What tesorel-cli buy and sell share: the buy or the sell window driven
// as a person fills it.
#include "cli_session.h"
#include "commands.h"

namespace tesorel::cli
{

// The sell window handles Combo1's event 1 (it offers the whole position);
// the buy window has no handler for it, so there the event does nothing.
template <class Ventana>
concept AtiendeEvento1 = requires(Ventana v)
{
    v.Combo1_Evento(1);
};

// Opens the window as the portfolio window does, with the main window on
// no value, then sets each text at once (one change event each): Combo1
// with its event 1, Combo2 with its event 2, Precio, Cantidad (when given;
// a sale without it keeps what event 1 put there), Fecha when given (else
// the day the window set), and clicks Aceptar. `cantidadObligatoria`: the
// buy command requires --qty.
template <class Ventana> int apuntarPorVentana(const QStringList &args, bool cantidadObligatoria)
{
    Argumentos a;
    const QHash<QString, int> propias{{QStringLiteral("--value"), 1},
                                      {QStringLiteral("--broker"), 1},
                                      {QStringLiteral("--price"), 1},
                                      {QStringLiteral("--qty"), 1},
                                      {QStringLiteral("--date"), 1}};
    if (!a.leer(args, opcionesDeSesion(propias)) || a.libres.size() != 1)
        return usage();
    for (const char *requerida : {"--user", "--value", "--broker", "--price"})
        if (!a.tiene(QString::fromLatin1(requerida)))
            return usage();
    const bool conCantidad = a.tiene(QStringLiteral("--qty"));
    if (cantidadObligatoria && !conCantidad)
        return usage();
    SesionCli sesion(a, a.libres[0]);
    Ventana v(sesion.s(), {[] { return QString(); }, {}});
    v.Form_Load();
    v.Combo1 = a.valor(QStringLiteral("--value"));
    if constexpr (AtiendeEvento1<Ventana>)
        v.Combo1_Evento(1);
    v.Combo2 = a.valor(QStringLiteral("--broker"));
    v.Combo2_Evento(2);
    v.setPrecio(a.valor(QStringLiteral("--price")));
    if (conCantidad)
        v.setCantidad(a.valor(QStringLiteral("--qty")));
    if (a.tiene(QStringLiteral("--date")))
        v.Fecha = a.valor(QStringLiteral("--date"));
    v.Aceptar_Click();
    return kOk;
}

} // namespace tesorel::cli
