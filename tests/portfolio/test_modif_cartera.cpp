#include "booking_fixture.h"

#include "portfolio/modif_cartera.h"

namespace tesorel::testing
{
namespace
{

struct Editor : CarteraBase {
    int cierres = 0;
    ModifCartera editor{s, [this] { ++cierres; }};
    void SetUp() override
    {
        empresa(1, "ALFA");
        empresa(2, "BETA");
        posicion(1, 100, 10, 1006, QDate(2024, 3, 1));
        posicion(2, 5, 20, 101, QDate(2024, 3, 2));
        apunte(2, QDate(2024, 3, 2), 5, 101);
        s.Valor_Cartera_Edicion = 2;
    }
};

TEST_F(Editor, OpensOnThePositionBrowsesAndSaves)
{
    editor.Form_Load();
    EXPECT_EQ(editor.Valor, "BETA");
    EXPECT_EQ(editor.Cantidad, "5");
    EXPECT_EQ(editor.FechaCompra, "02/03/2024");
    editor.Label5_Click();
    EXPECT_EQ(editor.Valor, "ALFA");
    editor.Label5_Click(); // before the first: zeros
    EXPECT_EQ(editor.Cantidad, "0");
    editor.Label4_Click();
    editor.Label4_Click();
    editor.Cantidad = "7";
    editor.PrecioCompra = "19,5";
    editor.FechaCompra = "05/03/2024";
    editor.Aceptar_Click();
    EXPECT_EQ(cierres, 1);
    EXPECT_EQ(numero("select Cantidad from cartera where valor = 2"), 7);
    EXPECT_EQ(numero("select Precio_Compra from cartera where valor = 2"), 19.5);
    EXPECT_EQ(numero("select count(*) from cartera where valor = 2 and Fecha_Compra = '2024-03-05'"), 1);
    EXPECT_EQ(numero("select Cantidad from historico where valor = 2"), 5) << "the ledger is not touched";
}

TEST_F(Editor, DeletesOnlyWhenConfirmed)
{
    editor.Form_Load();
    struct Caso {
        int respuesta;
        double quedan;
    } casos[] = {{mb::No, 2}, {mb::Yes, 1}};
    for (const auto &c : casos) {
        ui.answers.push_back(c.respuesta);
        editor.Eliminar_Click();
        EXPECT_EQ(numero("select count(*) from cartera"), c.quedan);
    }
    EXPECT_EQ(ui.messages[0].prompt, "¿Desea Eliminar BETA de su Cartera?");
    EXPECT_EQ(numero("select count(*) from historico"), 1);
}

} // namespace
} // namespace tesorel::testing
