#include "price_chart_fixture.h"

#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

void operacion(ChartFixture &f, double valor, int num, const QString &fecha, double precio, double cantidad,
               double total, const QString &texto)
{
    f.base.db->executeNative(QStringLiteral("INSERT INTO historico VALUES (1,%1,%2,%3,'%4',1,%5,'%6',%7)")
                                 .arg(cantidad)
                                 .arg(valor)
                                 .arg(num)
                                 .arg(texto)
                                 .arg(precio)
                                 .arg(fecha)
                                 .arg(total));
}

TEST(ChartOperations, PolesOfAPurchaseAndASale)
{
    ChartFixture f;
    f.serie(7, 10); // lows 9.5, highs 19.5: R = 10, a text line 11.8 / 20 high
    operacion(f, 7, 2, "2024-01-03", 12, 100, 1200, "compra");
    operacion(f, 7, 4, "2024-01-06", 15, -100, -1500, "venta");
    operacion(f, 7, 4, "2025-01-06", 15, -10, -150, "venta tarde");
    operacion(f, 7, 2, "2025-01-07", 15, 10, 150, "compra tarde");
    f.ops.MostrarOperaciones = 1;
    f.g.DibujarGrafica();
    ASSERT_EQ(f.ops.NumeroPalos, 4);
    const double h = double(std::fabs(f.p1.scaleHeight() / 20.0f)), w = 80;
    ASSERT_NEAR(h, 0.59, 1e-6);

    // A purchase's pole rises from its price, a sale's falls to it; after the last quote x is 0 and
    // the sale's label shows, the purchase's hides.
    struct Palo {
        double x, precio;
        const char *caption;
        bool venta, visible;
        const char *tip;
    } palos[] = {
        {300, 12, " C 100 ", false, true, "compra"}, // third of ten points
        {600, 15, " V 100 ", true, true, "venta"},
        {0, 15, " V 10 ", true, true, "venta tarde"},
        {0, 15, " C 10 ", false, false, "compra tarde"},
    };
    for (int n = 1; n <= 4; ++n) {
        const Palo &p = palos[n - 1];
        SCOPED_TRACE(p.tip);
        const LineaGrafica &l = f.ops.PaloCompra.at(n);
        EXPECT_EQ(l.x1, p.x);
        EXPECT_EQ(l.x2, p.x);
        EXPECT_DOUBLE_EQ(l.y1, p.precio + (p.venta ? 0 : 3 * h));
        EXPECT_DOUBLE_EQ(l.y2, p.precio - (p.venta ? 3 * h : 0));
        const EtiquetaGrafica &e = f.ops.Compra.at(n);
        EXPECT_EQ(e.caption, QString::fromUtf8(p.caption));
        EXPECT_DOUBLE_EQ(e.left, p.x - w / 2);
        EXPECT_DOUBLE_EQ(e.top, p.precio + (p.venta ? -3 * h : 4 * h));
        EXPECT_EQ(e.visible, p.visible);
        EXPECT_EQ(e.fondo, p.venta ? OperacionesGrafica::kFondoVenta : -1);
        EXPECT_EQ(e.toolTip, QString::fromUtf8(p.tip));
    }

    // A click raises a label by making it anew, without its pole or tooltip.
    f.ops.Compra_Click(1);
    EXPECT_EQ(f.ops.NumeroPalos, 5);
    EXPECT_FALSE(f.ops.Compra.count(1));
    EXPECT_EQ(f.ops.Compra.at(5).caption, QStringLiteral(" C 100 "));
    EXPECT_TRUE(f.ops.Compra.at(5).toolTip.isEmpty());
    EXPECT_GT(f.ops.Compra.at(5).orden, f.ops.Compra.at(4).orden);
    f.ops.MostrarOperaciones = 0;
    f.ops.MostrarOperaciones_Click();
    EXPECT_TRUE(f.ops.PaloCompra.empty());
    EXPECT_TRUE(f.ops.Compra.empty());
}

TEST(ChartOperations, TabTextClosingLine)
{
    struct Caso {
        std::vector<std::tuple<int, double, double>> ops; // kind, shares, total
        QString cierre;
    } casos[] = {
        {{{2, 100, 1200}, {4, -100, -1500}}, QStringLiteral("Beneficio :  300      49916 Ptas")},
        {{{2, 100, 1200}, {4, -40, -600}}, QStringLiteral("Quedan  60 compradas por  600")},
    };
    for (const Caso &c : casos) {
        ChartFixture f;
        int dia = 1;
        for (auto [k, q, t] : c.ops) {
            const QString fecha = QStringLiteral("2024-01-0%1").arg(dia);
            ++dia;
            operacion(f, 7, k, fecha, 10, q, t, QStringLiteral("op%1").arg(dia));
        }
        f.ops.VerOperaciones(7);
        EXPECT_EQ(f.ops.Operaciones, QStringLiteral("op2\r\nop3\r\n\r\n") + c.cierre)
            << f.ops.Operaciones.toStdString();
        EXPECT_TRUE(f.ops.CompraVenVisible);
        EXPECT_TRUE(f.ops.MostrarOperacionesVisible);
    }
    ChartFixture vacio;
    vacio.ops.VerOperaciones(8);
    EXPECT_TRUE(vacio.ops.Operaciones.isEmpty());
    EXPECT_FALSE(vacio.ops.CompraVenVisible);
    EXPECT_FALSE(vacio.ops.MostrarOperacionesVisible);
}

TEST(ChartOperations, PortfolioPolesStandOnItsOwnLine)
{
    ChartFixture f;
    f.serie(34001, 10);
    operacion(f, 7, 2, "2024-01-05", 99, 100, 1200, "compra");
    f.g.controles.Text1 = QStringLiteral("CARTERA");
    f.ops.MostrarOperaciones = 1;
    f.g.DibujarGrafica();
    ASSERT_EQ(f.ops.NumeroPalos, 1);
    // Point 5 of 10 at x 500: the portfolio's close there is 14.
    EXPECT_EQ(f.ops.PaloCompra.at(1).x1, 500);
    EXPECT_EQ(f.ops.PaloCompra.at(1).y2, 14);
    EXPECT_EQ(f.ops.Compra.at(1).caption, QStringLiteral(" C 100 ACME SA "));
}

} // namespace
} // namespace tesorel::testing
