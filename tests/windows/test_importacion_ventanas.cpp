#include <QDir>

#include "windows/empresas_dialogs.h"
#include "windows/importar_dialog.h"
#include "windows/test_principal_support.h"

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

struct VentanasImportacion : ::testing::Test {
    SesionDePrueba sp;
    Session &s = sp.s;
    void SetUp() override
    {
        app();
        s.Usuario_Numero = 1;
        sp.base.db->executeNative(
            "INSERT INTO Codigo_Empresas VALUES (10, 'ACERINOX', 'ACX', 'ACERINOX', ''),"
            " (20, 'ACERINOX BIS', 'ACX', 'ACERINOX2', '');"
            "INSERT INTO Usuario_Actual (USUARIO_ACTUAL, fecha_Actual) VALUES (1, '2000-01-01')");
        Abrir_Empresas(s);
    }
    QString texto(const QString &sql) { return consulta(s, sql).toString(); }
};

TEST_F(VentanasImportacion, AddEmpresaTypesCapitalsAndAddsTheRow)
{
    AltaDeEmpresa alta;
    alta.ABREVIATURA3 = "NUE";
    AddEmpresaDialog d(s, alta);
    auto *nombre = hijo<QLineEdit>(&d, "NOMBRE");
    escribir(nombre, "nueva sa");
    EXPECT_EQ(nombre->text(), "NUEVA SA");
    EXPECT_EQ(hijo<QLineEdit>(&d, "ABREVIATURA3")->text(), "NUE");
    escribir(hijo<QLineEdit>(&d, "Invertia"), "ficha?id=rv1");
    hijo<QPushButton>(&d, "Aceptar")->click();
    EXPECT_EQ(d.result(), QDialog::Accepted);
    EXPECT_EQ(
        texto(
            "select NOMBRE || '|' || ABREVIATURA3 || '|' || Invertia from Codigo_Empresas where Codigo = 21"),
        "NUEVA SA|NUE|rv1");
}

TEST_F(VentanasImportacion, DepurarShowsItsLog)
{
    DepuraCotizaDialog d(s);
    hijo<QPushButton>(&d, "Depurar")->click();
    auto *lista = hijo<QListWidget>(&d, "List1");
    ASSERT_EQ(lista->count(), 2);
    EXPECT_EQ(lista->item(0)->text(), "10 ACERINOX OK OK OK OK");
    EXPECT_EQ(lista->currentRow(), 1);
}

TEST_F(VentanasImportacion, ImportarRunsOnEnterAndClosesWithTheNewestDay)
{
    const QString datos = sp.base.folder() + "/datos";
    QDir().mkpath(datos);
    QFile f(datos + "/d.txt");
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("03/05/2024\r\nACX,9,9.5,1,100,9.6,9.1,950\r\n");
    f.close();
    Comandos comandos;
    {
        ImportarDialog d(s, comandos);
        auto *text1 = hijo<QLineEdit>(&d, "Text1");
        text1->setText("/no/existe");
        hijo<QPushButton>(&d, "Label8")->click();
        ASSERT_EQ(sp.ui.messages.size(), 2u);
        EXPECT_EQ(sp.ui.messages[0].prompt, "La recogida de correo no está disponible.");
        EXPECT_EQ(sp.ui.messages[1].prompt, "Subdirectorio no valido");
        text1->setText(datos);
        tecla(text1, Qt::Key_Return);
        EXPECT_EQ(d.result(), QDialog::Accepted);
    }
    EXPECT_EQ(texto("select VALOR || ' ' || ULTIMO from bolsa where FECHA = '2024-05-03'"), "10 9.5");
    EXPECT_EQ(texto("select fecha_Actual from Usuario_Actual"), "2024-05-03");
    ImportarDialog otra(s, comandos);
    EXPECT_EQ(hijo<QLineEdit>(&otra, "Text1")->text(), datos); // remembered in importa.de
}

} // namespace
