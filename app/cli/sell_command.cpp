// tesorel-cli sell: a sale booked through the sell window; without --qty
// the window's offer of the whole position stands.
#include "portfolio/vender.h"
#include "ventana_apunte.h"

namespace tesorel::cli
{

namespace
{

const CommandRegistration registro{
    {"sell",
     "sell BASE --user N --value ABREV11 --broker NAME --price TEXT [--qty TEXT] [--date TEXT] [--today D]   "
     "books a sale as the sell window does",
     [](const QStringList &args) { return apuntarPorVentana<Vender>(args, false); }}};

} // namespace

} // namespace tesorel::cli
