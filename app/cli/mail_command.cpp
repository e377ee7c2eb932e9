// tesorel-cli mail: the mail window with the user's host and mail user,
// the password typed and "Comprobar" clicked; it runs until the window
// closes itself, a failure is shown, or 30 seconds pass.
#include "cli_session.h"
#include "commands.h"

#include "import/import_correo.h"
#include "import/winsock.h"
#include "store/app_folder.h"

#include <QEventLoop>
#include <QTimer>

namespace tesorel::cli
{

namespace
{

constexpr int kLimiteMs = 30000;

int mailCommand(const QStringList &args)
{
    Argumentos a;
    if (!a.leer(args, opcionesDeSesion({{"--password", 1}, {"--host", 1}})) || a.libres.size() != 1 ||
        !a.tiene("--password"))
        return usage();
    SesionCli sesion(a, a.libres[0]);
    Session &s = sesion.s();
    Crear_Carpetas_Trabajo(s.carpeta);

    ImportCorreo ventana(s, crearWinsockTcp());
    ventana.Form_Load();
    if (a.tiene("--host"))
        ventana.txtHost = a.valor("--host");
    ventana.txtPassword = a.valor("--password");

    QEventLoop espera;
    QTimer limite;
    limite.setSingleShot(true);
    QObject::connect(&limite, &QTimer::timeout, &espera, &QEventLoop::quit);
    ventana.alCambiar = [&] {
        if (ventana.Descargado || ventana.detenido())
            QTimer::singleShot(0, &espera, &QEventLoop::quit);
    };
    ventana.cmdCheckMail_Click();
    if (!ventana.Descargado && !ventana.detenido()) {
        limite.start(kLimiteMs);
        espera.exec();
    }
    ventana.alCambiar = nullptr;
    if (!ventana.Descargado)
        ventana.cerrar_Click();
    return kOk;
}

const CommandRegistration registro{
    {"mail", "mail BASE --user N --password PW [--host HOST[:PORT]]   fetch the day files that came by mail",
     mailCommand}};

} // namespace

} // namespace tesorel::cli
