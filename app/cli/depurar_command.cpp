// tesorel-cli depurar: the cleaning of the company table, and its log.
#include "cli_session.h"
#include "commands.h"

#include "import/empresas.h"

namespace tesorel::cli
{

namespace
{

int depurarCommand(const QStringList &args)
{
    Argumentos a;
    if (!a.leer(args, opcionesDeSesion({})) || a.libres.size() != 1)
        return usage();
    SesionCli sesion(a, a.libres[0]);
    Session &s = sesion.s();
    DepuraCotiza d(s);
    // A failing statement ends the run; what was merged stays, and the log shows it.
    s.paso([&] { d.Depurar_Click(); });
    for (const QString &linea : d.List1)
        imprimirLinea({linea});
    return kOk;
}

const CommandRegistration registro{
    {"depurar", "depurar BASE   merges the values that share a ticker into the lowest code", depurarCommand}};

} // namespace

} // namespace tesorel::cli
