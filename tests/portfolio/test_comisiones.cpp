#include "booking_fixture.h"
#include "portfolio/comisiones.h"

namespace tesorel::testing
{
namespace
{

struct CasoComision {
    const char *nombre;
    double operador;
    const char *importe;
    double total;
    std::vector<const char *> importes; // lines 1..4 as shown, trimmed
};

class Comisiones : public ::testing::TestWithParam<CasoComision>
{
};

TEST_P(Comisiones, BandasQueSumanYEnlaces)
{
    SesionDeApuntes f;
    const CasoComision &c = GetParam();
    LineasComision l;
    const double total = Cargar_comisiones(f.s, c.operador, c.importe, l, EstiloComision::compra());
    EXPECT_DOUBLE_EQ(total, c.total);
    for (int i = 1; i <= 4; ++i) {
        const QString esperado = size_t(i) <= c.importes.size() ? c.importes[size_t(i - 1)] : "";
        EXPECT_EQ(l.Importe[size_t(i)].trimmed(), esperado) << "line " << i;
    }
    EXPECT_TRUE(f.errores.isEmpty()) << f.errores.join(',').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Casos, Comisiones,
                         ::testing::Values(
                             // the minimum, both limits inclusive, nothing past the last band
                             CasoComision{"minimo", 1, "100", 6, {"6,00"}},
                             CasoComision{"limiteSuperiorAlMinimo", 1, "1000", 8, {"6,00", "2,00"}},
                             CasoComision{"fueraDeBanda", 1, "1000,01", 2, {"2,00"}},
                             CasoComision{"tramoAlto", 1, "2500,5", 5, {"5,00"}},
                             CasoComision{"ningunaBanda", 1, "6000", 0, {}},
                             CasoComision{"sinOperador", 0, "100", 0, {}},
                             // the link row shows nothing and draws in the other broker's bands
                             CasoComision{"enlaceUnPaso", 2, "2000", 4.5, {"2,00", "2,50"}},
                             // above, the link of "Canon" to "Uno" (whose upper band covers
                             // 2000) was not followed; from "Canon" itself it is one step
                             CasoComision{"enlaceDeOtroOperador", 3, "100", 8.5, {"6,00", "2,50"}},
                             // the total is summed from the two-decimal amounts shown
                             CasoComision{"sumaDeRedondeos", 2, "10005", 12.51, {"10,01", "2,50"}}),
                         [](const auto &info) { return std::string(info.param.nombre); });

TEST(ComisionesVentana, QuintaBandaSinLineaNiCargoYSusFallosInformados)
{
    SesionDeApuntes f;
    LineasComision l;
    EXPECT_DOUBLE_EQ(Cargar_comisiones(f.s, 4, "100", l, EstiloComision::compra()), 1 + 2 + 3 + 4);
    EXPECT_EQ(l.totalcomision[4].trimmed(), "10,00");
    // Concepto, porciento, Min, Importe, the sum and totalcomision of line 5
    EXPECT_EQ(f.errores, QStringList({"340", "340", "340", "340", "340", "340"}));

    SesionDeApuntes g;
    EXPECT_DOUBLE_EQ(Cargar_comisiones(g.s, 4, "100", l, EstiloComision::venta()), 10);
    EXPECT_TRUE(g.errores.isEmpty());
}

TEST(ComisionesVentana, CeldasDeCompraYDeVenta)
{
    SesionDeApuntes f;
    LineasComision l;
    Cargar_comisiones(f.s, 1, "1000", l, EstiloComision::compra());
    EXPECT_EQ(l.Concepto[1], "Corretaje  ");
    EXPECT_EQ(l.porciento[1], "0,350 %");
    EXPECT_EQ(l.Min[1], "6,000  ");
    EXPECT_EQ(l.Importe[1], "6,00  ");
    EXPECT_EQ(l.totalcomision[2], "8,00  ");

    // The sell window shows the stored texts and leaves line 4 standing.
    Cargar_comisiones(f.s, 4, "100", l, EstiloComision::venta());
    Cargar_comisiones(f.s, 1, "1000", l, EstiloComision::venta());
    EXPECT_EQ(l.porciento[1], "0,35   %");
    EXPECT_EQ(l.Min[1], "6    ");
    EXPECT_EQ(l.totalcomision[2], "8, ");
    EXPECT_TRUE(l.Importe[3].isEmpty());
    EXPECT_EQ(l.Importe[4].trimmed(), "4,00");
}

TEST(ComisionesVentana, ImporteQueNoEsNumeroYNombreConApostrofo)
{
    SesionDeApuntes f;
    LineasComision l;
    EXPECT_DOUBLE_EQ(Cargar_comisiones(f.s, 1, "", l, EstiloComision::compra()), 0);
    EXPECT_EQ(f.errores.size(), 1);
    EXPECT_TRUE(l.Importe[1].isEmpty());

    f.errores.clear();
    EXPECT_THROW(codigoOperador(f.s, "O'Brien"), RuntimeError);
    f.banda(1, "D'Or", 0, 0, 0, 1e9); // a band name with an apostrophe breaks the link search
    EXPECT_DOUBLE_EQ(Cargar_comisiones(f.s, 1, "100", l, EstiloComision::compra()), 6);
    EXPECT_EQ(f.errores.size(), 1);
}

} // namespace
} // namespace tesorel::testing
