#include "core/nombres_comandos.h"
#include "windows/test_principal_support.h"

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

// Controls that the window serves itself: closing, minimising, ending the program.
const QStringList kDeLaVentana{control::cerrar, control::minimizar, control::Menu_salir,
                               control::menu_encierra};

struct MapaDeComandos : VentanaDemo {
    // Every menu entry and every button of the command map, by name.
    QHash<QString, QObject *> controles()
    {
        QHash<QString, QObject *> out;
        for (QMenu *menu : ventana->findChildren<QMenu *>())
            for (QAction *a : menu->actions())
                if (!a->menu() && !a->objectName().isEmpty())
                    out.insert(a->objectName(), a);
        const QStringList zonas{"Cabecera", "Botonera", "BarraSuperior", "PanelLista"};
        const QStringList alias = Comandos::controles();
        for (QAbstractButton *b : ventana->findChildren<QAbstractButton *>()) {
            // Qt's own: the menu bar's overflow button, the search box's clear button.
            if (b->objectName().isEmpty() || b->objectName().startsWith("qt_"))
                continue;
            bool enMapa = alias.contains(b->objectName());
            for (QWidget *p = b->parentWidget(); p && !enMapa; p = p->parentWidget())
                enMapa = zonas.contains(p->objectName());
            if (enMapa)
                out.insert(b->objectName(), b);
        }
        return out;
    }
    void pulsar(QObject *control)
    {
        if (auto *a = qobject_cast<QAction *>(control))
            a->trigger();
        else
            static_cast<QAbstractButton *>(control)->click();
    }
};

TEST_F(MapaDeComandos, EveryControlLeadsToARegisteredCommandOrToNothing)
{
    const auto todos = controles();
    for (auto it = todos.begin(); it != todos.end(); ++it) {
        const QString &nombre = it.key();
        if (kDeLaVentana.contains(nombre))
            continue;
        ASSERT_TRUE(Comandos::controles().contains(nombre)) << "no alias for " << nombre.toStdString();
        const QString comando = Comandos::comandoDe(nombre);
        EXPECT_NE(comando, "Importar") << nombre.toStdString(); // that window has no button and no entry
        if (!comando.isEmpty()) {
            EXPECT_TRUE(comandos.registrado(comando))
                << nombre.toStdString() << " -> " << comando.toStdString();
        }
    }
    // The alias table names no control that the window lacks.
    for (const QString &nombre : Comandos::controles())
        EXPECT_TRUE(todos.contains(nombre)) << nombre.toStdString();
}

TEST_F(MapaDeComandos, EntriesWithoutAHandlerDoNothingWhateverIsRegistered)
{
    int llamadas = 0;
    const auto todos = controles();
    for (auto it = todos.begin(); it != todos.end(); ++it)
        if (Comandos::comandoDe(it.key()).isEmpty() && !kDeLaVentana.contains(it.key())) {
            comandos.registrar(it.key(), [&] { ++llamadas; });
            pulsar(it.value());
        }
    EXPECT_EQ(llamadas, 0);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(MapaDeComandos, ThreeWaysToBuyAndToImportOpenOneWindowAndTheListStaysAsItWas)
{
    const auto todos = controles();
    pulsar(todos.value(control::menu_ENcartera));
    auto *lista = hijo<QListWidget>(ventana.get(), "List1");
    const int antes = lista->count();
    QStringList abiertas;
    comandos.registrar(comando::Comprar, [&] {
        abiertas << comando::Comprar;
        // What a purchase leaves behind: a new holding of the user.
        if (abiertas.size() == 1)
            s->Base_Datos->execute("insert into cartera (usuario, valor, cantidad) values (1, 7, 10)");
    });
    comandos.registrar(comando::Importinet, [&] { abiertas << comando::Importinet; });
    for (const char *c : {control::boton_Comprar, control::menu_comprar, control::menu_popup_Comprar,
                          control::boton_Importar, control::menu_importa, control::menu_importar})
        pulsar(todos.value(c));
    EXPECT_EQ(abiertas,
              QStringList({"Comprar", "Comprar", "Comprar", "Importinet", "Importinet", "Importinet"}));
    EXPECT_EQ(lista->count(), antes);
    // Built again, the list shows the new holding.
    pulsar(todos.value(control::menu_ENcartera));
    EXPECT_EQ(lista->count(), antes + 1);
}

TEST_F(MapaDeComandos, AboutShowsTheVersion)
{
    QString version;
    Guion guion;
    guion.luego("acercade", [&](QWidget *w) {
        version = hijo<QLabel>(w, "Version")->text();
        hijo<QPushButton>(w, "Aceptar")->click();
    });
    pulsar(controles().value(control::acerca_de));
    ASSERT_TRUE(guion.terminado()) << guion.vistas.join(",").toStdString();
    EXPECT_TRUE(version.startsWith("Tesorel ")) << version.toStdString();
}

} // namespace
