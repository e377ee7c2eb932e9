#pragma once
#include <QString>
#include <vector>

namespace tesorel
{

// The popup menus of the main window's left side, as data for the form.
enum class MenuEmergente { Ninguno, menu_filtro, menu_popup_Accion };

struct ElementoMenu {
    QString nombre; // the menu item's control name
    QString caption;
};

// Which menu a mouse down of `boton` (2 = right) on the control `control` pops up.
MenuEmergente MenuAlPulsar(const QString &control, int boton);

QString CaptionMenu(MenuEmergente menu);
std::vector<ElementoMenu> ElementosMenu(MenuEmergente menu);

} // namespace tesorel
