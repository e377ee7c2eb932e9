#include <QFocusEvent>

#include "windows/test_principal_support.h"

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

struct Mercado : VentanaDemo {
    QStringList dibujos; // the value on show each time the chart was asked to draw

    void antesDeEntrar() override
    {
        comandos.registrar("DibujarGrafica", [this] { dibujos << ventana->modelo().Text1(); });
    }
    QListWidget *lista() { return hijo<QListWidget>(ventana.get(), "List1"); }
    QString titulo() { return hijo<QLabel>(ventana.get(), "Titul")->text(); }
    QString valor() { return hijo<QLineEdit>(ventana.get(), "Text1")->text(); }
    bool visible(const QString &nombre)
    {
        return hijo<QWidget>(ventana.get(), nombre)->isVisibleTo(ventana.get());
    }
    QStringList entradas()
    {
        QStringList textos;
        for (int i = 0; i < lista()->count(); ++i)
            textos << lista()->item(i)->text();
        return textos;
    }
    void pulsar(const QString &boton) { hijo<QPushButton>(ventana.get(), boton)->click(); }
    void menu(const QString &entrada) { hijo<QAction>(ventana.get(), entrada)->trigger(); }
    void buscar(const QString &texto)
    {
        auto *caja = hijo<QLineEdit>(ventana.get(), "buscar");
        caja->setText(texto);
        tecla(caja, Qt::Key_Return);
    }
};

TEST_F(Mercado, ListsFromMenusRingAndCombo)
{
    // What each list holds is the market model's; here each control reaches
    // its list, and the menu marks and the title follow.
    EXPECT_EQ(titulo(), "Todos"); // a new configuration
    EXPECT_TRUE(entradas().contains("SANTANDER  (SAN)")) << entradas().join("|").toStdString();

    struct Paso {
        std::function<void()> accion;
        QString titulo, marcado;
    } pasos[] = {
        {[&] { pulsar("boton_siguiente"); }, QStringLiteral("Los que más suben"), "menu_massuben"},
        {[&] {
             auto *combo = hijo<QComboBox>(ventana.get(), "Valores");
             combo->setCurrentIndex(2);
             emit combo->activated(2);
         },
         "En Cartera", "menu_ENcartera"},
        {[&] { pulsar("boton_anterior"); }, "En Seguimiento", "menu_seguimiento"},
        {[&] { menu("menu_ibex"); }, "Ibex", "menu_ibex"},
    };
    for (const Paso &p : pasos) {
        p.accion();
        EXPECT_EQ(titulo(), p.titulo);
        for (const char *marca :
             {"menu_todos", "menu_massuben", "menu_ibex", "menu_ENcartera", "menu_seguimiento"})
            EXPECT_EQ(hijo<QAction>(ventana.get(), marca)->isChecked(), p.marcado == marca)
                << p.titulo.toStdString() << " " << marca;
    }
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Mercado, ClickingValuesSelectsThemAndShowsTheirLinks)
{
    menu("menu_todos");
    dibujos.clear();
    elegir("SANTANDER  (SAN)");
    EXPECT_EQ(valor(), "BANCO SANTANDER");
    EXPECT_EQ(lista()->currentItem()->text(), "SANTANDER  (SAN)");
    EXPECT_EQ(dibujos, QStringList{"BANCO SANTANDER"});
    // Which links a value has is the model's (Selection.LinksAreShownByTheirAddresses): here they show.
    EXPECT_TRUE(visible("Invertia")); // the sample gives every value its identifier
    EXPECT_EQ(visible("laWEB"), !ventana->modelo().mercado.seleccion.enlaces.direccionWeb.isEmpty());
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Mercado, SearchListsTheResultsAndAClickSelectsOne)
{
    // Where a text leads is MarketTest.SearchCases': here Return, the results and a click.
    menu("menu_ibex");
    buscar("BANCO");
    EXPECT_EQ(titulo(), "Resultados");
    EXPECT_TRUE(entradas().contains("SABADELL  (BANCO SABADELL)")) << entradas().join("|").toStdString();
    elegir("SABADELL");
    EXPECT_EQ(valor(), "BANCO SABADELL");
    EXPECT_EQ(titulo(), "Ibex"); // the emptied box brings the list back
    EXPECT_EQ(hijo<QLineEdit>(ventana.get(), "buscar")->text(), "");

    // Focus selects the whole text.
    auto *caja = hijo<QLineEdit>(ventana.get(), "buscar");
    caja->setText("REP");
    QFocusEvent foco(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(caja, &foco);
    QApplication::processEvents();
    EXPECT_EQ(caja->selectedText(), "REP");
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Mercado, FavouriteButtonReachesTheModel)
{
    menu("menu_seguimiento");
    buscar("SAN");
    auto *boton = hijo<QPushButton>(ventana.get(), "Boton_Favorito");
    EXPECT_EQ(boton->text(), QStringLiteral("Añadir a Seguimiento"));
    // The row and the rebuilt list are MarketTest.TheFavouriteButtonTogglesAndRebuildsTheFollowedList's.
    pulsar("Boton_Favorito");
    EXPECT_EQ(boton->text(), QStringLiteral("Quitar de Seguimiento"));
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Mercado, NotesTabShowsTheNoteAndAListClickSavesIt)
{
    menu("menu_todos");
    elegir("SANTANDER  (SAN)");
    hijo<QTabBar>(ventana.get(), QStringLiteral("Pestañas"))->setCurrentIndex(1);
    auto *nota = hijo<QPlainTextEdit>(ventana.get(), "Comentario");
    EXPECT_TRUE(nota->toPlainText().startsWith("Dividendo en efectivo")) << nota->toPlainText().toStdString();
    nota->setPlainText("Objetivo 5 euros");
    elegir("SABADELL  (SAB)");
    EXPECT_EQ(nota->toPlainText(), ""); // the open tab follows the new value
    EXPECT_EQ(consulta(*s, "select Comentario from comentarios where codigo = 25").toString(),
              "Objetivo 5 euros");
}

TEST_F(Mercado, RightClicksOpenTheirPopups)
{
    auto *filtro = hijo<QMenu>(ventana.get(), "menu_filtro");
    auto *accion = hijo<QMenu>(ventana.get(), "menu_popup_Accion");
    struct Caso {
        QWidget *control;
        QMenu *menu;
    } casos[] = {{lista()->viewport(), filtro},
                 {hijo<QWidget>(ventana.get(), "Titul"), filtro},
                 {hijo<QWidget>(ventana.get(), "Titulo"), accion}};
    for (const Caso &c : casos) {
        clic(c.control, Qt::RightButton);
        EXPECT_TRUE(c.menu->isVisible()) << c.control->objectName().toStdString();
        c.menu->hide();
    }
}

} // namespace
