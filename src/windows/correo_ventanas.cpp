#include "windows/ventanas.h"

#include <QApplication>

#include "core/nombres_comandos.h"
#include "principal/comandos.h"
#include "store/session.h"
#include "windows/import_correo_dialog.h"
#include "windows/importar_op_dialog.h"
#include "windows/principal_window.h"

namespace tesorel
{

namespace
{
// Modal over whatever window opened it (the quote import, the portfolio).
QWidget *padre(PrincipalWindow &principal)
{
    QWidget *modal = QApplication::activeModalWidget();
    return modal ? modal : &principal;
}
} // namespace

void registrarVentanasCorreo(PrincipalWindow &principal, Session &s, Comandos &comandos)
{
    comandos.registrar(comando::ImportCorreo, [&principal, &s] {
        ImportCorreoDialog ventana(s, padre(principal));
        ventana.exec();
    });
    comandos.registrar(comando::ImportarOp, [&principal, &s, &comandos] {
        ImportarOpDialog ventana(
            s, [&comandos] { comandos.ejecutar(comando::AddEmpresa); }, padre(principal));
        ventana.exec();
    });
}

} // namespace tesorel
