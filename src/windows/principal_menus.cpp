#include <QMenu>
#include <QMenuBar>

#include "windows/guarded.h"
#include "windows/principal_window.h"

namespace tesorel
{

namespace
{
struct Entrada {
    const char *nombre;
    QString texto;
};
} // namespace

// Every menu in its order. The two popups are menus of their own that
// the bar does not show.
void PrincipalWindow::construirMenus(QMenuBar *barra)
{
    auto menu = [&](const char *nombre, const QString &texto, std::initializer_list<Entrada> entradas) {
        QMenu *m = barra->addMenu(texto);
        m->setObjectName(nombre);
        for (const Entrada &e : entradas) {
            QAction *a = m->addAction(e.texto);
            a->setObjectName(e.nombre);
            const QString nombreEntrada = e.nombre;
            connect(a, &QAction::triggered, this, [this, nombreEntrada] {
                if (nombreEntrada == QLatin1String("Menu_salir")) {
                    guarded(s_, [this] { modelo_.menu_salir_Click(); });
                    close();
                } else if (nombreEntrada == QLatin1String("menu_encierra")) {
                    guarded(s_, [this] { modelo_.menu_encierra_Click(); });
                } else {
                    alPulsar([&] { modelo_.ejecutar(nombreEntrada); });
                }
            });
        }
        return m;
    };
    menu("menu_archivo", QStringLiteral("&Archivo"),
         {{"menu_importa", QStringLiteral("Importar Cotizaciones")},
          {"Menu_salir", QStringLiteral("&Salir")}});
    menu("menu_ibex2", QStringLiteral("&Ibex"),
         {{"menu_cotizaciones_base", QStringLiteral("&Cotizaciones")},
          {"menu_cotizaciones", QStringLiteral("&Cotizaciones")},
          {"menu_intervalo", QStringLiteral("Seleccionar &Intervalo")},
          {"menu_importar", QStringLiteral("&Importar cotizaciones")},
          {"menu_explorar", QStringLiteral("Explorar")},
          {"menu_encierra", QStringLiteral("&Cerrar Sistema")}});
    menuFiltro_ = menu("menu_filtro", QStringLiteral("&Ver Valores"),
                       {{"menu_todos", QStringLiteral("Todos los Valores")},
                        {"menu_massuben", QStringLiteral("Los que más suben")},
                        {"menu_ibex", QStringLiteral("Ibex")},
                        {"menu_ENcartera", QStringLiteral("En &Cartera")},
                        {"menu_seguimiento", QStringLiteral("En &Seguimiento")},
                        {"menu_categorias_personales", QStringLiteral("&Categorias Personales")},
                        {"menu_categorias_Globales", QStringLiteral("&Categorias Globales")}});
    for (QAction *a : menuFiltro_->actions())
        if (a->objectName() != "menu_categorias_personales" && a->objectName() != "menu_categorias_Globales")
            a->setCheckable(true);
    menu("menu_ver", QStringLiteral("&Ver"),
         {{"menu_config", QStringLiteral("Configurar")}, {"menu_Litado", QStringLiteral("Listado")}});
    menu("Menu_Cartera_", QStringLiteral("&Cartera"),
         {{"Menu_Cartera", QStringLiteral("&Ver cartera")},
          {"Menu_Cartera_2", QStringLiteral("&Ver Cartera")},
          {"menu_historico", QStringLiteral("Histórico")},
          {"menu_comprar", QStringLiteral("Comprar")},
          {"menu_vender", QStringLiteral("Vender")}});
    menu("menu_configurar", QStringLiteral("Configurar"),
         {{"menu_config2", QStringLiteral("Configurar")},
          {"menu_config_faboritos", QStringLiteral("Valores en seguimiento")},
          {"menu_add_faboritos", QStringLiteral("Añadir valor a Seguimiento")},
          {"menu_quitar_faboritos", QStringLiteral("Quitar valor de seguimiento")}});
    menu("menu_ayuda", QStringLiteral("Ayuda"),
         {{"menu_sabia", QStringLiteral("Sabia que...")}, {"menu_acerca", QStringLiteral("Acerca de...")}});
    QMenu *popups =
        menu("menu_popups", QStringLiteral("Popups"),
             {{"menu_grafico", QStringLiteral("Grafico")}, {"menu_ampliar", QStringLiteral("Ampliar")}});
    menuPopupAccion_ = menu("menu_popup_Accion", QStringLiteral("Popup_Accion"),
                            {{"menu_popup_Comprar", QStringLiteral("Comprar")},
                             {"menu_popup_vender", QStringLiteral("&Vender")},
                             {"menu_popup_add", QStringLiteral("Añadir a &seguimiento")},
                             {"menu_popup_quitar", QStringLiteral("&Quitar de seguimiento")}});
    popups->menuAction()->setVisible(false);
    menuPopupAccion_->menuAction()->setVisible(false);
}

} // namespace tesorel
