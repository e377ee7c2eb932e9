#include "booking_fixture.h"
#include "portfolio/operadores_form.h"

namespace tesorel::testing
{
namespace
{

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
