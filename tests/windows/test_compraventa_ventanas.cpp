#include "windows/test_principal_support.h"

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

using CompraVentaVentanas = VentanaDemo;

TEST_F(CompraVentaVentanas, CompraYVentaConLosControles)
{
    elegir("TELEFONICA");
    s->hoyFijo = QDate(2026, 11, 23);
    QString total;
    Guion guion;
    guion.luego("Comprar", [&](QWidget *w) {
        EXPECT_EQ(hijo<EnlaceWidget>(w, "Combo1")->Text(), "TELEFONICA");
        elegirEnCombo(w, "Combo2", "Bankinter");
        escribir(hijo<QLineEdit>(w, "Precio"), "4,5");
        escribir(hijo<QLineEdit>(w, "Cantidad"), "100");
        total = hijo<QLineEdit>(w, "Total")->text();
        EXPECT_EQ(hijo<QLabel>(w, "Importe_2")->text().trimmed(), "2,50");
        capturar(w, "comprar");
        hijo<QPushButton>(w, "Aceptar")->click();
    });
    guion.luego("Vender", [&](QWidget *w) {
        hijo<QToolButton>(hijo<EnlaceWidget>(w, "Combo1"), "Flecha")->click(); // offers the whole position
        EXPECT_EQ(hijo<QLineEdit>(w, "Cantidad")->text(), "1100");
        elegirEnCombo(w, "Combo2", "Bankinter");
        auto *cantidad = hijo<QLineEdit>(w, "Cantidad");
        cantidad->clear();
        escribir(cantidad, "600");
        escribir(hijo<QLineEdit>(w, "Precio"), "5");
        hijo<QPushButton>(w, "Mostrar")->click();
        EXPECT_TRUE(hijo<QWidget>(w, "PanelLotes")->isVisible());
        capturar(w, "vender_lotes");
        hijo<QPushButton>(w, "Label3")->click();
    });
    comandos.ejecutar("boton_Comprar");
    comandos.ejecutar("boton_Vender");
    EXPECT_TRUE(guion.terminado()) << guion.vistas.join(",").toStdString();
    EXPECT_EQ(total, "408,5"); // the quantity typed last reads "4,5" as 4: 400, then 6 and 2.50
    EXPECT_EQ(consulta(*s, "select Cantidad from cartera where valor = 108").toDouble(), 500);
    EXPECT_EQ(consulta(*s, "select Total_operacion from historico where operacionNum = 4 and valor = 108")
                  .toDouble(),
              -2991.5);
}

} // namespace
