// tesorel-cli buy: a purchase booked through the buy window, each field
// set at once in the order a person fills the window.
#include "cli_session.h"
#include "commands.h"

#include "portfolio/comprar.h"

namespace tesorel::cli
{

namespace
{

int buyCommand(const QStringList &args)
{
    Argumentos a;
    const QHash<QString, int> propias{{QStringLiteral("--value"), 1},
                                      {QStringLiteral("--broker"), 1},
                                      {QStringLiteral("--price"), 1},
                                      {QStringLiteral("--qty"), 1},
                                      {QStringLiteral("--date"), 1}};
    if (!a.leer(args, opcionesDeSesion(propias)) || a.libres.size() != 1 ||
        !a.tiene(QStringLiteral("--user")) || !a.tiene(QStringLiteral("--value")) ||
        !a.tiene(QStringLiteral("--broker")) || !a.tiene(QStringLiteral("--price")) ||
        !a.tiene(QStringLiteral("--qty")))
        return usage();
    SesionCli sesion(a, a.libres[0]);
    Session &s = sesion.s();
    // Opened from the portfolio window with the main window on no value.
    Comprar c(s, {[] { return QString(); }, {}});
    c.Form_Load();
    c.Combo1 = a.valor(QStringLiteral("--value"));
    c.Combo2 = a.valor(QStringLiteral("--broker"));
    c.Combo2_Evento(2);
    c.setPrecio(a.valor(QStringLiteral("--price")));
    c.setCantidad(a.valor(QStringLiteral("--qty")));
    if (a.tiene(QStringLiteral("--date")))
        c.Fecha = a.valor(QStringLiteral("--date"));
    c.Aceptar_Click();
    return kOk;
}

const CommandRegistration registro{
    {"buy",
     "buy BASE --user N --value ABREV11 --broker NAME --price TEXT --qty TEXT [--date TEXT] [--today D]   "
     "books a purchase as the buy window does",
     buyCommand}};

} // namespace

} // namespace tesorel::cli
