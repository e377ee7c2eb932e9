// tesorel-cli series: the user's portfolio series rebuilt (mode 0) or
// brought up to date (mode 1) in a fresh session.
#include "cli_session.h"
#include "commands.h"

#include "portfolio/serie_cartera.h"

#include <cstdio>
#include <unistd.h>

namespace tesorel::cli
{

namespace
{

int seriesCommand(const QStringList &args)
{
    Argumentos a;
    if (!a.leer(args, opcionesDeSesion({{QStringLiteral("--mode"), 1}})) || a.libres.size() != 1 ||
        !a.tiene(QStringLiteral("--user")))
        return usage();
    const QString modo = a.valor(QStringLiteral("--mode"), QStringLiteral("0"));
    if (modo != QLatin1String("0") && modo != QLatin1String("1"))
        return usage();
    SesionCli sesion(a, a.libres[0]);
    AvisosSerie avisos;
    // A progress line on a terminal, redrawn at each whole percent.
    int ultimo = -1;
    if (isatty(fileno(stderr)))
        avisos.progreso = [&ultimo](int hechas, int total) {
            const int tanto = total > 0 ? hechas * 100 / total : 100;
            if (tanto == ultimo)
                return;
            ultimo = tanto;
            std::fprintf(stderr, "\rserie %3d%% (%d/%d)%s", tanto, hechas, total,
                         hechas == total ? "\n" : "");
            std::fflush(stderr);
        };
    Generar_Serie_Cartera(sesion.s(), modo.toInt(), avisos);
    return kOk;
}

const CommandRegistration registro{
    {"series",
     "series BASE --user N [--mode 0|1] [--today D]   rebuild or bring up to date the portfolio series",
     seriesCommand}};

} // namespace

} // namespace tesorel::cli
