#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "core/texto_1252.h"
#include "import/importar_op.h"
#include "import_fixture.h"

namespace tesorel::testing
{
namespace
{

TEST(PalabrasDeLinea, CuentaYToma)
{
    struct Caso {
        QString linea;
        int palabras;
        QString segunda;
    };
    for (const Caso &c : {Caso{"", 0, ""}, Caso{"a", 1, ""}, Caso{"  a  b  ", 2, "b"}, Caso{"a\tb c", 3, "b"},
                          Caso{"codigoTX TELEF_ONICA", 2, "TELEF_ONICA"}}) {
        EXPECT_EQ(ContarPalabras(c.linea), c.palabras) << c.linea.toStdString();
        EXPECT_EQ(Palabra(c.linea, 2), c.segunda) << c.linea.toStdString();
    }
}

const QByteArray kTxt =
    "Fecha operaci\xf3n Tipo operaci\xf3n T\xedtulos Moneda Importe efectivo Gastos Importe "
    "l\xedquido Observaciones\r\n";
const QByteArray kScl =
    "Fecha operaci\xf3n   Descripci\xf3n   T\xedtulos   Importe nominal   Precio     Moneda   "
    "Importe efectivo   Gastos    Importe l\xedquido\r\n";

class ImportarOpPrueba : public ImportFixture
{
  protected:
    ImportarOpPrueba() : v(s)
    {
        empresa(1, "TELEFONICA SA", "TELEFONICA", "TEF");
        Abrir_Empresas(s);
        Query(db(), "insert into operadores (codigo, NOMBRE) values (3, 'BANCO')").exec();
        v.Form_Load();
        v.Text1 = dir.path();
        v.esperar = [this] {
            ++esperas;
            if (enEspera)
                enEspera();
            else
                v.Command3_Click();
            if (esperas > 5)
                v.Salir_Click();
        };
    }
    void archivo(const QString &nombre, const QByteArray &bytes)
    {
        QFile f(dir.filePath(nombre));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    QByteArray leido(const QString &nombre) { return leer(dir.filePath(nombre)); }
    QTemporaryDir dir;
    ImportarOp v;
    std::function<void()> enEspera;
    int esperas = 0;
};

TEST_F(ImportarOpPrueba, TxtConCodigoCalculaPrecioYApunta)
{
    archivo("a.TXT", "basura antes\r\n" + kTxt +
                         "01/02/2024 COMPRA 100 EUR 1000 5 1005\r\n\r\ncodigoTX TELEFONICA\r\n");
    std::vector<FilaOp> vistas;
    enEspera = [&] {
        vistas = v.filas;
        EXPECT_EQ(v.Combo1, "TELEFONICA");
        v.Command3_Click();
    };
    v.Command2_Click();
    ASSERT_EQ(vistas.size(), 1u);
    EXPECT_EQ(vistas[0].Precio, "10,00");
    EXPECT_EQ(vistas[0].Operacion, "COMPRA");
    EXPECT_EQ(numero("select Cantidad from cartera where VALOR = 1"), 100);
    EXPECT_EQ(texto("select Operacion from historico"), "01/02/2024: Compra 100 TELEFONICA x 1005");
    EXPECT_EQ(numero("select Entidad from historico"), 3);
    EXPECT_FALSE(leido("a.TXT").endsWith("codigoTX TELEFONICA\r\n\r\ncodigoTX TELEFONICA\r\n"));
    EXPECT_EQ(v.Valor, "Importación finalizada");
    EXPECT_TRUE(v.Text2.startsWith("Iniciando Importación de "));
    EXPECT_TRUE(mensajes().isEmpty()) << mensajes().join('|').toStdString();
}

TEST_F(ImportarOpPrueba, CodigoElegidoSeGuardaAunSinImportar)
{
    archivo("b.TXT", kTxt + "01/02/2024 COMPRA 100 EUR 1000 5 1005\r\n");
    int vez = 0;
    enEspera = [&] {
        if (++vez == 2) { // the first try had no value: the message, and the grid stays
            v.Combo1 = "TELEFONICA";
            v.ImportarOp_ = 0;
        }
        v.Guardar = 0; // overruled
        v.Command3_Click();
    };
    v.Command2_Click();
    EXPECT_EQ(mensajes(),
              QStringList({"Debe seleccionar un valor o desmarcar la opción de importar los datos"}));
    EXPECT_EQ(vez, 2);
    EXPECT_EQ(numero("select count(*) from historico"), 0);
    EXPECT_TRUE(leido("b.TXT").endsWith("1005\r\n\r\ncodigoTX TELEFONICA\r\n"));
}

TEST_F(ImportarOpPrueba, VueltaAtrasSinCanjeYVentaRechazadaSigue)
{
    // New to old: walked backwards, where the exchange word is unknown.
    archivo("c.TXT",
            kTxt + "05/03/2024 BAJAPORCANJE 10 5 EUR 50 0 50\r\n01/03/2024 COMPRA 100 EUR 1000 5 1005\r\n"
                   "codigoTX TELEFONICA\r\n");
    // Old to new: the sale of what is not held is refused, the purchase after it booked.
    archivo("d.TXT", kTxt + "01/02/2024 VENTA 500 EUR 5000 5 4995\r\n02/02/2024 COMPRA 7 EUR 70 1 71\r\n"
                            "codigoTX TELEFONICA\r\n");
    v.Command2_Click();
    ASSERT_EQ(mensajes().size(), 2);
    EXPECT_EQ(mensajes()[0], "El formato no es el esperado, no se garantiza una importación satisfactoria ");
    EXPECT_TRUE(mensajes()[1].contains("apunte rechazado")) << mensajes()[1].toStdString();
    EXPECT_EQ(numero("select count(*) from historico where operacionNum = 4"), 0);
    EXPECT_EQ(numero("select Cantidad from cartera where VALOR = 1"), 107);
}

TEST_F(ImportarOpPrueba, SclCeldaEditadaCabeceraFinalYLineasMalas)
{
    archivo("e.SCL", kScl + "01/02/2024 X 10 100 EUR 1000 5 1005\r\nuna dos tres\r\ncodigoTX TELEFONICA\r\n");
    archivo("f.SCL", "sin cabecera\r\n");
    archivo("g.SCL", "x\r\n" + kScl);
    enEspera = [&] {
        if (v.Valor == "e.SCL") {
            EXPECT_EQ(v.filas[0].Cantidad, "100");
            EXPECT_EQ(v.filas[0].Precio, "10");
            EXPECT_TRUE(v.filas[0].Operacion.isEmpty());
            v.filas[0].Operacion = "compra"; // typed in the cell during the wait
        }
        v.ImportarOp_ = v.Valor == "f.SCL" ? 0 : 1;
        v.Command3_Click();
    };
    v.Command2_Click();
    EXPECT_EQ(mensajes(), QStringList({"Linea error : una dos tres", "FICHERO NO VALIDO : f.SCL"}));
    EXPECT_EQ(errores, QList<int>({62}));
    EXPECT_EQ(numero("select Cantidad from cartera where VALOR = 1"), 100);
    EXPECT_EQ(leido("g.SCL"), "x\r\n" + kScl); // ended at its header: no wait, no code line
}

} // namespace
} // namespace tesorel::testing
