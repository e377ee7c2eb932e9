// The statements window waits for "Confirmar" on the event loop: a cell
// typed during the wait is what gets booked.
#include "test_principal_support.h"

#include "windows/importar_op_dialog.h"

namespace tesorel::testing
{
namespace
{

TEST(VentanaImportarOp, CeldaEditadaEnLaEsperaSeApunta)
{
    app();
    SesionDePrueba sp;
    sp.s.Usuario_Numero = 1;
    Query(*sp.s.Base_Datos,
          "insert into Codigo_Empresas (Codigo, NOMBRE, ABREVIATURA11) values (1, 'T', 'TELEF')")
        .exec();
    Abrir_Empresas(sp.s);
    QTemporaryDir dir;
    QFile f(dir.filePath("e.SCL"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("Fecha operaci\xf3n   Descripci\xf3n\r\n01/02/2024 X 10 100 EUR 1000 5 1005\r\n");
    f.close();

    ImportarOpDialog ventana(sp.s);
    ventana.modelo().Text1 = dir.path();
    auto *rejilla = hijo<QTableWidget>(&ventana, "rejilla");
    int vueltas = 0;
    QTimer reloj;
    QObject::connect(&reloj, &QTimer::timeout, [&] {
        ++vueltas;
        if (vueltas == 1) // the run waits inside the click: not inside this timer's own event
            QTimer::singleShot(0, &ventana, [&] { hijo<QPushButton>(&ventana, "Command2")->click(); });
        if (vueltas == 5) { // waiting: type the operation and the value, then confirm
            ASSERT_EQ(rejilla->rowCount(), 1);
            rejilla->item(0, 1)->setText("COMPRA");
            hijo<QComboBox>(&ventana, "Combo1")->setEditText("TELEF");
            hijo<QPushButton>(&ventana, "Command3")->click();
        }
        if (vueltas == 8)
            hijo<QPushButton>(&ventana, "Salir")->click();
    });
    reloj.start(20);
    ventana.exec();
    EXPECT_EQ(ventana.modelo().Valor, "Importación finalizada");
    EXPECT_EQ(consulta(sp.s, "select Cantidad from cartera where VALOR = 1").toDouble(), 100);
    EXPECT_TRUE(sp.ui.messages.empty());
}

} // namespace
} // namespace tesorel::testing
