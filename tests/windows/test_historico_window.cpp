#include "windows/test_principal_support.h"

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

using HistoricoVentana = VentanaDemo;

QString celda(QTableWidget *t, int fila, int columna)
{
    return t->item(fila, columna) ? t->item(fila, columna)->text() : QString();
}

TEST_F(HistoricoVentana, SortsEditsALineAndDeletesAnother)
{
    int filas = 0;
    QString primeraPorValor, descripcion;
    Guion guion;
    guion.luego("Historico", [&](QWidget *w) {
        auto *rejilla = hijo<QTableWidget>(w, "Rejilla");
        filas = rejilla->rowCount();
        hijo<QRadioButton>(w, "Option1_1")->click();
        primeraPorValor = celda(rejilla, 0, 5);
        capturar(w, "historico");
        hijo<QPushButton>(w, "Editar_1")->click();
    });
    guion.luego("ModifHistorico", [&](QWidget *w) {
        auto *cantidad = hijo<QLineEdit>(w, "Cantidad");
        cantidad->setText("250");
        descripcion = hijo<QLineEdit>(w, "Descripcion")->text();
        capturar(w, "modif_historico");
        hijo<QPushButton>(w, "Aceptar")->click();
    });
    guion.luego("Historico", [&](QWidget *w) {
        ui.answers = {mb::Yes};
        hijo<QPushButton>(w, "Borrar_2")->click();
        EXPECT_EQ(hijo<QTableWidget>(w, "Rejilla")->rowCount(), filas - 1);
        static_cast<QDialog *>(w)->reject();
    });
    // After the editor closes the ledger window is on top again.
    comandos.ejecutar("Historico");
    EXPECT_TRUE(guion.terminado()) << guion.vistas.join(",").toStdString();
    EXPECT_GT(filas, 2);
    EXPECT_FALSE(primeraPorValor.isEmpty());
    EXPECT_TRUE(descripcion.contains(": Compra de 250 ")) << descripcion.toStdString();
    EXPECT_EQ(consulta(*s, "select count(*) from historico where Cantidad = 250").toInt(), 1);
}

TEST_F(HistoricoVentana, ADoubleClickOnTheTabsOpensTheLedger)
{
    Guion guion;
    guion.luego("Historico", [](QWidget *w) { static_cast<QDialog *>(w)->reject(); });
    emit hijo<QTabBar>(ventana.get(), "Pestañas")->tabBarDoubleClicked(0);
    EXPECT_TRUE(guion.terminado()) << guion.vistas.join(",").toStdString();
}

} // namespace
