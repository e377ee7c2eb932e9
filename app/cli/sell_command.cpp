// tesorel-cli sell: a sale booked through the sell window; without --qty
// the window's offer of the whole position stands.
#include "cli_session.h"
#include "commands.h"

#include "portfolio/vender.h"

namespace tesorel::cli
{

namespace
{

int sellCommand(const QStringList &args)
{
    Argumentos a;
    const QHash<QString, int> propias{{QStringLiteral("--value"), 1},
                                      {QStringLiteral("--broker"), 1},
                                      {QStringLiteral("--price"), 1},
                                      {QStringLiteral("--qty"), 1},
                                      {QStringLiteral("--date"), 1}};
    if (!a.leer(args, opcionesDeSesion(propias)) || a.libres.size() != 1 ||
        !a.tiene(QStringLiteral("--user")) || !a.tiene(QStringLiteral("--value")) ||
        !a.tiene(QStringLiteral("--broker")) || !a.tiene(QStringLiteral("--price")))
        return usage();
    SesionCli sesion(a, a.libres[0]);
    Session &s = sesion.s();
    Vender v(s, {[] { return QString(); }, {}});
    v.Form_Load();
    v.Combo1 = a.valor(QStringLiteral("--value"));
    v.Combo1_Evento(1);
    v.Combo2 = a.valor(QStringLiteral("--broker"));
    v.Combo2_Evento(2);
    v.setPrecio(a.valor(QStringLiteral("--price")));
    if (a.tiene(QStringLiteral("--qty")))
        v.setCantidad(a.valor(QStringLiteral("--qty")));
    if (a.tiene(QStringLiteral("--date")))
        v.Fecha = a.valor(QStringLiteral("--date"));
    v.Aceptar_Click();
    return kOk;
}

const CommandRegistration registro{
    {"sell",
     "sell BASE --user N --value ABREV11 --broker NAME --price TEXT [--qty TEXT] [--date TEXT] [--today D]   "
     "books a sale as the sell window does",
     sellCommand}};

} // namespace

} // namespace tesorel::cli
