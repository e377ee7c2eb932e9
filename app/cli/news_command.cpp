// tesorel-cli news: the news tab of a value, with its tick on: the list of
// headlines and their links as the window would show them.
#include "cli_session.h"
#include "commands.h"

#include "online/noticias.h"
#include "store/helpers.h"

namespace tesorel::cli
{

namespace
{

int newsCommand(const QStringList &args)
{
    Argumentos a;
    if (!a.leer(args, opcionesDeSesion({{"--site", 1}})) || a.libres.size() != 2)
        return usage();
    SesionCli sesion(a, a.libres[0]);
    Session &s = sesion.s();
    // Looking the value up leaves its ticker where the news take it from.
    s.paso([&] { Codigo_De(s, a.libres[1], BuscarPor::Nombre); });
    AjustesOnline ajustes;
    ajustes.sitioNoticias = a.valor("--site", ajustes.sitioNoticias);
    while (ajustes.sitioNoticias.endsWith(u'/'))
        ajustes.sitioNoticias.chop(1);
    Noticias noticias(s, ajustes);
    noticias.Yahoono = true;
    noticias.Yahoo_Click();
    for (qsizetype i = 0; i < noticias.YahooNoticias.size(); ++i) {
        QStringList campos{noticias.YahooNoticias.at(i).trimmed()};
        if (i < noticias.Yahoourl.size())
            campos << noticias.Yahoourl.at(i).trimmed();
        imprimirLinea(campos);
    }
    return kOk;
}

const CommandRegistration registro{
    {"news", "news BASE NAME [--site URL]   the headlines of a value and their links", newsCommand}};

} // namespace

} // namespace tesorel::cli
