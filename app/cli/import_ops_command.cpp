// tesorel-cli import-ops: the broker statements window run on a folder; at
// each wait the value and the broker are chosen as told and the grid is
// confirmed. Prints the log lines as they come, and the messages.
#include "cli_session.h"
#include "commands.h"

#include "import/importar_op.h"

#include <QFileInfo>

namespace tesorel::cli
{

namespace
{

int importOpsCommand(const QStringList &args)
{
    Argumentos a;
    if (!a.leer(args, opcionesDeSesion({{"--value", 1}, {"--broker", 1}, {"--skip", 0}})) ||
        a.libres.size() != 2)
        return usage();
    SesionCli sesion(a, a.libres[0]);
    Session &s = sesion.s();

    ImportarOp ventana(s);
    ventana.Form_Load();
    ventana.Text1 = QFileInfo(a.libres[1]).absoluteFilePath();
    qsizetype impreso = 0;
    ventana.alCambiar = [&] {
        qsizetype fin;
        while ((fin = ventana.Text2.indexOf(QLatin1String("\r\n"), impreso)) >= 0) {
            imprimirLinea({ventana.Text2.mid(impreso, fin - impreso)});
            impreso = fin + 2;
        }
    };
    QString archivo;
    int intentos = 0;
    ventana.esperar = [&] {
        intentos = archivo == ventana.Valor ? intentos + 1 : 0;
        archivo = ventana.Valor;
        if (ventana.Combo1.isEmpty())
            ventana.Combo1 = a.valor("--value");
        if (a.tiene("--broker"))
            ventana.Combo2 = a.valor("--broker");
        // Without a value, or refused once already, the file is skipped.
        ventana.ImportarOp_ = a.tiene("--skip") || ventana.Combo1.isEmpty() || intentos > 0 ? 0 : 1;
        ventana.Command3_Click();
    };
    ventana.Command2_Click();
    ventana.alCambiar = nullptr;
    return kOk;
}

const CommandRegistration registro{{"import-ops",
                                    "import-ops BASE FOLDER --user N [--value ABREV11] [--broker NAME] "
                                    "[--skip]   book a folder of broker statements",
                                    importOpsCommand}};

} // namespace

} // namespace tesorel::cli
