// tesorel-cli lots: the lots panel of the sell window for a value, with
// the sale being typed when --sale gives its texts.
#include "cli_session.h"
#include "commands.h"

#include "portfolio/panel_lotes.h"
#include "store/helpers.h"

namespace tesorel::cli
{

namespace
{

QStringList campos(const QString &primero, const PanelLotes::Fila &f)
{
    return {primero,
            numeroMaquina(f.compradas),
            numeroMaquina(f.precio),
            numeroMaquina(f.totalCompra),
            numeroMaquina(f.resultado),
            numeroMaquina(f.vendidas),
            numeroMaquina(f.tanto)};
}

int lotsCommand(const QStringList &args)
{
    Argumentos a;
    const QHash<QString, int> propias{{QStringLiteral("--value"), 1}, {QStringLiteral("--sale"), 4}};
    if (!a.leer(args, opcionesDeSesion(propias)) || a.libres.size() != 1 ||
        !a.tiene(QStringLiteral("--user")) || !a.tiene(QStringLiteral("--value")))
        return usage();
    SesionCli sesion(a, a.libres[0]);
    Session &s = sesion.s();
    const QStringList venta = a.valores(QStringLiteral("--sale"));
    VentaEnCurso v;
    if (venta.size() == 4)
        v = {venta[0], venta[1], venta[2], venta[3]};
    PanelLotes panel;
    // A failure ends the calculation and is reported; what stood is printed.
    s.paso([&] {
        Recalcular_Lotes(s, Codigo_De(s, a.valor(QStringLiteral("--value")), BuscarPor::Abreviatura11), v,
                         panel);
    });
    imprimirLinea({QStringLiteral("fecha"), QStringLiteral("compradas"), QStringLiteral("precio"),
                   QStringLiteral("totalcompra"), QStringLiteral("resultado"), QStringLiteral("vendidas"),
                   QStringLiteral("tanto")});
    for (const PanelLotes::Fila &f : panel.lotes)
        imprimirLinea(campos(diaMaquina(f.fecha), f));
    if (panel.hayTotal)
        imprimirLinea(campos(QStringLiteral("total"), panel.total));
    return kOk;
}

const CommandRegistration registro{
    {"lots",
     "lots BASE --user N --value ABREV11 [--sale DATE QTY PRICE TOTAL]   the lots panel of the sell window",
     lotsCommand}};

} // namespace

} // namespace tesorel::cli
