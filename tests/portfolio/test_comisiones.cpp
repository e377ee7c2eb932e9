#include "booking_fixture.h"
#include "portfolio/comisiones.h"
#include "portfolio/operadores_form.h"

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

// The brokers' editor: the list, the grid of bands, saving and leaving.
TEST(OperadoresForm, CargaYGrabacionDeBandas)
{
    SesionDeApuntes f;
    operadoresform o(f.s);
    o.Form_Load();
    EXPECT_EQ(o.List1, QStringList({"Canon", "Cinco", "Enlazado", "Fijo", "Uno"}));
    o.List1_Click(4); // "Uno"
    EXPECT_EQ(o.celdas[1][operadoresform::NOMBRE], "Corretaje");
    EXPECT_EQ(o.celdas[1][operadoresform::Hasta], "1.000,00");
    EXPECT_EQ(o.celdas[2][operadoresform::Tanto], "0,20");
    EXPECT_TRUE(o.celdas[3][operadoresform::NOMBRE].isEmpty());

    struct Fila {
        const char *nombre, *tanto, *minimo, *desde, *hasta;
    };
    // a kept row, a row of a range only (lost), a row without a name (" "),
    // a row without an upper limit (0); Borrar empties row 2
    const Fila filas[] = {{"Nueva", "0,5", "3", "0", "2.000,5"},
                          {"", "", "", "10", "20"},
                          {"", "1", "", "", "9"},
                          {"Sin tope", "0,1", "", "", ""}};
    for (int i = 0; i < 4; ++i) {
        const Fila &r = filas[i];
        const char *textos[] = {r.nombre, r.tanto, r.minimo, r.desde, r.hasta};
        for (int c = 0; c < operadoresform::kColumnas; ++c)
            o.Celda_Change(c, i + 1, textos[c]);
    }
    o.Borrar_Click(5);
    EXPECT_EQ(o.cambiado, -1);
    o.Label3_Click();
    EXPECT_EQ(o.cambiado, 0);
    EXPECT_EQ(f.numero("select count(*) from comisiones where entidad = 1"), 3);
    EXPECT_EQ(f.numero("select Hasta from comisiones where nombre = 'Nueva'"), 2000.5);
    EXPECT_EQ(f.numero("select Tanto from comisiones where nombre = 'Nueva'"), 0.5);
    EXPECT_EQ(f.numero("select count(*) from comisiones where nombre = ' ' and Tanto = 1"), 1);
    EXPECT_EQ(f.numero("select Hasta from comisiones where nombre = 'Sin tope'"), 0);
    EXPECT_TRUE(f.errores.isEmpty());
}

TEST(OperadoresForm, CambiosSinGuardarAlCambiarDeOperador)
{
    for (int respuesta : {mb::Yes, mb::No}) {
        SesionDeApuntes f;
        operadoresform o(f.s);
        o.Form_Load();
        o.List1_Click(3); // "Fijo"
        o.Celda_Change(operadoresform::minimo, 1, "7");
        f.ui.answers.push_back(respuesta);
        o.List1_Click(4);
        ASSERT_EQ(f.ui.messages.size(), 1u);
        EXPECT_EQ(f.ui.messages[0].prompt, "¿Desea guardar los cambios?");
        EXPECT_EQ(f.numero("select minimo from comisiones where entidad = 5"), respuesta == mb::Yes ? 7 : 6);
    }
}

TEST(OperadoresForm, AltaYBajaDeOperadores)
{
    SesionDeApuntes f;
    operadoresform o(f.s);
    o.Form_Load();
    o.Text1 = "fijo";
    o.Text1_KeyPress(13);
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].prompt, "Ya existe un operador con ese nombre");
    o.Text1 = "Alfa";
    o.Text1_KeyPress(13);
    EXPECT_TRUE(o.Text1.isEmpty());
    EXPECT_EQ(o.List1.first(), "Alfa");

    o.List1_Click(4); // "Fijo"
    f.ui.answers.push_back(mb::Yes);
    o.menu_borrar_operador_Click();
    EXPECT_EQ(f.ui.messages.back().prompt, "Borrar Fijo");
    EXPECT_EQ(f.numero("select count(*) from operadores where nombre = 'Fijo'"), 0);
    EXPECT_EQ(f.numero("select count(*) from comisiones where entidad = 5"), 0);
    EXPECT_EQ(o.List1.size(), 5);

    o.Text1 = "D'Or"; // the criteria break, as they always have
    o.Text1_KeyPress(13);
    EXPECT_EQ(f.errores.size(), 1);
    EXPECT_EQ(o.List1.size(), 5);
}

} // namespace
} // namespace tesorel::testing
