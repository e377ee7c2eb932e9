#include "booking_fixture.h"
#include "portfolio/panel_lotes.h"
#include "portfolio/vender.h"
#include "store/query.h"

namespace tesorel::testing
{
namespace
{

// Ledger lines of value 10 through broker 5.
struct Libro : SesionDeApuntes {
    void linea(const QDate &dia, double cantidad, double total) { apunte(10, dia, cantidad, total, 5); }
    PanelLotes panel(const VentaEnCurso &venta = {"23/11/26", "", "", ""})
    {
        PanelLotes p;
        Recalcular_Lotes(s, 10, venta, p);
        return p;
    }
};

TEST(PanelLotes, VentaEnCursoPrimeroEnEntrarPrimeroEnSalir)
{
    using Fila = std::array<double, 6>; // compradas, precio, totalCompra, resultado, vendidas, tanto
    struct Caso {
        const char *nombre;
        VentaEnCurso venta;
        std::vector<Fila> filas;
    };
    const Caso casos[] = {
        // no total: nothing is sold, only the lots
        {"sinVenta", {"23/11/26", "150", "20", ""}, {{100, 10, 1000, 0, 0, 0}, {100, 20, 2000, 0, 0, 0}}},
        // the point rule: "1.500" reads as 1.5 and the total "3000,5" as 3000
        {"reglaPunto",
         {"23/11/26", "100", "30", "3000,5"},
         {{100, 10, 1000, 2000, -100, 66.67}, {100, 20, 2000, 0, 0, 0}}},
    };
    for (const Caso &c : casos) {
        Libro f;
        f.linea(QDate(2025, 1, 2), 100, 1000);
        f.linea(QDate(2025, 2, 3), 100, 2000);
        const PanelLotes p = f.panel(c.venta);
        std::vector<Fila> vistas;
        for (const auto &l : p.lotes)
            vistas.push_back({l.compradas, l.precio, l.totalCompra, l.resultado, l.vendidas, l.tanto});
        EXPECT_EQ(vistas, c.filas) << c.nombre;
        EXPECT_EQ(p.celdas[0].FechaCompra, "02/01/2025") << c.nombre;
        EXPECT_EQ(p.celdas[1].Tanto, "0%") << c.nombre;
        EXPECT_TRUE(p.celdas[2].CantidadCompra.isEmpty()) << c.nombre;
        EXPECT_TRUE(p.celdas[5].FechaCompra.isEmpty()) << c.nombre;
        EXPECT_EQ(p.total.compradas, 200) << c.nombre;
        EXPECT_EQ(p.total.precio, 15) << c.nombre;
    }
}

TEST(PanelLotes, CincoLotesComoMucho)
{
    Libro f;
    for (int i = 1; i <= 7; ++i)
        f.linea(QDate(2025, 1, i), 10 * i, 100 * i);
    const PanelLotes p = f.panel();
    ASSERT_EQ(p.lotes.size(), 5u);
    EXPECT_EQ(p.lotes[4].compradas, 50);
    EXPECT_EQ(p.total.compradas, 280); // all seven lots
    EXPECT_EQ(p.celdas[5].CantidadCompra, "280");
}

TEST(PanelLotes, DesbordamientosInformadosSinCaerse)
{
    struct Caso {
        const char *nombre;
        int lineas;
        double cantidad;
        const char *venta;
        const char *error;
    };
    const Caso casos[] = {
        {"lineaDeMasDe16Bits", 1, 40000, "", "6"},
        {"lote1001", 1001, 1, "", "9"},
    };
    for (const Caso &c : casos) {
        Libro f;
        {
            Transaction t(*f.s.Base_Datos);
            for (int i = 0; i < c.lineas; ++i)
                f.linea(QDate(2025, 1, 1).addDays(i), c.cantidad, 10 * c.cantidad);
            t.commit();
        }
        Vender v(f.s, {[] { return QStringLiteral("TELEFONICA SA"); }, {}});
        v.Form_Load();
        v.setPrecio("1");
        v.setCantidad(c.venta); // the total follows and the panel is recalculated
        v.Mostrar_Click();
        ASSERT_FALSE(f.errores.isEmpty()) << c.nombre;
        EXPECT_EQ(f.errores.last(), c.error) << c.nombre;
    }
}

} // namespace
} // namespace tesorel::testing
