#include "../core/fallo.h"
#include "core/runtime_error.h"
#include "store/jet_sql.h"

#include <gtest/gtest.h>

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

struct Case {
    const char *jet;
    const char *sqlite;
};

TEST(JetSql, StatementsBecomeSqlite)
{
    const Case cases[] = {
        // dates: month first (the day texts and the century pivot: test_dates)
        {"select * from bolsa where fecha = #03/15/24#", "select * from bolsa where fecha = '2024-03-15'"},
        // delete with a star, in any case and spacing
        {"Delete  *  From operadores where codigo = 3", "Delete From operadores where codigo = 3"},
        {"delete * from bolsa where [fecha] = #01/02/24#",
         "delete from bolsa where \"fecha\" = '2024-01-02'"},
        // bracketed and blank-holding names
        {"select * from bolsa where [valor] < 34000", "select * from bolsa where \"valor\" < 34000"},
        {"select * from [Los que mas suben]", "select * from \"Los que mas suben\""},
        // text: kept, compared without regard to case; Jet double quotes become SQL strings
        {"select * from codigo_Empresas where abreviatura3 = 'SAN'",
         "select * from codigo_Empresas where abreviatura3 = 'SAN' COLLATE NOCASE"},
        {"select * from t where n = \"it's\"", "select * from t where n = 'it''s' COLLATE NOCASE"},
        {"select * from t where n = 'a''b'", "select * from t where n = 'a''b' COLLATE NOCASE"},
        // LIKE keeps the dialect's pattern: the base's like() reads it
        {"select * from codigo_Empresas where NOMBRE LIKE '*TELE*'",
         "select * from codigo_Empresas where NOMBRE LIKE '*TELE*' COLLATE NOCASE"},
        // constants, concatenation, functions, trailing semicolon
        {"select * from t where a = True or b = false", "select * from t where a = 1 or b = 0"},
        {"select t.true from t", "select t.true from t"},
        {"select nombre & ' ' & abreviatura3 as n from t",
         "select nombre  ||  ' ' COLLATE NOCASE  ||  abreviatura3 as n from t"},
        {"select * from t where f <= Date()", "select * from t where f <= date('now','localtime')"},
        {"select Now() as ahora", "select datetime('now','localtime') as ahora"},
        {"select * from t where date = 1", "select * from t where date = 1"},
        {"SELECT Max(Codigo_Empresas.Codigo) AS MCodigo FROM Codigo_Empresas;",
         "SELECT Max(Codigo_Empresas.Codigo) AS MCodigo FROM Codigo_Empresas"},
        {"select * from t where a <> 2", "select * from t where a <> 2"}};
    for (const Case &c : cases)
        EXPECT_EQ(jet::translate(QString::fromUtf8(c.jet)), QString::fromUtf8(c.sqlite)) << c.jet;
}

TEST(JetSql, RefusedStatementsAreSyntaxErrors)
{
    for (const char *bad : {"select * from codigo_empresas where nombre = 'D'Oliveira'",
                            "select * from t where [valor = 3", "select * from bolsa where fecha = #03/15/24",
                            "select * from bolsa where fecha = #hoy#", "select (1 from t", "select 1) from t",
                            "select * from t; drop table t", "select * from t where a = ?"}) {
        const Fallo f = falloDe([&] { jet::translate(QString::fromUtf8(bad)); });
        EXPECT_EQ(f.numero, err::SyntaxError) << bad;
        EXPECT_TRUE(f.texto.startsWith(QStringLiteral("Error de sintaxis")) ||
                    f.texto.startsWith(QStringLiteral("Se encontraron")))
            << f.texto.toStdString();
    }
}

TEST(JetSql, CriteriaBecomeWhereExpressions)
{
    const Case cases[] = {{"FECHA = #03/15/24#", "FECHA = '2024-03-15'"},
                          {"valor = 12 and usuario = 1", "valor = 12 and usuario = 1"},
                          {"(usuario = 1) and (valor = 7)", "(usuario = 1) and (valor = 7)"},
                          {"Nombre = 'X'", "Nombre = 'X' COLLATE NOCASE"},
                          {"Abreviatura11 LIKE 'B*'", "Abreviatura11 LIKE 'B*' COLLATE NOCASE"},
                          {"[valor] < 34000", "\"valor\" < 34000"}};
    for (const Case &c : cases)
        EXPECT_EQ(jet::translateCriteria(QString::fromUtf8(c.jet)), QString::fromUtf8(c.sqlite)) << c.jet;
}

TEST(JetSql, CriteriaRefuseEmptyAndSecondStatements)
{
    for (const char *bad : {"", "   ", "valor = 1; delete from t", "nombre = 'O'Hara'"}) {
        EXPECT_THROW(jet::translateCriteria(QString::fromUtf8(bad)), RuntimeError) << bad;
    }
}

struct LikeCase {
    const char *pattern;
    const char *text;
    bool matches;
};

TEST(JetSql, LikeMatchesAsTheDialect)
{
    const LikeCase cases[] = {
        {"*TELE*", "Telefónica", true},
        {"B*", "Bankinter", true},
        {"B*", "ABB", false},
        {"B?A", "bBa", true},
        {"B?A", "BA", false},
        {"A#", "A7", true},
        {"A#", "AX", false},
        {"[a-c]*", "Cepsa", true},
        {"[!a-c]*", "Cepsa", false},
        {"[!a-c]*", "Endesa", true},
        {"100%", "1000", false},
        {"a_b", "axb", false},
        {"*á*", "ÁLVAREZ", true},
        {"", "", true},
        {"*", "", true},
        {"[*]x", "*x", true},
        {"[abc", "[abc", true},
    };
    for (const LikeCase &c : cases)
        EXPECT_EQ(jet::likeMatch(QString::fromUtf8(c.pattern), QString::fromUtf8(c.text)), c.matches)
            << c.pattern << " ~ " << c.text;
    // Backtracking over many stars still ends (and quickly).
    EXPECT_FALSE(jet::likeMatch(QStringLiteral("*a*a*a*a*b"), QString(36, u'a')));
}

} // namespace
