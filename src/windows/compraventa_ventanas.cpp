#include "windows/ventanas.h"

#include <QApplication>

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
                                  [&comandos] { comandos.ejecutar(QStringLiteral("operadoresform")); }};
    };
    comandos.registrar(QStringLiteral("Comprar"), [&principal, &s, entorno] {
        ComprarDialog ventana(s, entorno(), &principal);
        ventana.exec();
    });
    comandos.registrar(QStringLiteral("Vender"), [&principal, &s, entorno] {
        VenderDialog ventana(s, entorno(), &principal);
        ventana.exec();
    });
    comandos.registrar(QStringLiteral("operadoresform"), [&principal, &s] {
        QWidget *encima = QApplication::activeModalWidget();
        OperadoresDialog ventana(s, encima ? encima : &principal);
        ventana.exec();
    });
}

} // namespace tesorel
