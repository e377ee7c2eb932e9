#include "windows/ventanas.h"

#include <QApplication>

#include "core/nombres_comandos.h"
#include "portfolio/serie_cartera.h"
#include "principal/comandos.h"
#include "store/session.h"
#include "windows/cartera_form.h"
#include "windows/principal_window.h"

namespace tesorel
{

void registrarVentanasCartera(PrincipalWindow &principal, Session &s, Comandos &comandos)
{
    // The portfolio opens its sub-windows through the same commands as the main window.
    comandos.registrar(comando::cartera11, [&principal, &s, &comandos] {
        CarteraDialog ventana(
            s, [&comandos](const QString &nombre) { comandos.ejecutar(nombre); }, &principal);
        ventana.exec();
    });
    comandos.registrar(comando::ModifCartera, [&principal, &s] {
        QWidget *encima = QApplication::activeModalWidget();
        ModifCarteraDialog ventana(s, encima ? encima : &principal);
        ventana.exec();
    });
    // Showing the portfolio's value in the main window brings its series up to date.
    comandos.registrar(comando::Generar_Serie_Cartera, [&s] {
        AvisosSerie avisos;
        avisos.relojDeArena = [](bool ocupado) {
            if (ocupado)
                QApplication::setOverrideCursor(Qt::WaitCursor);
            else
                QApplication::restoreOverrideCursor();
        };
        Generar_Serie_Cartera(s, 1, avisos);
    });
}

} // namespace tesorel
