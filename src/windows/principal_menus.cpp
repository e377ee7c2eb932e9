#include <QMenu>
#include <QMenuBar>

#include "core/nombres_comandos.h"
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
                if (nombreEntrada == QLatin1String(control::Menu_salir)) {
                    guarded(s_, [this] { modelo_.menu_salir_Click(); });
                    close();
                } else if (nombreEntrada == QLatin1String(control::menu_encierra)) {
                    guarded(s_, [this] { modelo_.menu_encierra_Click(); });
                } else {
                    alPulsar([&] { modelo_.ejecutar(nombreEntrada); });
                }
            });
        }
        return m;
    };
    menu("menu_archivo", QStringLiteral("&Archivo"),
         {{control::menu_importa, QStringLiteral("Importar Cotizaciones")},
          {control::Menu_salir, QStringLiteral("&Salir")}});
    menu("menu_ibex2", QStringLiteral("&Ibex"),
         {{control::menu_cotizaciones_base, QStringLiteral("&Cotizaciones")},
          {control::menu_cotizaciones, QStringLiteral("&Cotizaciones")},
          {control::menu_intervalo, QStringLiteral("Seleccionar &Intervalo")},
          {control::menu_importar, QStringLiteral("&Importar cotizaciones")},
          {control::menu_explorar, QStringLiteral("Explorar")},
          {control::menu_encierra, QStringLiteral("&Cerrar Sistema")}});
    menuFiltro_ = menu("menu_filtro", QStringLiteral("&Ver Valores"),
                       {{control::menu_todos, QStringLiteral("Todos los Valores")},
                        {control::menu_massuben, QStringLiteral("Los que más suben")},
                        {control::menu_ibex, QStringLiteral("Ibex")},
                        {control::menu_ENcartera, QStringLiteral("En &Cartera")},
                        {control::menu_seguimiento, QStringLiteral("En &Seguimiento")},
                        {control::menu_categorias_personales, QStringLiteral("&Categorias Personales")},
                        {control::menu_categorias_Globales, QStringLiteral("&Categorias Globales")}});
    for (QAction *a : menuFiltro_->actions())
        if (a->objectName() != control::menu_categorias_personales &&
            a->objectName() != control::menu_categorias_Globales)
            a->setCheckable(true);
    menu("menu_ver", QStringLiteral("&Ver"),
         {{control::menu_config, QStringLiteral("Configurar")},
          {control::menu_Litado, QStringLiteral("Listado")}});
    menu("Menu_Cartera_", QStringLiteral("&Cartera"),
         {{control::Menu_Cartera, QStringLiteral("&Ver cartera")},
          {control::Menu_Cartera_2, QStringLiteral("&Ver Cartera")},
          {control::menu_historico, QStringLiteral("Histórico")},
          {control::menu_comprar, QStringLiteral("Comprar")},
          {control::menu_vender, QStringLiteral("Vender")}});
    menu("menu_configurar", QStringLiteral("Configurar"),
         {{control::menu_config2, QStringLiteral("Configurar")},
          {control::menu_config_faboritos, QStringLiteral("Valores en seguimiento")},
          {control::menu_add_faboritos, QStringLiteral("Añadir valor a Seguimiento")},
          {control::menu_quitar_faboritos, QStringLiteral("Quitar valor de seguimiento")}});
    menu("menu_ayuda", QStringLiteral("Ayuda"),
         {{control::menu_sabia, QStringLiteral("Sabia que...")},
          {control::menu_acerca, QStringLiteral("Acerca de...")}});
    QMenu *popups = menu("menu_popups", QStringLiteral("Popups"),
                         {{control::menu_grafico, QStringLiteral("Grafico")},
                          {control::menu_ampliar, QStringLiteral("Ampliar")}});
    menuPopupAccion_ = menu("menu_popup_Accion", QStringLiteral("Popup_Accion"),
                            {{control::menu_popup_Comprar, QStringLiteral("Comprar")},
                             {control::menu_popup_vender, QStringLiteral("&Vender")},
                             {control::menu_popup_add, QStringLiteral("Añadir a &seguimiento")},
                             {control::menu_popup_quitar, QStringLiteral("&Quitar de seguimiento")}});
    popups->menuAction()->setVisible(false);
    menuPopupAccion_->menuAction()->setVisible(false);
}

} // namespace tesorel
