#include "windows/ventanas.h"

#include "core/nombres_comandos.h"
#include "import/empresas.h"
#include "principal/comandos.h"
#include "store/session.h"
#include "windows/importinet_dialog.h"
#include "windows/principal_window.h"

namespace tesorel
{

void registrarVentanasInternet(PrincipalWindow &principal, Session &s, Comandos &comandos)
{
    comandos.registrar(comando::Importinet, [&principal, &s, &comandos] {
        Importinet::Acciones acciones;
        acciones.AddEmpresa = [&s, &comandos](const QString &ticker) {
            AltaDeEmpresa entrada;
            entrada.ABREVIATURA3 = ticker;
            entradaAddEmpresa(s) = entrada;
            comandos.ejecutar(comando::AddEmpresa);
        };
        acciones.Importar = [&comandos] { comandos.ejecutar(comando::Importar); };
        ImportinetDialog ventana(s, FuentesCierres::leer(s.carpeta), std::move(acciones), &principal);
        ventana.exec();
    });
}

} // namespace tesorel
