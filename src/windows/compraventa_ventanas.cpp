#include "windows/ventanas.h"

#include <QApplication>

#include "core/nombres_comandos.h"
#include "principal/comandos.h"
#include "store/session.h"
#include "windows/comprar_form.h"
#include "windows/operadores_form.h"
#include "windows/principal_window.h"
#include "windows/vender_form.h"

namespace tesorel
{

void registrarVentanasCompraVenta(PrincipalWindow &principal, Session &s, Comandos &comandos)
{
    // Both windows open on the value the main window shows, and reach the
    // brokers' editor through its command.
    auto entorno = [&principal, &comandos] {
        return EntornoCompraVenta{[&principal] { return principal.modelo().Text1(); },
                                  [&comandos] { comandos.ejecutar(comando::operadoresform); }};
    };
    comandos.registrar(comando::Comprar, [&principal, &s, entorno] {
        ComprarDialog ventana(s, entorno(), &principal);
        ventana.exec();
    });
    comandos.registrar(comando::Vender, [&principal, &s, entorno] {
        VenderDialog ventana(s, entorno(), &principal);
        ventana.exec();
    });
    comandos.registrar(comando::operadoresform, [&principal, &s] {
        QWidget *encima = QApplication::activeModalWidget();
        OperadoresDialog ventana(s, encima ? encima : &principal);
        ventana.exec();
    });
}

} // namespace tesorel
