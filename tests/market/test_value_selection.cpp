#include "market_fixture.h"

#include "market/popup_menus.h"

using namespace tesorel;
using tesorel::testing::MarketTest;

namespace
{

class Selection : public MarketTest
{
  protected:
    QStringList calls;

    void SetUp() override
    {
        MarketTest::SetUp();
        Ganchos &g = nav->seleccion.ganchos;
        g.Generar_Serie_Cartera = [this](double modo) { calls << QString("serie %1").arg(modo); };
        g.QuitarVerOperaciones = [this] { calls << "quitar:" + nav->busqueda.buscar(); };
        g.DibujarGrafica = [this] { calls << QString("dibujar %1").arg(nav->seleccion.Codigo_Valor); };
        g.Pesta = [this] { calls << "pesta"; };
    }
};

TEST_F(Selection, AClickSelectsTheEntrysValueAndRunsTheStepsInOrder)
{
    const struct {
        void (ListaValores::*lista)();
        const char *text1;
        double codigo;
        QStringList pasos; // the portfolio brings its series up to date first
    } casos[] = {
        {&ListaValores::todos, "TELEFONICA", 11, {"quitar:", "dibujar 11", "pesta"}},
        {&ListaValores::Cartera, "CARTERA ana", 34001, {"serie 1", "quitar:", "dibujar 34001", "pesta"}},
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(c.text1);
        calls.clear();
        (nav->lista.*c.lista)();
        click(2);
        EXPECT_EQ(nav->seleccion.Text1(), c.text1);
        EXPECT_EQ(nav->seleccion.Codigo_Valor, c.codigo);
        EXPECT_EQ(calls, c.pasos);
    }
}

TEST_F(Selection, AClickWithNoEntrySelectedIsSkipped)
{
    nav->lista.todos();
    click(0);
    calls.clear();
    nav->notas.Comentario = "sube";
    click(-1);
    EXPECT_EQ(nav->seleccion.Text1(), "REPSOL");
    EXPECT_TRUE(calls.isEmpty());
    EXPECT_EQ(cuenta("select count(*) from comentarios where codigo = 12"), 1); // the note was still saved
}

TEST_F(Selection, TheSameValueAgainIsNoChangeAndAbsentHooksDoNothing)
{
    nav->seleccion.setText1("REPSOL");
    calls.clear();
    nav->seleccion.setText1("REPSOL");
    EXPECT_TRUE(calls.isEmpty());

    nav->seleccion.ganchos = {};
    nav->seleccion.setText1("CARTERA ana");
    nav->seleccion.setText1("TELEFONICA");
    EXPECT_EQ(nav->seleccion.Codigo_Valor, 11);
}

TEST_F(Selection, SelectingEmptiesTheSearchAndAResultListGoesAway)
{
    nav->lista.ibex();
    nav->busqueda.setBuscar("BANCO");
    nav->busqueda.buscar_Return();
    ASSERT_EQ(nav->lista.Titul, "Resultados");
    EXPECT_EQ(datos(), (QList<double>{10, 13})); // the entries carry the codes
    click(1);
    EXPECT_EQ(nav->seleccion.Text1(), "BANCO SABADELL");
    EXPECT_EQ(nav->busqueda.buscar(), "");
    EXPECT_EQ(nav->lista.Titul, "Ibex");
    EXPECT_EQ(datos(), (QList<double>{10, 11, 13})); // the list before the search, refilled
    EXPECT_EQ(calls.first(), "quitar:BANCO");        // the operation marks go before the box is emptied
}

struct LinkCase {
    const char *name;
    const char *text1;
    bool laWEB, bolsa, invertia;
    const char *web;
};

TEST_F(Selection, LinksAreShownByTheirAddresses)
{
    const LinkCase cases[] = {
        {"own site and Invertia", "TELEFONICA", true, true, true, "http://www.telefonica.test"},
        {"no www row, no Invertia id", "REPSOL", false, true, false, ""},
        {"Invertia id, no www row", "BANCO SABADELL", false, true, true, ""},
        // Not found: Codigo_De leaves the identifier of the value before.
        {"portfolio after a value with id", "CARTERA ana", false, true, true, ""},
    };
    for (const LinkCase &c : cases) {
        SCOPED_TRACE(c.name);
        nav->seleccion.setText1(c.text1);
        const EnlacesValor &e = nav->seleccion.enlaces;
        EXPECT_EQ(e.laWEB, c.laWEB);
        EXPECT_EQ(e.BolsaMadrid, c.bolsa);
        EXPECT_EQ(e.Invertia, c.invertia);
        EXPECT_EQ(e.direccionWeb, c.web);
    }
}

TEST_F(Selection, TheLinkLabelsOpenTheirAddresses)
{
    nav->ajustes.hostInvertia = "http://127.0.0.1:8001";
    nav->ajustes.webPrograma = "http://127.0.0.1:8002/";
    nav->ajustes.correoSugerencias = "buzon@localhost";
    nav->seleccion.setText1("TELEFONICA");
    nav->laWEB_Click();
    nav->BolsaMadrid_Click();
    nav->Invertia_Click();
    nav->titular_Click();
    nav->Sugiere_Click();
    EXPECT_EQ(ui.opened, (QStringList{"http://www.telefonica.test", "http://127.0.0.1:9/mercado/?s=TEF",
                                      "http://127.0.0.1:8001/empresas/empresa.asp?idtel=RV011TEF",
                                      "http://127.0.0.1:8002/", "mailto:buzon@localhost"}));
}

TEST(EnlaceDireccion, TakesTheAddressOutOfAHyperlinkField)
{
    const struct {
        const char *campo, *direccion;
    } cases[] = {
        {"www.telefonica.com#http://www.telefonica.com#", "http://www.telefonica.com"},
        {"http://www.plain.com", ""},
        {"#http://a.b#", "http://a.b"},
        {"texto#http://a.b/#x#sub", "http://a.b/xsub"}, // every later # is left out
        {"texto#", ""},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Enlace_Direccion(c.campo), c.direccion) << c.campo;
}

TEST_F(Selection, DroppingTheLastDateOnTheImageAsksAndDeletesThatDay)
{
    ui.answers = {mb::No, mb::Yes};
    const QDate dia(2024, 3, 15);
    nav->seleccion.Image1_DragDrop("Fecha_Fin", dia);
    EXPECT_EQ(cuenta("select count(*) from bolsa where fecha = #03-15-2024#"), 4);
    nav->seleccion.Image1_DragDrop("Fecha_Fin", dia);
    EXPECT_EQ(cuenta("select count(*) from bolsa where fecha = #03-15-2024#"), 0);
    EXPECT_EQ(cuenta("select count(*) from bolsa"), 2);

    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[0].prompt, "¿ Deseas borrar cotizaciones del día 15/03/2024 ?");
    EXPECT_EQ(ui.messages[0].style, 36);
    EXPECT_EQ(ui.messages[0].title, "Atención");
    EXPECT_TRUE(calls.isEmpty()); // nothing is redrawn

    ui.answers = {mb::Yes}; // any other control dropped does nothing
    nav->seleccion.Image1_DragDrop("Fecha_Inicio", QDate(2024, 3, 14));
    EXPECT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(cuenta("select count(*) from bolsa"), 2);
}

TEST(PopupMenus, ARightClickOpensTheMenuOfTheControl)
{
    const struct {
        const char *control;
        int boton;
        MenuEmergente menu;
    } cases[] = {
        {"List1", 2, MenuEmergente::menu_filtro},        {"Titul", 2, MenuEmergente::menu_filtro},
        {"Titulo", 2, MenuEmergente::menu_popup_Accion}, {"List1", 1, MenuEmergente::Ninguno},
        {"Titulo", 1, MenuEmergente::Ninguno},           {"buscar", 2, MenuEmergente::Ninguno},
    };
    for (const auto &c : cases)
        EXPECT_EQ(MenuAlPulsar(c.control, c.boton), c.menu) << c.control << " " << c.boton;
}

} // namespace
