#include "booking_fixture.h"
#include "portfolio/comisiones.h"

namespace tesorel::testing
{
namespace
{

TEST(Comisiones, BandasQueSumanYEnlaces)
{
    struct Caso {
        const char *nombre;
        double operador;
        const char *importe;
        double total;
        std::vector<const char *> importes; // lines 1..4 as shown, trimmed
    };
    const Caso casos[] = {
        // the minimum, both limits inclusive, nothing past the last band
        {"minimo", 1, "100", 6, {"6,00"}},
        {"limiteSuperiorAlMinimo", 1, "1000", 8, {"6,00", "2,00"}},
        {"fueraDeBanda", 1, "1000,01", 2, {"2,00"}},
        {"ningunaBanda", 1, "6000", 0, {}},
        {"sinOperador", 0, "100", 0, {}},
        // the link row shows nothing and draws in the other broker's bands
        {"enlaceUnPaso", 2, "2000", 4.5, {"2,00", "2,50"}},
        // above, the link of "Canon" to "Uno" (whose upper band covers
        // 2000) was not followed; from "Canon" itself it is one step
        {"enlaceDeOtroOperador", 3, "100", 8.5, {"6,00", "2,50"}},
        // the total is summed from the two-decimal amounts shown
        {"sumaDeRedondeos", 2, "10005", 12.51, {"10,01", "2,50"}},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nombre);
        SesionDeApuntes f;
        LineasComision l;
        EXPECT_DOUBLE_EQ(Cargar_comisiones(f.s, c.operador, c.importe, l, EstiloComision::compra()), c.total);
        for (int i = 1; i <= 4; ++i) {
            const QString esperado = size_t(i) <= c.importes.size() ? c.importes[size_t(i - 1)] : "";
            EXPECT_EQ(l.Importe[size_t(i)].trimmed(), esperado) << "line " << i;
        }
        EXPECT_TRUE(f.errores.isEmpty()) << f.errores.join(',').toStdString();
    }
}

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
