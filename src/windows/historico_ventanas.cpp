#include "windows/ventanas.h"

#include "principal/comandos.h"
#include "store/session.h"
#include "windows/principal_window.h"

namespace tesorel
{

void registrarVentanasHistorico(PrincipalWindow &principal, Session &s, Comandos &comandos)
{
    (void)principal;
    (void)s;
    (void)comandos;
}

} // namespace tesorel
