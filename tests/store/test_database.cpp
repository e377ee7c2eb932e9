#include "core/runtime_error.h"
#include "store_fixture.h"

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

} // namespace
