#include "core/runtime_error.h"
#include "store_fixture.h"
#include "support/test_base.h"

#include <QFile>

using namespace tesorel;
using namespace tesorel::testing;
using tesorel::testing_store::SmallBase;

namespace
{

TEST(Database, MissingFileIs3024AndCreatesNothing)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("base1.mdb"));
    const Fallo f = falloDe([&] { Database::open(path); });
    EXPECT_EQ(f.numero, err::DatabaseFileNotFound);
    EXPECT_EQ(f.texto, QStringLiteral("No se encuentra el archivo '%1'.").arg(path));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(SmallBase, ExecuteCountsChangedRows)
{
    fill(5);
    EXPECT_EQ(base->execute(QStringLiteral("update quotes set ULTIMO = 1 where [valor] < 3")), 2);
    EXPECT_EQ(base->execute(QStringLiteral("delete * from quotes where fecha = #03/04/24#")), 1);
    EXPECT_EQ(base->execute(QStringLiteral("Delete * From QUOTES")), 4);
}

TEST_F(SmallBase, FailuresCarryTheEngineMessage)
{
    struct Case {
        const char *statement;
        int number;
        QString message;
    };
    const Case cases[] = {
        {"delete * from nada", 3078,
         QStringLiteral(
             "El motor de base de datos no puede encontrar la tabla o consulta de entrada 'nada'.")},
        {"update quotes set NOMBRE = 'D'Oliveira' where VALOR = 1", err::SyntaxError,
         QStringLiteral("Error de sintaxis en la expresión de consulta "
                        "'update quotes set NOMBRE = 'D'Oliveira' where VALOR = 1'.")},
        {"update quotes set NOMBRE = 'D'Oli'veira' where VALOR = 1", err::SyntaxError,
         QStringLiteral("Error de sintaxis en la expresión de consulta "
                        "'update quotes set NOMBRE = 'D'Oli'veira' where VALOR = 1'.")},
        {"select * from quotes", 3065, QStringLiteral("No se puede ejecutar una consulta de selección.")},
        {"update quotes set nada = 1", 3061, QStringLiteral("Pocos parámetros. Se esperaba 1.")},
    };
    for (const Case &c : cases) {
        const Fallo f = falloDe([&] { base->execute(QString::fromUtf8(c.statement)); });
        EXPECT_EQ(f.numero, c.number) << c.statement;
        EXPECT_EQ(f.texto, c.message) << c.statement;
    }
}

TEST_F(SmallBase, TransactionsNestAndRollBackWhole)
{
    EXPECT_FALSE(base->inTransaction());
    base->beginTransaction();
    base->beginTransaction();
    base->execute(QStringLiteral("insert into Usuario (NOMBRE) values ('ana')"));
    base->commit();
    EXPECT_TRUE(base->inTransaction());
    base->rollback();
    EXPECT_FALSE(base->inTransaction());
    EXPECT_TRUE(base->openRecordset(QStringLiteral("Usuario"))->Eof());

    base->beginTransaction();
    base->execute(QStringLiteral("insert into Usuario (NOMBRE) values ('eva')"));
    base->commit();
    EXPECT_EQ(base->openRecordset(QStringLiteral("Usuario"))->field(QStringLiteral("nombre")),
              QVariant(QStringLiteral("eva")));
    EXPECT_EQ(errorNumber([&] { base->commit(); }), 3034);
    EXPECT_EQ(errorNumber([&] { base->rollback(); }), 3034);
}

TEST_F(SmallBase, LikeAndTextComparisonIgnoreCase)
{
    fill(3);
    base->execute(QStringLiteral("insert into quotes (VALOR, NOMBRE) values (9, 'Telefónica')"));
    struct Case {
        const char *where;
        long rows;
    };
    // The patterns themselves are the dialect's matcher's (test_jet_sql).
    const Case cases[] = {
        {"NOMBRE LIKE '*TELEFÓ*'", 1}, {"NOMBRE LIKE 'valor ?'", 3}, {"nombre = 'VALOR 2'", 1}};
    for (const Case &c : cases) {
        auto rs =
            base->openRecordset(QStringLiteral("select * from quotes where ") + QString::fromUtf8(c.where));
        if (!rs->Eof())
            rs->MoveLast();
        EXPECT_EQ(rs->RecordCount(), c.rows) << c.where;
    }
}

TEST(Database, LoadsTheProjectSchemaAndItsStoredQueries)
{
    tesorel::testing::TestBase base; // fails when data/schema.sql is missing
    auto &db = base.db;
    db->execute(QStringLiteral("insert into bolsa (VALOR, FECHA, ULTIMO) values (1, #01/03/24#, 2)"));
    db->execute(QStringLiteral("insert into bolsa (VALOR, FECHA, ULTIMO) values (2, #01-02-2024#, 3)"));
    auto fechas = db->openRecordset(QStringLiteral("Select * From Fechas Order by Fecha"));
    ASSERT_FALSE(fechas->Eof());
    EXPECT_EQ(fechas->field(QStringLiteral("fecha")), QVariant(QDate(2024, 1, 2)));
    auto ultimo = db->openRecordset(QStringLiteral("select * from Ultimodia"));
    EXPECT_EQ(ultimo->field(0), QVariant(QDate(2024, 1, 3)));
    EXPECT_NO_THROW(db->openRecordset(QStringLiteral("los que mas suben")));
}

} // namespace
