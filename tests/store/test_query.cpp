#include "core/runtime_error.h"
#include "store/query.h"
#include "store_fixture.h"

using namespace tesorel;
using tesorel::testing_store::SmallBase;

namespace
{

int contar(Database &db)
{
    Query q(db, QStringLiteral("select count(*) from quotes"));
    return q.next() ? int(q.whole(0)) : -1;
}

TEST_F(SmallBase, BoundValuesNeverBecomeStatementText)
{
    fill(3);
    // A name with an apostrophe and a LIKE pattern bound as a value: neither
    // breaks the statement nor changes its meaning.
    Query poner(*base, QStringLiteral("update quotes set NOMBRE = ? where VALOR = ?"));
    EXPECT_EQ(poner.bind(1, QStringLiteral("D'Oliveira")).bind(2, 1).exec(), 1);
    EXPECT_EQ(poner.bind(1, QStringLiteral("*")).bind(2, 2).exec(), 1);

    Query leer(*base,
               QStringLiteral("select VALOR, NOMBRE, FECHA from quotes where NOMBRE = ? order by VALOR"));
    leer.bind(1, QStringLiteral("D'Oliveira"));
    ASSERT_TRUE(leer.next());
    EXPECT_EQ(leer.whole(0), 1);
    EXPECT_EQ(leer.text(1), QStringLiteral("D'Oliveira"));
    EXPECT_TRUE(leer.date(2).isValid());
    EXPECT_FALSE(leer.next());

    // The dialect still applies around the values: a #date# and a bound day.
    Query dia(*base, QStringLiteral("select count(*) from quotes where FECHA >= #03/02/24# and FECHA <= ?"));
    dia.bind(1, QDate(2024, 3, 3));
    ASSERT_TRUE(dia.next());
    EXPECT_EQ(dia.whole(0), 2);
}

TEST_F(SmallBase, NullsDatesAndMisuse)
{
    fill(1);
    Query poner(*base, QStringLiteral("update quotes set NOMBRE = ?, FECHA = ? where VALOR = 1"));
    poner.bind(1, QVariant()).bind(2, QDate()).exec();
    Query leer(*base, QStringLiteral("select NOMBRE, FECHA from quotes"));
    ASSERT_TRUE(leer.next());
    EXPECT_TRUE(leer.isNull(0));
    EXPECT_EQ(leer.text(0), QString());
    EXPECT_FALSE(leer.date(1).isValid());

    EXPECT_THROW(poner.bind(3, 1), RuntimeError);
    EXPECT_THROW(Query(*base, QStringLiteral("select * from quotes where NOMBRE = 'x")), RuntimeError);
}

TEST_F(SmallBase, DatesReadFromTheStoredText)
{
    const struct {
        const char *texto;
        QDate dia;
    } casos[] = {{"2024-02-05", QDate(2024, 2, 5)},
                 {"2024-02-05T10:30:00", QDate(2024, 2, 5)},
                 {"2024-02-30", QDate()},
                 {"2024-13-01", QDate()},
                 {"05/02/2024", QDate()},
                 {"2024-0a-05", QDate()},
                 {"2024-02-05x", QDate(2024, 2, 5)},
                 {"2024-02-29", QDate(2024, 2, 29)},
                 {"2023-02-29", QDate()},
                 {"1900-02-29", QDate()},
                 {"2000-02-29", QDate(2000, 2, 29)},
                 {"1601-03-01", QDate(1601, 3, 1)},
                 {"1970-01-01", QDate(1970, 1, 1)},
                 {"9999-12-31", QDate(9999, 12, 31)},
                 {"0000-01-01", QDate()}};
    for (const auto &c : casos) {
        Query q(*base, QStringLiteral("select ?"));
        q.bind(1, QString::fromLatin1(c.texto));
        ASSERT_TRUE(q.next());
        EXPECT_EQ(q.date(0), c.dia) << c.texto;
    }
}

TEST_F(SmallBase, TwoLiveQueriesOfOneTextDoNotShareTheirPlace)
{
    fill(3);
    const QString texto = QStringLiteral("select VALOR from quotes order by VALOR");
    Query fuera(*base, texto);
    ASSERT_TRUE(fuera.next());
    {
        Query dentro(*base, texto);
        int filas = 0;
        while (dentro.next())
            ++filas;
        EXPECT_EQ(filas, 3);
    }
    ASSERT_TRUE(fuera.next());
    EXPECT_EQ(fuera.whole(0), 2);
}

TEST_F(SmallBase, TransactionsRollBackOrKeepWhatWasWritten)
{
    fill(2);
    const QString borrar = QStringLiteral("delete * from quotes where VALOR = ?");
    {
        Transaction t(*base);
        Query(*base, borrar).bind(1, 1).exec();
    } // left without commit: undone
    EXPECT_EQ(contar(*base), 2);
    try {
        Transaction t(*base, Transaction::OnLeave::KeepWritten);
        Query(*base, borrar).bind(1, 1).exec();
        throw RuntimeError(err::EngineError, QStringLiteral("línea mala"));
    } catch (const RuntimeError &) {
    }
    EXPECT_EQ(contar(*base), 1); // what came before the failure stays
    {
        Transaction t(*base);
        Query(*base, borrar).bind(1, 2).exec();
        t.commit();
    }
    EXPECT_EQ(contar(*base), 0);
    EXPECT_FALSE(base->inTransaction());
}

} // namespace
