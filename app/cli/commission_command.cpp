// tesorel-cli commission: the commission lines of the buy window (or of
// the sell window) for a broker and a gross amount.
#include "cli_session.h"
#include "commands.h"

#include "portfolio/comisiones.h"

namespace tesorel::cli
{

namespace
{

int commissionCommand(const QStringList &args)
{
    Argumentos a;
    if (!a.leer(args, opcionesDeSesion({{QStringLiteral("--sell"), 0}})) || a.libres.size() != 3)
        return usage();
    SesionCli sesion(a, a.libres[0]);
    Session &s = sesion.s();
    const bool venta = a.tiene(QStringLiteral("--sell"));
    const EstiloComision &estilo = venta ? EstiloComision::venta() : EstiloComision::compra();

    // The broker as the window picks it from the text of Combo2.
    double operador = 0;
    try {
        operador = codigoOperador(s, a.libres[1]);
    } catch (const RuntimeError &e) {
        if (estilo.informarFallos)
            s.Registrar_Error(e);
    }
    LineasComision l;
    const double total = Cargar_comisiones(s, operador, a.libres[2], l, estilo);
    for (size_t i = 1; i <= LineasComision::kLineas; ++i)
        imprimirLinea({l.Concepto[i].trimmed(), l.porciento[i].trimmed(), l.Min[i].trimmed(),
                       l.Importe[i].trimmed(), l.totalcomision[i].trimmed()});
    imprimirLinea({QStringLiteral("total"), numeroMaquina(total)});
    return kOk;
}

const CommandRegistration registro{
    {"commission",
     "commission BASE BROKER AMOUNT [--sell]   the commission lines of a broker for "
     "a gross amount (the buy window's, or the sell window's)",
     commissionCommand}};

} // namespace

} // namespace tesorel::cli
