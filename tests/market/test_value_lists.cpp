#include "market_fixture.h"

#include "store/recordset.h"

using namespace tesorel;
using tesorel::testing::MarketTest;

namespace
{

using Lista = ListaValores;

struct ListCase {
    void (Lista::*proc)();
    const char *titul;
    bool MarcasLista::*mark;
    QStringList textos;
    QList<double> datos;
};

const ListCase listCases[] = {
    {&Lista::todos,
     "Todos",
     &MarcasLista::menu_todos,
     {"REPSOL  (REP)", "SANTANDER  (SAN)", "TELEFONICA  (TEF)"},
     {12, 10, 11}},
    {&Lista::ibex,
     "Ibex",
     &MarcasLista::menu_ibex,
     {"SANTANDER  (SAN)", "TELEFONICA  (TEF)", "SABADELL  (SAB)"}, // a member without a quote today too
     {10, 11, 13}},
    {&Lista::faboritos,
     "En Seguimiento",
     &MarcasLista::menu_seguimiento,
     {"SANTANDER  (4,5)"}, // 13 has no quote today; the portfolio series 34001 is filtered out
     {10}},
    {&Lista::Cartera,
     "En Cartera",
     &MarcasLista::menu_ENcartera,
     {"TELEFONICA  (250)", "REPSOL  (100)", "CARTERA"},
     {11, 12, 34001}},
    {&Lista::LosqueSuben,
     "Los que más suben",
     &MarcasLista::menu_massuben,
     {"REPSOL  (6)", "SANTANDER  (2)", "TELEFONICA  (-1)"}, // the change through "##,##"
     {12, 10, 11}},
};

TEST_F(MarketTest, EachListHasItsTitleMarkAndEntries)
{
    for (const ListCase &c : listCases) {
        SCOPED_TRACE(c.titul);
        nav->lista.marcas = {true, true, true, true, true};
        nav->lista.List1.ListIndex = 1;
        (nav->lista.*c.proc)();
        EXPECT_EQ(nav->lista.Titul, c.titul);
        const MarcasLista &m = nav->lista.marcas;
        const int checked =
            m.menu_todos + m.menu_massuben + m.menu_ibex + m.menu_ENcartera + m.menu_seguimiento;
        EXPECT_EQ(checked, 1);
        EXPECT_TRUE(m.*c.mark);
        EXPECT_EQ(textos(), c.textos);
        EXPECT_EQ(datos(), c.datos);
        EXPECT_EQ(nav->lista.List1.ListIndex, -1);
    }
}

TEST_F(MarketTest, AnEmptyPortfolioStillShowsItsSeries)
{
    s.Usuario_Numero = 2;
    nav->lista.Cartera();
    EXPECT_EQ(textos(), QStringList{"CARTERA"});
    EXPECT_EQ(datos(), QList<double>{34002});
}

TEST_F(MarketTest, LlenarListaRepeatsTheLastStatementAndRecoversFromAFailedOne)
{
    // A failure with no recordset before leaves the list empty.
    nav->lista.List1.AddItem("viejo");
    nav->lista.Llenar_lista("select * from no_existe", "MAL");
    EXPECT_TRUE(textos().isEmpty());

    // A failure after a list refills it from the recordset before, silently.
    nav->lista.ibex();
    const QStringList ibex = textos();
    nav->lista.Llenar_lista("select valor, nombre from codigo_empresas where nombre = 'O'NEIL'", "MAL");
    EXPECT_EQ(textos(), ibex);
    EXPECT_TRUE(ui.messages.empty());

    // No tag: nothing happens; no statement: the last one again.
    nav->lista.todos();
    const QStringList todos = textos();
    const QString sql = nav->lista.Sql_Lista;
    nav->lista.Llenar_lista("select valor, ultimo from bolsa_de_un_dia", "");
    EXPECT_EQ(textos(), todos);
    EXPECT_EQ(nav->lista.Sql_Lista, sql);
    nav->lista.List1.Clear();
    nav->lista.Llenar_lista("", "OTRA VEZ");
    EXPECT_EQ(textos(), todos);
    EXPECT_EQ(nav->lista.Sql_Lista, sql);
}

TEST_F(MarketTest, TheComboPicksTheList)
{
    const struct {
        int index;
        const char *titul;
    } cases[] = {{0, "Todos"}, {1, "Ibex"}, {2, "En Cartera"}, {3, "En Seguimiento"}};
    for (const auto &c : cases) {
        nav->lista.setValores(c.index);
        EXPECT_EQ(nav->lista.Titul, c.titul) << c.index;
    }
    nav->lista.setValores(-1); // no choice: the list stays
    EXPECT_EQ(nav->lista.Titul, "En Seguimiento");
}

struct RingCase {
    void (Lista::*start)();
    const char *from, *next, *previous;
};

TEST_F(MarketTest, CategoriesGoRoundARingBothWays)
{
    const RingCase cases[] = {
        {&Lista::Cartera, "En Cartera", "Todos", "En Seguimiento"},
        {&Lista::faboritos, "En Seguimiento", "En Cartera", "Ibex"},
        {&Lista::ibex, "Ibex", "En Seguimiento", "Los que más suben"},
        {&Lista::LosqueSuben, "Los que más suben", "Ibex", "Todos"},
        {&Lista::todos, "Todos", "Los que más suben", "En Cartera"},
    };
    for (const RingCase &c : cases) {
        SCOPED_TRACE(c.from);
        (nav->lista.*c.start)();
        nav->lista.SiguienteCategoria();
        EXPECT_EQ(nav->lista.Titul, c.next);
        (nav->lista.*c.start)();
        nav->lista.AnteriorCategoria();
        EXPECT_EQ(nav->lista.Titul, c.previous);
    }
    // With no list checked the ring stays put.
    nav->lista.List1.Clear();
    nav->lista.marcas = {};
    nav->lista.Titul = "nada";
    nav->lista.SiguienteCategoria();
    nav->lista.AnteriorCategoria();
    EXPECT_EQ(nav->lista.Titul, "nada");
    EXPECT_TRUE(textos().isEmpty());
}

// A search result is replaced by its list on a selection (Selection.SelectingEmptiesTheSearch...).
TEST_F(MarketTest, MismaCategoriaLeavesAListThatIsNoSearchResult)
{
    nav->lista.ibex();
    nav->lista.List1.AddItem("añadido");
    nav->lista.MismaCategoria();
    EXPECT_EQ(textos().size(), 4);
}

class Categories : public MarketTest
{
  protected:
    void SetUp() override
    {
        MarketTest::SetUp();
        base.db->executeNative(QStringLiteral(
            "insert into nombrecategorias values (0, 'Bancos'), (0, '   '), (0, 'Energía'), (1, 'Mías'),"
            " (1, 'O''Neil');"
            "insert into categoriastodo values (0, 'Bancos', 10), (0, 'Bancos', 13), (0, 'Energía', 12),"
            " (0, 'Energía', 34001), (1, 'Mías', 11);"));
    }
};

TEST_F(Categories, TheLastCategoryStaysAndTitleMarksAndRingDoNotMove)
{
    nav->lista.ibex();
    nav->lista.menu_categorias_Globales_Click();
    EXPECT_EQ(textos(), QStringList{"REPSOL  (Energía)"});
    EXPECT_EQ(nav->lista.Titul, "Ibex");
    EXPECT_TRUE(nav->lista.marcas.menu_ibex);

    // The ring goes on from the last named list.
    nav->lista.SiguienteCategoria();
    EXPECT_EQ(nav->lista.Titul, "En Seguimiento");

    // The personal ones: the apostrophe in the last name leaves the one before on show.
    nav->lista.todos();
    nav->lista.menu_categorias_personales_Click();
    EXPECT_EQ(textos(), QStringList{"TELEFONICA  (Mías)"});
    EXPECT_EQ(nav->lista.Titul, "Todos");
    EXPECT_TRUE(nav->lista.marcas.menu_todos);

    s.Usuario_Numero = 7; // no categories: the list stays
    nav->lista.menu_categorias_personales_Click();
    EXPECT_EQ(textos(), QStringList{"TELEFONICA  (Mías)"});
}

TEST_F(MarketTest, QualquierValorDrawsFromTheDaysValues)
{
    // By name: BANCO SANTANDER, REPSOL, TELEFONICA.
    const struct {
        double draw, expected;
    } cases[] = {{0.0, 10}, {0.4, 12}, {0.99, 11}};
    for (const auto &c : cases) {
        nav->lista.aleatorio = [&] { return c.draw; };
        double valor = -1;
        nav->lista.qualquier_valor(valor);
        EXPECT_EQ(valor, c.expected) << c.draw;
    }
}

TEST_F(MarketTest, ADayWithoutQuotesEmptiesTodosButNotIbexAndDrawsNothing)
{
    base.db->execute("update usuario_actual set fecha_actual = #01-02-2024#");
    nav->lista.todos();
    EXPECT_TRUE(textos().isEmpty());
    nav->lista.ibex();
    EXPECT_EQ(textos().size(), 3);
    double valor = 42;
    nav->lista.qualquier_valor(valor);
    EXPECT_EQ(valor, 42);
}

} // namespace
