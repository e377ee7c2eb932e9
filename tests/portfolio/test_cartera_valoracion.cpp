#include "cartera_fixture.h"

#include "portfolio/cartera_valoracion.h"

namespace tesorel::testing
{
namespace
{

const QDate kDia(2024, 3, 15);

struct Valoracion : CarteraBase {
    QStringList abiertas;
    cartera11 ventana{s, [this](const QString &v) { abiertas << v; }};

    void SetUp() override
    {
        CarteraBase::SetUp();
        empresa(1, "ALFA");
        empresa(2, "BETA");
        empresa(3, "GAMMA");
        diaActual(kDia);
        s.hoyFijo = kDia;
    }
    const FilaCartera &fila(const QString &abrev) const
    {
        for (const auto &f : ventana.filas)
            if (f.Valor.trimmed() == abrev)
                return f;
        throw std::runtime_error("no row");
    }
    QStringList orden() const
    {
        QStringList r;
        for (const auto &f : ventana.filas)
            r << f.Valor.trimmed();
        return r;
    }
};

TEST_F(Valoracion, APositionValuedInEurosAndPesetas)
{
    posicion(1, 100, 10, 1006, QDate(2024, 3, 1));
    cotizacion(1, kDia, 12, 11.5);
    ventana.Form_Load();
    ASSERT_EQ(ventana.filas.size(), 1u);
    const FilaCartera &f = ventana.filas[0];
    struct Caso {
        const char *celda;
        QString visto, esperado;
    } casos[] = {
        {"ValorActual", f.ValorActual, "  1.200,00 "},
        {"Beneficio", f.Beneficio, "  194,00 "},
        {"CosteInversion", f.CosteInversion, "  1.006,00 "},
        {"Ultimo", f.Ultimo, "  12,00 "},
        {"TantoGanancia", f.TantoGanancia, "20 %"},
        {"TantoCartera", f.TantoCartera, "100 %  "},
        {"Titulos", f.Titulos, "100  "},
        {"FechaCompra", f.FechaCompra, "01-03-2024  "},
        {"Dias", f.Dias, "14  "},
        {"Label1(800)", ventana.Label1_800, "194,00 "},
        {"CarteraLabel(0)", ventana.CarteraLabel[0], "  1.150,00 "},
        {"CarteraDif", ventana.CarteraDif, "  50,00 "},
        {"CarteraTanto", ventana.CarteraTanto, "4,17  "},
        {"Fecha", ventana.Fecha, "15/03/2024"},
    };
    for (const auto &c : casos)
        EXPECT_EQ(c.visto, c.esperado) << c.celda;
    EXPECT_NE(f.TantoGanancia_ForeColor, 0);
    EXPECT_NE(ventana.LabelDif_ForeColor, 0);

    ventana.setMoneda("P");
    EXPECT_TRUE(ventana.pesetas);
    EXPECT_EQ(ventana.filas[0].ValorActual, "  199.663 ");
    EXPECT_EQ(ventana.Label1_1400, "199.663 ");
    ventana.setMoneda("X");
    EXPECT_EQ(ventana.visualizar(1200), "");

    // Days count from the clock, not from the session's date.
    s.hoyFijo = QDate(2025, 3, 1);
    ventana.Form_Load();
    EXPECT_EQ(ventana.filas[0].Dias, "365  ");
}

TEST_F(Valoracion, AValueWithoutAQuoteOnTheDayIsWorthNothing)
{
    posicion(1, 100, 10, 1006, QDate(2024, 3, 1));
    posicion(2, 10, 50, 500, QDate(2024, 3, 1));
    cotizacion(1, kDia, 12);
    cotizacion(2, kDia.addDays(-1), 55); // the day before does not count
    ventana.Form_Load();
    const FilaCartera &b = fila("BETA");
    EXPECT_EQ(b.ValorActual, "  ,00 ");
    EXPECT_EQ(b.TantoGanancia, "-100 %");
    EXPECT_EQ(b.Beneficio, "  -500,00 ");
    EXPECT_EQ(ventana.Label1_1400, "1.200,00 ");
    EXPECT_EQ(ventana.Label1_800, "-306,00 ");
}

TEST_F(Valoracion, SortsByEachKeyInBothDirections)
{
    posicion(1, 10, 10, 100, QDate(2024, 1, 1)); // worth 120, gain 20, +20 %
    posicion(2, 10, 10, 100, QDate(2024, 2, 1)); // worth 50, gain -50, -50 %
    posicion(3, 100, 1, 100, QDate(2023, 1, 1)); // worth 300, gain 200, +200 %
    cotizacion(1, kDia, 12);
    cotizacion(2, kDia, 5);
    cotizacion(3, kDia, 3);
    ventana.Form_Load();
    EXPECT_EQ(orden(), QStringList({"BETA", "ALFA", "GAMMA"})) << "newest purchase first on opening";
    struct Caso {
        int opcion, direccion;
        QStringList esperado;
    } casos[] = {
        {3, 6, {"BETA", "ALFA", "GAMMA"}}, // worst first
        {3, 5, {"GAMMA", "ALFA", "BETA"}}, {2, 6, {"BETA", "ALFA", "GAMMA"}},
        {1, 5, {"GAMMA", "ALFA", "BETA"}}, {4, 6, {"GAMMA", "ALFA", "BETA"}},
    };
    for (const auto &c : casos) {
        ventana.SSOption_Click(c.opcion);
        ventana.SSOption_Click(c.direccion);
        EXPECT_EQ(orden(), c.esperado) << c.opcion << "/" << c.direccion;
    }
}

TEST_F(Valoracion, AnEmptyPortfolioShowsEmptyRowsAndZeroTotals)
{
    posicion(1, 10, 10, 100, QDate(2024, 1, 1));
    cotizacion(1, kDia, 12);
    ventana.Form_Load();
    Query(db, "delete from cartera").exec();
    ventana.rellenar2();
    ASSERT_EQ(ventana.filas.size(), 1u);
    EXPECT_EQ(ventana.filas[0].celdas().join(""), "");
    EXPECT_EQ(ventana.Label1_1300, ",00 ");
    EXPECT_EQ(ventana.Label1_1400, ",00 ");
    EXPECT_EQ(ventana.CarteraDif, "  ,00 ");
}

TEST_F(Valoracion, MoreThanFifteenRowsScroll)
{
    for (int i = 0; i < 17; ++i)
        posicion(1, 1, 1, 1, QDate(2024, 1, 1).addDays(i));
    ventana.Form_Load();
    EXPECT_TRUE(ventana.VScroll1_Enabled);
    EXPECT_EQ(ventana.VScroll1_Max, 2);
    ventana.VScroll1_Change(5);
    EXPECT_EQ(ventana.VScroll1_Value, 2);
}

TEST_F(Valoracion, TheHubOpensItsWindowsAndRebuildsAfterEach)
{
    ventana.Form_Load();
    posicion(1, 10, 10, 100, QDate(2024, 1, 1));
    cotizacion(1, kDia, 12);
    for (int i : {0, 1, 2, 3, 5})
        ventana.Command1_Click(i);
    EXPECT_EQ(abiertas, QStringList({"ModifCartera", "Comprar", "Vender", "Historico", "ImportarOp"}));
    EXPECT_EQ(ventana.filas.size(), 1u) << "rebuilt on return";
    ventana.Command1_Click(4);
    ASSERT_EQ(t.ui.messages.size(), 1u);
    EXPECT_EQ(t.ui.messages[0].prompt, "Disponible en breve");

    struct Caso {
        const char *respuesta;
        int abiertas;
    } claves[] = {{"bancomar", 6}, {"BANCOMAR", 6}, {"", 6}};
    for (const auto &c : claves) {
        t.ui.inputs.push_back(c.respuesta);
        ventana.Importa_Click();
        EXPECT_EQ(abiertas.size(), c.abiertas) << c.respuesta;
    }
    ventana.Valor_DblClick(1);
    EXPECT_EQ(s.Valor_Cartera_Edicion, 1);
    EXPECT_EQ(abiertas.back(), "ModifCartera");
}

} // namespace
} // namespace tesorel::testing
