#include "market_fixture.h"

using namespace tesorel;
using tesorel::testing::MarketTest;

namespace
{

struct SearchCase {
    const char *text;
    const char *text1;   // the value selected afterwards
    const char *titul;   // the list's title afterwards
    QStringList entries; // the list afterwards
};

TEST_F(MarketTest, SearchCases)
{
    const QStringList ibex{"SANTANDER  (SAN)", "TELEFONICA  (TEF)", "SABADELL  (SAB)"};
    const SearchCase cases[] = {
        {"TEF", "TELEFONICA", "Ibex", ibex},
        {"BAN", "BANCA MARCH", "Ibex", ibex},    // a ticker goes before the names that contain it
        {"sab", "BANCO SABADELL", "Ibex", ibex}, // a ticker without a quote today
        {"epso", "REPSOL", "Ibex", ibex},        // one name
        {"BANCO", "", "Resultados", {"SANTANDER  (BANCO SANTANDER)", "SABADELL  (BANCO SABADELL)"}},
        {"ZZZ", "", "Ibex", ibex},
        {"O'NEIL", "", "Ibex", ibex},
    };
    for (const SearchCase &c : cases) {
        SCOPED_TRACE(c.text);
        nav->seleccion.setText1("");
        nav->lista.ibex();
        nav->busqueda.setBuscar(c.text);
        nav->busqueda.buscar_Return();
        EXPECT_EQ(nav->seleccion.Text1(), c.text1);
        EXPECT_EQ(nav->lista.Titul, c.titul);
        EXPECT_EQ(textos(), c.entries);
    }
    EXPECT_TRUE(ui.messages.empty()); // nothing is said, not even for the apostrophe
}

TEST_F(MarketTest, SearchBoxFocusSelectsAllAndEmptyingBringsTheListBack)
{
    nav->busqueda.setBuscar("BANCO");
    nav->busqueda.buscar_GotFocus();
    EXPECT_EQ(nav->busqueda.SelStart, 0);
    EXPECT_EQ(nav->busqueda.SelLength, 5);

    nav->lista.Cartera();
    nav->busqueda.buscar_Return();
    nav->busqueda.setBuscar("");
    EXPECT_EQ(nav->lista.Titul, "En Cartera");
    EXPECT_EQ(textos().last(), "CARTERA");
}

// ---- notes

TEST_F(MarketTest, ANoteIsSavedOnAListClickAndCanBeChangedButNotCleared)
{
    nav->lista.todos(); // REPSOL, SANTANDER, TELEFONICA
    click(0);
    const struct {
        const char *typed; // typed on REPSOL, then a click elsewhere and back
        const char *shown; // what the next opening of REPSOL shows
    } steps[] = {
        {"", ""}, // an empty box adds no row
        {"resultados el 30", "resultados el 30"},
        {"dividendo", "dividendo"}, // changed
        {"", "dividendo"},          // cleared: the old note comes back
    };
    for (const auto &st : steps) {
        SCOPED_TRACE(st.typed);
        nav->notas.Comentario = st.typed;
        click(1);
        nav->CargarComentario();
        EXPECT_EQ(nav->notas.Comentario, ""); // SANTANDER has none
        click(0);
        nav->CargarComentario();
        EXPECT_EQ(nav->notas.Comentario, st.shown);
    }
    EXPECT_EQ(cuenta("select count(*) from comentarios"), 1);
}

TEST_F(MarketTest, LeavingAValueOtherThanByAListClickLosesTheNote)
{
    nav->lista.todos();
    click(0);
    nav->notas.Comentario = "perdida";
    nav->busqueda.setBuscar("TEF");
    nav->busqueda.buscar_Return();
    EXPECT_EQ(nav->seleccion.Text1(), "TELEFONICA");
    EXPECT_EQ(cuenta("select count(*) from comentarios"), 0);
}

// ---- favourites

TEST_F(MarketTest, AddingTwiceLeavesTwoRowsAndOneRemoveDeletesBoth)
{
    nav->seleccion.setText1("REPSOL");
    nav->favoritos.menu_add_faboritos();
    nav->favoritos.menu_add_faboritos();
    EXPECT_EQ(cuenta("select count(*) from faboritos where valor = 12 and usuario = 1"), 2);
    nav->favoritos.menu_quitar_faboritos();
    EXPECT_EQ(cuenta("select count(*) from faboritos where valor = 12"), 0);
    EXPECT_EQ(cuenta("select count(*) from faboritos"), 4); // the others stay
}

TEST_F(MarketTest, TheFavouriteButtonTogglesAndRebuildsTheFollowedList)
{
    nav->lista.faboritos();
    nav->seleccion.setText1("TELEFONICA");
    nav->favoritos.PonerQuitarF();
    EXPECT_TRUE(nav->favoritos.Boton_Favorito[0]);
    EXPECT_FALSE(nav->favoritos.Boton_Favorito[2]);

    nav->favoritos.Boton_Favorito_Click(); // adds
    EXPECT_FALSE(nav->favoritos.Boton_Favorito[0]);
    EXPECT_TRUE(nav->favoritos.Boton_Favorito[2]);
    EXPECT_EQ(textos(), (QStringList{"SANTANDER  (4,5)", "TELEFONICA  (3,75)"}));

    nav->favoritos.Boton_Favorito_Click(); // removes
    EXPECT_TRUE(nav->favoritos.Boton_Favorito[0]);
    EXPECT_EQ(textos(), QStringList{"SANTANDER  (4,5)"});
    EXPECT_EQ(ui.beeps, 0);
}

TEST_F(MarketTest, TheFavouriteButtonWithNeitherLabelBeepsAndOutsideTheFollowedListLeavesTheList)
{
    nav->lista.ibex();
    nav->seleccion.setText1("REPSOL");
    nav->favoritos.Boton_Favorito = {false, false, false};
    nav->favoritos.Boton_Favorito_Click();
    EXPECT_EQ(ui.beeps, 1);
    EXPECT_EQ(cuenta("select count(*) from faboritos where valor = 12"), 0);
    EXPECT_TRUE(nav->favoritos.Boton_Favorito[0]); // set again for the value on show
    nav->favoritos.Boton_Favorito_Click();
    EXPECT_EQ(cuenta("select count(*) from faboritos where valor = 12"), 1);
    EXPECT_EQ(nav->lista.Titul, "Ibex");
    EXPECT_EQ(textos().size(), 3);
}

} // namespace
