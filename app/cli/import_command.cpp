// tesorel-cli import: the quote-file window's run over a folder (its
// "Aceptar"), then its closing, which moves the session's date.
#include "cli_session.h"
#include "commands.h"

#include "import/importar.h"

#include <cstdio>
#include <unistd.h>

namespace tesorel::cli
{

namespace
{

void barra(int hechos, int total)
{
    constexpr int ancho = 30;
    const int lleno = total > 0 ? hechos * ancho / total : ancho;
    const QByteArray linea = "\r[" + QByteArray(lleno, '#') + QByteArray(ancho - lleno, ' ') + "] " +
                             QByteArray::number(hechos) + '/' + QByteArray::number(total);
    std::fwrite(linea.constData(), 1, size_t(linea.size()), stderr);
}

int importCommand(const QStringList &args)
{
    Argumentos a;
    if (!a.leer(args, opcionesDeSesion({{QStringLiteral("--overwrite"), 0}})) || a.libres.size() != 2)
        return usage();
    SesionCli sesion(a, a.libres[0]);
    Session &s = sesion.s();
    sesion.ui.imprimirPitidos = true;

    const bool terminal = isatty(fileno(stderr));
    Importar::Acciones acciones;
    acciones.importando = [](const QDate &dia) {
        imprimirLinea({QStringLiteral("importando"), diaMaquina(dia)});
    };
    if (terminal)
        acciones.progreso = barra;
    Importar m(s, acciones);
    s.paso([&] { m.Form_Load(); });
    m.Text1 = a.libres[1];
    m.Sobre = a.tiene(QStringLiteral("--overwrite")) ? 1 : 0;
    s.paso([&] { m.Aceptar1_Click(); });
    m.Form_Unload();
    if (terminal)
        std::fputs("\n", stderr);
    return kOk;
}

const CommandRegistration registro{
    {"import", "import BASE FOLDER [--overwrite] [--user N]   the text and dBase day files of a folder",
     importCommand}};

} // namespace

} // namespace tesorel::cli
