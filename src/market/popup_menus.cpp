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

QString CaptionMenu(MenuEmergente menu)
{
    switch (menu) {
    case MenuEmergente::menu_filtro:
        return QStringLiteral("&Ver Valores");
    case MenuEmergente::menu_popup_Accion:
        return QStringLiteral("Popup_Accion");
    case MenuEmergente::Ninguno:
        break;
    }
    return {};
}

std::vector<ElementoMenu> ElementosMenu(MenuEmergente menu)
{
    switch (menu) {
    case MenuEmergente::menu_filtro:
        return {{"menu_todos", "Todos los Valores"},
                {"menu_massuben", "Los que más suben"},
                {"menu_ibex", "Ibex"},
                {"menu_ENcartera", "En &Cartera"},
                {"menu_seguimiento", "En &Seguimiento"},
                {"menu_categorias_personales", "&Categorias Personales"},
                {"menu_categorias_Globales", "&Categorias Globales"}};
    case MenuEmergente::menu_popup_Accion:
        return {{"menu_popup_Comprar", "Comprar"},
                {"menu_popup_vender", "&Vender"},
                {"menu_popup_add", "Añadir a &seguimiento"},
                {"menu_popup_quitar", "&Quitar de seguimiento"}};
    case MenuEmergente::Ninguno:
        break;
    }
    return {};
}

} // namespace tesorel
