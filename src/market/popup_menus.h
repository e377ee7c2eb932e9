#pragma once
#include <QString>

namespace tesorel
{

// The popup menus of the main window's left side (their entries are the
// form's: windows/principal_menus.cpp).
enum class MenuEmergente { Ninguno, menu_filtro, menu_popup_Accion };

// Which menu a mouse down of `boton` (2 = right) on the control `control` pops up.
MenuEmergente MenuAlPulsar(const QString &control, int boton);

} // namespace tesorel
