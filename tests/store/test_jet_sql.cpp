#include "core/runtime_error.h"
#include "store/jet_sql.h"

#include <gtest/gtest.h>

using namespace tesorel;

namespace
{

struct Case {
    const char *jet;
    const char *sqlite;
};

class Translation : public testing::TestWithParam<Case>
{
};

TEST_P(Translation, BecomesSqlite)
{
    EXPECT_EQ(jet::translate(QString::fromUtf8(GetParam().jet)), QString::fromUtf8(GetParam().sqlite));
}

INSTANTIATE_TEST_SUITE_P(
    Dialect, Translation,
    testing::Values(
        // dates: both separators, both year lengths, month always first
        Case{"select * from bolsa where fecha = #03/15/24#",
             "select * from bolsa where fecha = '2024-03-15'"},
        Case{"select * from bolsa where fecha = #03-15-24#",
             "select * from bolsa where fecha = '2024-03-15'"},
        Case{"select * from bolsa where fecha = #03-15-2024#",
             "select * from bolsa where fecha = '2024-03-15'"},
        Case{"select * from bolsa where fecha = #3/5/2024#",
             "select * from bolsa where fecha = '2024-03-05'"},
        Case{"select * from bolsa where fecha = #03/04/24#",
             "select * from bolsa where fecha = '2024-03-04'"},
        Case{"select * from bolsa where fecha = #12/31/29#",
             "select * from bolsa where fecha = '2029-12-31'"},
        Case{"select * from bolsa where fecha = #01/02/30#",
             "select * from bolsa where fecha = '1930-01-02'"},
        Case{"select * from bolsa where fecha = #06/30/99#",
             "select * from bolsa where fecha = '1999-06-30'"},
        Case{"select * from bolsa where fecha = #01/03/00#",
             "select * from bolsa where fecha = '2000-01-03'"},
        // delete with a star, in any case and spacing
        Case{"delete * from cartera1", "delete from cartera1"},
        Case{"Delete  *  From operadores where codigo = 3", "Delete From operadores where codigo = 3"},
        Case{"delete * from bolsa where [fecha] = #01/02/24#",
             "delete from bolsa where \"fecha\" = '2024-01-02'"},
        // bracketed and blank-holding names
        Case{"select * from bolsa where [valor] < 34000", "select * from bolsa where \"valor\" < 34000"},
        Case{"select * from [Los que mas suben]", "select * from \"Los que mas suben\""},
        // text: kept, compared without regard to case; Jet double quotes become SQL strings
        Case{"select * from codigo_Empresas where abreviatura3 = 'SAN'",
             "select * from codigo_Empresas where abreviatura3 = 'SAN' COLLATE NOCASE"},
        Case{"select * from t where n = \"it's\"", "select * from t where n = 'it''s' COLLATE NOCASE"},
        Case{"select * from t where n = 'a''b'", "select * from t where n = 'a''b' COLLATE NOCASE"},
        // LIKE keeps the dialect's pattern: the base's like() reads it
        Case{"select * from codigo_Empresas where NOMBRE LIKE '*TELE*'",
             "select * from codigo_Empresas where NOMBRE LIKE '*TELE*' COLLATE NOCASE"},
        // constants, concatenation, functions, trailing semicolon
        Case{"select * from t where a = True or b = false", "select * from t where a = 1 or b = 0"},
        Case{"select t.true from t", "select t.true from t"},
        Case{"select nombre & ' ' & abreviatura3 as n from t",
             "select nombre  ||  ' ' COLLATE NOCASE  ||  abreviatura3 as n from t"},
        Case{"select * from t where f <= Date()", "select * from t where f <= date('now','localtime')"},
        Case{"select Now() as ahora", "select datetime('now','localtime') as ahora"},
        Case{"select * from t where date = 1", "select * from t where date = 1"},
        Case{"SELECT Max(Codigo_Empresas.Codigo) AS MCodigo FROM Codigo_Empresas;",
             "SELECT Max(Codigo_Empresas.Codigo) AS MCodigo FROM Codigo_Empresas"},
        Case{"select * from t where a <> 2", "select * from t where a <> 2"}));

class Refused : public testing::TestWithParam<const char *>
{
};

TEST_P(Refused, IsASyntaxError)
{
    try {
        jet::translate(QString::fromUtf8(GetParam()));
        FAIL() << "accepted: " << GetParam();
    } catch (const RuntimeError &e) {
        EXPECT_EQ(e.number(), err::SyntaxError);
        EXPECT_TRUE(e.description().startsWith(QStringLiteral("Error de sintaxis")) ||
                    e.description().startsWith(QStringLiteral("Se encontraron")))
            << e.description().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Dialect, Refused,
                         testing::Values("select * from codigo_empresas where nombre = 'D'Oliveira'",
                                         "select * from t where [valor = 3",
                                         "select * from bolsa where fecha = #03/15/24",
                                         "select * from bolsa where fecha = #hoy#", "select (1 from t",
                                         "select 1) from t", "select * from t; drop table t",
                                         "select * from t where a = ?"));

TEST(JetSql, SyntaxMessageNamesTheStatement)
{
    try {
        jet::translate(QStringLiteral("select * from c where nombre = 'O'Hara'"));
        FAIL();
    } catch (const RuntimeError &e) {
        EXPECT_EQ(e.description(), QStringLiteral("Error de sintaxis en la expresión de consulta "
                                                  "'select * from c where nombre = 'O'Hara''."));
    }
}

struct CriteriaCase {
    const char *jet;
    const char *sqlite;
};

class Criteria : public testing::TestWithParam<CriteriaCase>
{
};

TEST_P(Criteria, BecomeWhereExpressions)
{
    EXPECT_EQ(jet::translateCriteria(QString::fromUtf8(GetParam().jet)),
              QString::fromUtf8(GetParam().sqlite));
}

INSTANTIATE_TEST_SUITE_P(
    Dialect, Criteria,
    testing::Values(CriteriaCase{"FECHA = #03/15/24#", "FECHA = '2024-03-15'"},
                    CriteriaCase{"valor = 12 and usuario = 1", "valor = 12 and usuario = 1"},
                    CriteriaCase{"(usuario = 1) and (valor = 7)", "(usuario = 1) and (valor = 7)"},
                    CriteriaCase{"Nombre = 'X'", "Nombre = 'X' COLLATE NOCASE"},
                    CriteriaCase{"Abreviatura11 LIKE 'B*'", "Abreviatura11 LIKE 'B*' COLLATE NOCASE"},
                    CriteriaCase{"[valor] < 34000", "\"valor\" < 34000"}));

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

class Like : public testing::TestWithParam<LikeCase>
{
};

TEST_P(Like, MatchesAsTheDialect)
{
    EXPECT_EQ(jet::likeMatch(QString::fromUtf8(GetParam().pattern), QString::fromUtf8(GetParam().text)),
              GetParam().matches)
        << GetParam().pattern << " ~ " << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Dialect, Like,
    testing::Values(LikeCase{"*TELE*", "Telefónica", true}, LikeCase{"*tele*", "TELEFONICA", true},
                    LikeCase{"B*", "Bankinter", true}, LikeCase{"B*", "ABB", false},
                    LikeCase{"B?A", "bBa", true}, LikeCase{"B?A", "BA", false}, LikeCase{"A#", "A7", true},
                    LikeCase{"A#", "AX", false}, LikeCase{"[a-c]*", "Cepsa", true},
                    LikeCase{"[!a-c]*", "Cepsa", false}, LikeCase{"[!a-c]*", "Endesa", true},
                    LikeCase{"100%", "100%", true}, LikeCase{"100%", "1000", false},
                    LikeCase{"a_b", "a_b", true}, LikeCase{"a_b", "axb", false},
                    LikeCase{"*á*", "ÁLVAREZ", true}, LikeCase{"", "", true}, LikeCase{"*", "", true},
                    LikeCase{"[*]x", "*x", true},
                    LikeCase{"*a*a*a*a*b", "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa", false},
                    LikeCase{"[abc", "[abc", true}));

} // namespace
