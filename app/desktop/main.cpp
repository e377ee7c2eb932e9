#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QStandardPaths>

#include "core/nombres_comandos.h"
#include "principal/comandos.h"
#include "store/app_folder.h"
#include "store/session.h"
#include "users/login.h"
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
    // Test hooks of the start-up benchmark: enter as USUARIO:CLAVE without the
    // login window, and end as soon as the main window has been drawn.
    QCommandLineOption entrar("entrar", "", "USUARIO:CLAVE"), salir("salir-al-dibujar");
    entrar.setFlags(QCommandLineOption::HiddenFromHelp);
    salir.setFlags(QCommandLineOption::HiddenFromHelp);
    opciones.addOption(entrar);
    opciones.addOption(salir);
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
    if (opciones.isSet(entrar)) {
        const QStringList partes = opciones.value(entrar).split(':');
        comandos.registrar(comando::form4, [&, partes] {
            form4 login(session, [&](const QString &texto) { principal.modelo().Configuracion = texto; });
            login.Form_Load();
            login.List1_ListIndex = int(login.List1.indexOf(partes.value(0)));
            login.List1_Click();
            login.Clave = partes.value(1);
            login.Clave_KeyDown(form4::Tecla::Return);
        });
    }
    principal.mostrar();
    if (principal.modelo().Terminado)
        return opciones.isSet(salir) ? 3 : 0; // the hook's login failed
    if (opciones.isSet(salir)) {
        principal.repaint();
        return 0;
    }
    return app.exec();
}
