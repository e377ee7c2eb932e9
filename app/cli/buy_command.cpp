// tesorel-cli buy: a purchase booked through the buy window.
#include "portfolio/comprar.h"
#include "ventana_apunte.h"

namespace tesorel::cli
{

namespace
{

const CommandRegistration registro{
    {"buy",
     "buy BASE --user N --value ABREV11 --broker NAME --price TEXT --qty TEXT [--date TEXT] [--today D]   "
     "books a purchase as the buy window does",
     [](const QStringList &args) { return apuntarPorVentana<Comprar>(args, true); }}};

} // namespace

} // namespace tesorel::cli
