#include "market/popup_menus.h"

namespace tesorel
{

MenuEmergente MenuAlPulsar(const QString &control, int boton)
{
    constexpr int BotonDerecho = 2;
    if (boton != BotonDerecho)
        return MenuEmergente::Ninguno;
    if (control == QLatin1String("List1") || control == QLatin1String("Titul"))
        return MenuEmergente::menu_filtro;
    if (control == QLatin1String("Titulo"))
        return MenuEmergente::menu_popup_Accion;
    return MenuEmergente::Ninguno;
}

} // namespace tesorel
