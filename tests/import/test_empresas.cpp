#include <gtest/gtest.h>

#include "core/runtime_error.h"
#include "import/empresas.h"
#include "import_fixture.h"
#include "store/database.h"
#include "support/test_base.h"

namespace tesorel::testing
{
namespace
{

TEST(Empresas, CodigoInvertia)
{
    const struct {
        const char *enlace, *codigo;
    } casos[] = {
        {"http://www.invertia.com/mercados/bolsa/empresas/ficha.asp?idtel=RV011TELEFO", "RV011TELEFO"},
        {"sin igual", ""},
        {"a=b=c", "b=c"},
        {"", ""},
    };
    for (const auto &c : casos)
        EXPECT_EQ(codigoinvertia(c.enlace), QString::fromUtf8(c.codigo)) << c.enlace;
}

// The new code is the highest plus one: none on an empty table, an overflow past 16 bits.
TEST_F(ImportFixture, AddEmpresaTakesTheCodeAfterTheHighest)
{
    AddEmpresa a(s);
    a.NOMBRE = "TRES SA";
    a.ABREVIATURA3 = "TRE";
    a.Invertia = "sin enlace";
    EXPECT_THROW(a.Aceptar_Click(), RuntimeError);
    empresa(5, "UNO", "UNO", "U");
    empresa(9, "DOS", "DOS", "D");
    a.Aceptar_Click();
    EXPECT_TRUE(a.Descargado);
    EXPECT_EQ(a.codigoAnadido, 10);
    EXPECT_EQ(texto("select NOMBRE || '|' || ABREVIATURA3 || '|' || ABREVIATURA11 || '|' || "
                    "ifnull(Invertia, 'NULL') from Codigo_Empresas where Codigo = 10"),
              "TRES SA|TRE||NULL");
    empresa(32767, "ULTIMA", "ULTIMA", "ULT");
    try {
        a.Aceptar_Click();
        FAIL() << "no overflow";
    } catch (const RuntimeError &e) {
        EXPECT_EQ(e.number(), err::Overflow);
    }
    EXPECT_EQ(numero("select count(*) from Codigo_Empresas"), 4);
}

TEST_F(ImportFixture, DepurarMergesEveryReferenceIntoTheLowestCode)
{
    empresa(5, "CINCO", "C5", "ABC");
    empresa(9, "NUEVE", "C9", "ABC");
    empresa(12, "DOCE", "C12", "ABC");
    empresa(20, "SOLA", "S", "XYZ");
    for (int c : {5, 9, 12}) {
        const QString v = QString::number(c);
        db().executeNative("insert into bolsa (VALOR, FECHA, ULTIMO) values (" + v + ", '2024-01-0" +
                           QString::number(c % 9 + 1) + "', 1)");
        db().executeNative("insert into cartera (Usuario, VALOR) values (1, " + v + ")");
        db().executeNative("insert into faboritos (Usuario, VALOR) values (1, " + v + ")");
        db().executeNative("insert into historico (Usuario, VALOR) values (1, " + v + ")");
        db().executeNative("insert into noticias (VALOR) values (" + v + ")");
    }
    db().executeNative("insert into comentarios (codigo, Comentario) values (12, 'nota')");
    DepuraCotiza d(s);
    d.Depurar_Click();
    EXPECT_EQ(d.List1, QStringList({"5 CINCO OK OK OK OK", "5 CINCO OK OK OK OK", "ok ok ok"}));
    EXPECT_EQ(d.List1_ListIndex, 2);
    EXPECT_TRUE(d.List2.isEmpty());
    EXPECT_EQ(texto("select group_concat(Codigo) from Codigo_Empresas"), "5,20");
    for (const char *tabla : {"bolsa", "cartera", "faboritos", "historico", "noticias"})
        EXPECT_EQ(numero(QString("select count(*) from %1 where VALOR = 5").arg(tabla)), 3) << tabla;
    EXPECT_EQ(numero("select codigo from comentarios"), 5);
}

TEST_F(ImportFixture, DepurarLeavesTickersItMustNotMerge)
{
    const struct {
        const char *primero, *segundo;
        int quedan;
    } casos[] = {
        {"SGOB", "CRI", 1}, // the fixed correction makes them one ticker
        {"ABCXX", "ABCXX", 2}, {"TEF.D", "TEF.D", 2}, {"", "", 2}, {"  ", "  ", 2},
    };
    for (const auto &c : casos) {
        db().executeNative("delete from Codigo_Empresas");
        empresa(3, "A", "A", c.primero);
        empresa(4, "B", "B", c.segundo);
        DepuraCotiza d(s);
        d.Depurar_Click();
        EXPECT_EQ(numero("select count(*) from Codigo_Empresas"), c.quedan) << c.primero;
        EXPECT_EQ(d.List1.size(), c.quedan == 1 ? 2 : 1) << c.primero;
    }
}

} // namespace
} // namespace tesorel::testing
