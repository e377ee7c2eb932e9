#include "windows/ventanas.h"

#include "core/nombres_comandos.h"
#include "principal/comandos.h"
#include "store/session.h"
#include "windows/empresas_dialogs.h"
#include "windows/importar_dialog.h"
#include "windows/principal_window.h"

namespace tesorel
{

void registrarVentanasImportacion(PrincipalWindow &principal, Session &s, Comandos &comandos)
{
    // Opens with what the caller left in entradaAddEmpresa(s) and leaves the
    // outcome there; answers the new code, or nothing when cancelled.
    comandos.registrarConResultado(comando::AddEmpresa, [&principal, &s]() -> QVariant {
        AltaDeEmpresa &entrada = entradaAddEmpresa(s);
        AddEmpresaDialog ventana(s, entrada, &principal);
        ventana.exec();
        entrada = AltaDeEmpresa{};
        entrada.aceptada = ventana.modelo().codigoAnadido != 0;
        entrada.codigo = ventana.modelo().codigoAnadido;
        return entrada.aceptada ? QVariant(entrada.codigo) : QVariant();
    });
    comandos.registrar(comando::Importar, [&principal, &s, &comandos] {
        ImportarDialog ventana(s, comandos, &principal);
        ventana.exec();
    });
    comandos.registrar(comando::DepuraCotiza, [&principal, &s] {
        DepuraCotizaDialog ventana(s, &principal);
        ventana.exec();
    });
}

} // namespace tesorel
