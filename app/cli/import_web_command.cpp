// tesorel-cli import-web: the web import window's run, from the last
// stored day up to yesterday, and its lists.
#include "cli_session.h"
#include "commands.h"

#include "import/importinet.h"

#include <cstdio>
#include <unistd.h>

namespace tesorel::cli
{

namespace
{

// The bar on standard error, only when a person watches it.
void barra(const Importinet &m)
{
    constexpr int ancho = 30;
    const int lleno = m.Shape2_Width * ancho / Importinet::Shape1_Width;
    const QByteArray linea = "\r[" + QByteArray(lleno, '#') + QByteArray(ancho - lleno, ' ') + "] " +
                             m.DIA.toUtf8().leftJustified(10) + ' ' + m.Label1.simplified().toUtf8().left(40);
    std::fwrite(linea.constData(), 1, size_t(linea.size()), stderr);
}

int importWebCommand(const QStringList &args)
{
    Argumentos a;
    if (!a.leer(args, opcionesDeSesion({{QStringLiteral("--sources"), 1}})) || a.libres.size() != 1)
        return usage();
    QStringList sources;
    if (a.tiene(QStringLiteral("--sources"))) {
        sources = a.valor(QStringLiteral("--sources")).split(u',');
        if (sources.size() != 3)
            return usage();
    }
    SesionCli sesion(a, a.libres[0]);
    Session &s = sesion.s();

    FuentesCierres fuentes = FuentesCierres::leer(s.carpeta);
    for (int i = 0; i < sources.size(); ++i)
        fuentes.bases[size_t(i)] = sources[i].trimmed();

    const bool terminal = isatty(fileno(stderr));
    Importinet *modelo = nullptr;
    Importinet::Acciones acciones;
    acciones.AddEmpresa = [](const QString &) {}; // answered "Cancelar": nothing is added
    acciones.descargado = [](int fuente, const QDate &dia) {
        imprimirLinea({QStringLiteral("site"), QString::number(fuente), diaMaquina(dia)});
    };
    if (terminal)
        acciones.mostrar = [&modelo] {
            if (modelo)
                barra(*modelo);
        };
    Importinet m(s, fuentes, acciones);
    modelo = &m;
    m.Form_Load();
    if (terminal)
        std::fputs("\n", stderr);

    for (const QString &d : m.Ok)
        imprimirLinea({QStringLiteral("ok"), d});
    for (const QString &d : m.fallo)
        imprimirLinea({QStringLiteral("fallo"), d});
    imprimirLinea({QStringLiteral("estado"), m.Label1.trimmed()});
    return kOk;
}

const CommandRegistration registro{
    {"import-web",
     "import-web BASE [--sources URL1,URL2,URL3] [--today D] [--user N]   the web import of the missing days",
     importWebCommand}};

} // namespace

} // namespace tesorel::cli
