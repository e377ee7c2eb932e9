// tesorel-cli ledger: the ledger window after its Load, the value filter,
// the sort option and the filter before the tax year, in that order; then
// the ledger report and the tax export of the rows listed.
#include "cli_session.h"
#include "commands.h"

#include "portfolio/historico.h"

namespace tesorel::cli
{

namespace
{

int ledgerCommand(const QStringList &args)
{
    Argumentos a;
    const QHash<QString, int> propias{{QStringLiteral("--value"), 1},       {QStringLiteral("--order"), 1},
                                      {QStringLiteral("--before-2006"), 0}, {QStringLiteral("--html"), 1},
                                      {QStringLiteral("--txe"), 1},         {QStringLiteral("--titular"), 1}};
    if (!a.leer(args, opcionesDeSesion(propias)) || a.libres.size() != 1 ||
        !a.tiene(QStringLiteral("--user")))
        return usage();
    const QString orden = a.valor(QStringLiteral("--order"));
    if (a.tiene(QStringLiteral("--order")) && orden != QLatin1String("fecha") &&
        orden != QLatin1String("valor"))
        return usage();
    if (a.tiene(QStringLiteral("--txe")) != a.tiene(QStringLiteral("--titular")))
        return usage();

    SesionCli sesion(a, a.libres[0]);
    Session &s = sesion.s();
    Historico h(s);
    h.Form_Load();
    if (a.tiene(QStringLiteral("--value"))) {
        h.Filtro = a.valor(QStringLiteral("--value"));
        h.Filtro_Click();
    }
    if (a.tiene(QStringLiteral("--order")))
        h.Option1_Click(orden == QLatin1String("fecha") ? 0 : 1);
    if (a.tiene(QStringLiteral("--before-2006")))
        h.Command2_Click();

    for (const FilaHistorico &f : h.filas) {
        QStringList celdas = f.celdas();
        for (QString &c : celdas)
            c = c.trimmed();
        imprimirLinea(celdas);
    }
    if (a.tiene(QStringLiteral("--html")))
        h.informeHtml(a.valor(QStringLiteral("--html")), false);
    if (a.tiene(QStringLiteral("--txe"))) {
        h.letra = a.valor(QStringLiteral("--txe"));
        sesion.ui.respuestas = {a.valor(QStringLiteral("--titular"))};
        h.exportarTxe();
    }
    return kOk;
}

const CommandRegistration registro{
    {"ledger",
     "ledger BASE --user N [--value ABREV11] [--order fecha|valor] [--before-2006] [--html OUT] "
     "[--txe FOLDER --titular NAME]   the ledger window's rows; its report and tax export",
     ledgerCommand}};

} // namespace

} // namespace tesorel::cli
