#include "windows/ventanas.h"

#include "core/nombres_comandos.h"
#include "principal/comandos.h"
#include "store/session.h"
#include "windows/cotizaciones_form.h"
#include "windows/principal_window.h"

namespace tesorel
{

void registrarVentanaCotizaciones(PrincipalWindow &principal, Session &s, Comandos &comandos)
{
    comandos.registrar(comando::Cotizaciones, [&principal, &s, &comandos] {
        CotizacionesForm ventana(s, principal.modelo().Text1(), &principal);
        // A row click selects its value as a click on the main window's list does.
        ventana.modelo().mostrarValor = [&principal](const QString &nombre) {
            principal.modelo().setText1(nombre);
        };
        ventana.modelo().AddEmpresa = [&comandos] { comandos.ejecutar(comando::AddEmpresa); };
        ventana.exec();
    });
}

} // namespace tesorel
