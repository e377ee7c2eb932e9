#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QStandardPaths>

#include "principal/comandos.h"
#include "store/app_folder.h"
#include "store/session.h"
#include "windows/desktop_ui.h"
#include "windows/principal_window.h"

using namespace tesorel;

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName("Tesorel");
    QApplication::setOrganizationName("Tesorel");
    QApplication::setFont(QFont("DejaVu Sans", 10));

    QCommandLineParser opciones;
    opciones.addHelpOption();
    opciones.addOption({"base", "Trabaja con la base PATH en lugar de la de la carpeta de datos.", "PATH"});
    opciones.process(app);

    // The base named on the command line brings its own folder for
    // error.txt, tmp and mail.
    QString carpeta, base;
    if (opciones.isSet("base")) {
        base = QFileInfo(opciones.value("base")).absoluteFilePath();
        carpeta = QFileInfo(base).absolutePath();
    } else {
        carpeta = Carpeta_Aplicacion(QCoreApplication::applicationDirPath(),
                                     QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    }

    DesktopUi ui;
    Session session(ui, carpeta);
    Comandos comandos;
    PrincipalWindow principal(session, comandos, base);
    principal.mostrar();
    if (principal.modelo().Terminado)
        return 0;
    return app.exec();
}
