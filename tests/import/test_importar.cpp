#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

#include "archivos_prueba.h"
#include "import/importar.h"
#include "import_fixture.h"

namespace tesorel::testing
{
namespace
{

const QDate Dia1(2024, 1, 5), Dia2(2024, 1, 8);

class ImportarTest : public ImportFixture
{
  protected:
    QString datos;
    ImportarTest()
    {
        datos = carpeta() + "/datos";
        QDir().mkpath(datos);
        empresa(1, "TELEFONICA SA", "TELEFONICA", "TEF");
        empresa(2, "BANCO SANTANDER", "SANTANDER", "SAN");
        db().executeNative(
            "insert into Usuario_Actual (USUARIO_ACTUAL, fecha_Actual) values (1, '2000-01-01')");
        Abrir_Empresas(s);
    }
    // "VALOR ULTIMO MAXIMO MINIMO" of each row of a day, in the order written.
    QStringList filas(const QDate &dia)
    {
        Query q(db(), "select VALOR, ULTIMO, MAXIMO, MINIMO from bolsa where FECHA = ? order by rowid");
        q.bind(1, dia);
        QStringList out;
        while (q.next())
            out << QString("%1 %2 %3 %4").arg(q.number(0)).arg(q.number(1)).arg(q.number(2)).arg(q.number(3));
        return out;
    }
    void correr(int sobre = 0)
    {
        Importar m(s);
        m.Text1 = datos;
        m.Sobre = sobre;
        m.Aceptar1_Click();
        m.Form_Unload();
    }
};

// One line under a first line: whether the day is read, then high and low.
TEST_F(ImportarTest, FirstLineThenHighAndLow)
{
    const struct {
        const char *cabecera, *linea, *fila; // "" for no row
    } casos[] = {
        {"05/01/2024", "TEF,10,12.5,0,0,14,11,0", "1 12.5 14 11"},
        {"tx05/01/2024", "TEF,10,12.5,0,0,14,11,0", "1 12.5 14 11"},
        {"TX05/01/2024", "TEF,10,12.5,0,0,14,11,0", ""},
        {"cotizaciones", "TEF,10,12.5,0,0,14,11,0", ""},
        {"", "TEF,10,12.5,0,0,14,11,0", ""},
        {"05/01/2024", "TEF,10,12.5,0,0,0,3,0", "1 12.5 12.5 12.5"},
        {"05/01/2024", "TEF,10,0,0,0,0,3,0", "1 0 0 3"},
        {"05/01/2024", "TEF,10,12.5,0,0,14,0,0", "1 12.5 14 0"},
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(std::string(c.cabecera) + " " + c.linea);
        db().executeNative("delete from bolsa");
        escribirTexto(datos + "/dia.txt", {c.cabecera, c.linea});
        Importar(s).Importa_txt(datos + "/dia.txt");
        EXPECT_EQ(filas(Dia1), *c.fila ? QStringList(c.fila) : QStringList());
    }
}

TEST_F(ImportarTest, SevenCommasOrTheLineBeforeAgain)
{
    escribirTexto(datos + "/dia.txt", {"05/01/2024", "mal,linea", "TEF,10,11,10,100,12,10.5,1100",
                                       "SAN,4,4.5,2,100,4.6,4.1", "SAN,4,4.5,2,100,4.6,4.1,9,9"});
    Importar m(s);
    m.Importa_txt(datos + "/dia.txt");
    EXPECT_EQ(ui.beeps, 3);
    // A bad line at the start files an empty name (a new company) with zeros.
    EXPECT_EQ(filas(Dia1), QStringList({"3 0 0 0", "1 11 12 10.5", "1 11 12 10.5", "1 11 12 10.5"}));
    EXPECT_EQ(texto("select '[' || NOMBRE || ']' from Codigo_Empresas where Codigo = 3"), "[]");
}

TEST_F(ImportarTest, NamesAreTickersThenAbbreviationsThenNewCompanies)
{
    escribirTexto(datos + "/dia.txt", {"05/01/2024", " SAN ,1,1,0,0,0,0,0",
                                       "TELEFONICA SA MOVIL,2,2,0,0,0,0,0", "NUEVA EMPRESA SA,3,3,0,0,0,0,0",
                                       "Cartera mia,4,4,0,0,0,0,0", "NUEVA EMPRE,5,5,0,0,0,0,0"});
    Importar m(s);
    m.Importa_txt(datos + "/dia.txt");
    EXPECT_EQ(filas(Dia1), QStringList({"2 1 1 1", "1 2 2 2", "3 3 3 3", "34001 4 4 4", "3 5 5 5"}));
    EXPECT_EQ(texto("select NOMBRE || '|' || ABREVIATURA11 || '|' || ifnull(ABREVIATURA3, 'NULL') "
                    "from Codigo_Empresas where Codigo = 3"),
              "NUEVA EMPRE|NUEVA EMPRE|NULL");
}

TEST_F(ImportarTest, ADayPresentIsLeftOrReplacedWhole)
{
    db().executeNative("insert into bolsa (VALOR, FECHA, ULTIMO) values (2, '2024-01-05', 7)");
    escribirTexto(datos + "/a.txt", {"05/01/2024", "TEF,10,11,0,0,0,0,0"});
    escribirTexto(datos + "/b.txt", {"08/01/2024", "TEF,10,12,0,0,0,0,0"});
    correr();
    EXPECT_EQ(filas(Dia1), QStringList("2 7 0 0"));
    EXPECT_EQ(filas(Dia2), QStringList("1 12 12 12"));
    EXPECT_EQ(texto("select fecha_Actual from Usuario_Actual"), "2024-01-08");
    correr(1);
    EXPECT_EQ(filas(Dia1), QStringList("1 11 11 11"));
    EXPECT_EQ(filas(Dia2), QStringList("1 12 12 12"));
}

TEST_F(ImportarTest, TablesByTheNumberOfTheirName)
{
    escribirDbf(datos + "/0123.DBF", Dia1, {{"TEF", 10, 11, 12, 10}});
    escribirDbf(datos + "/A5.dbf", Dia1, {{"TEF", 10, 11, 12, 10}});
    correr();
    EXPECT_TRUE(filas(Dia1).isEmpty()); // table 123 is no file of the folder
    escribirDbf(datos + "/123.dbf", Dia2,
                {{"SANTANDER", 4, 4.5, 0, 4}, {nullptr, 1, 1, 1, 1}, {"OTRA", 1, 2, 3, 1}});
    correr();
    EXPECT_TRUE(filas(Dia1).isEmpty());
    EXPECT_EQ(filas(Dia2), QStringList({"2 4.5 4.5 4.5", "3 2 3 1"}));
}

TEST_F(ImportarTest, TwelveSubfoldersAndTheDbaseDaysOnly)
{
    for (int k = 1; k <= 13; ++k) {
        const QString sub = datos + QString("/d%1").arg(k, 2, 10, QChar('0'));
        QDir().mkpath(sub);
        escribirDbf(sub + "/1.dbf", QDate(2023, 3, k), {{"TEF", 1, 1, 1, 1}});
    }
    escribirTexto(datos + "/b.txt", {"08/01/2024", "TEF,10,12,0,0,0,0,0"});
    escribirTexto(datos + "/tickers.txt", {"\"SANTANDER\",\"SAN2\"", "NADIE,X"});
    Importar m(s);
    m.Text1 = datos;
    m.Aceptar1_Click();
    EXPECT_EQ(numero("select count(distinct FECHA) from bolsa"), 12);
    EXPECT_EQ(numero("select count(*) from bolsa where FECHA = '2023-03-13'"), 0);
    EXPECT_TRUE(filas(Dia2).isEmpty()); // the text pass looked in a folder named after the day shown
    EXPECT_EQ(m.Text1, "domingo 12, marzo 12 2023");
    EXPECT_FALSE(QFile::exists(datos + "/tickers.txt"));
    EXPECT_EQ(texto("select ABREVIATURA3 from Codigo_Empresas where Codigo = 2"), "SAN2");
}

TEST_F(ImportarTest, GroupedFilesAreCommittedWhenThePassEnds)
{
    escribirTexto(datos + "/a.txt", {"05/01/2024", "TEF,10,11,0,0,0,0,0"});
    escribirTexto(datos + "/b.txt", {"08/01/2024", "TEF,10,12,0,0,0,0,0", "SAN,1,2,0,0,0,0,0"});
    Importar m(s);
    m.agruparMs = 60000;
    m.Importar_(datos, "TXT");
    EXPECT_FALSE(db().inTransaction());
    auto otra = Database::open(sp.base.path());
    Query q(*otra, "select count(*) from bolsa");
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.number(0), 3);
}

TEST_F(ImportarTest, MailFilesAreMovedIntoTheFolderAndImported)
{
    QDir().mkpath(carpeta() + "/mail");
    escribirTexto(carpeta() + "/mail/cierre.TXT", {"05/01/2024", "TEF,10,11,0,0,0,0,0"});
    int correos = 0, importinet = 0;
    Importar::Acciones acciones;
    acciones.ImportCorreo = [&] { return ++correos > 0; };
    acciones.Importinet = [&] { ++importinet; };
    Importar m(s, acciones);
    m.Text1 = datos;
    m.Label8_Click();
    EXPECT_EQ(correos, 1);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_FALSE(QFile::exists(carpeta() + "/mail/cierre.TXT"));
    EXPECT_TRUE(QFile::exists(datos + "/cierre.TXT"));
    EXPECT_EQ(filas(Dia1), QStringList("1 11 11 11"));
    EXPECT_TRUE(m.Descargado);

    Importar otra(s, acciones);
    otra.servidorCierres = "http://127.0.0.1:8080";
    otra.Label12_Click();
    EXPECT_EQ(ui.opened, QStringList("http://127.0.0.1:8080/datos/2002/todo.exe"));
    EXPECT_FALSE(otra.Descargado);
    otra.Label13_Click();
    EXPECT_EQ(importinet, 1);
    EXPECT_TRUE(otra.Descargado);
}

TEST_F(ImportarTest, UnknownKindOfPass)
{
    Importar(s).Importar_(datos, "XLS");
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].prompt, "Formato no reconocido, ");
    EXPECT_EQ(ui.messages[0].title, "Mala Suerte");
}

} // namespace
} // namespace tesorel::testing
