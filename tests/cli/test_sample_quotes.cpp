#include "sample_base.h"

#include "core/runtime_error.h"

#include <QCryptographicHash>
#include <gtest/gtest.h>
#include <sqlite3.h>

using namespace tesorel;
using tesorel::testing::SampleBase;

namespace
{

// A private in-memory base with the schema, closed on scope exit.
struct MemoryBase {
    sqlite3 *db = nullptr;
    MemoryBase()
    {
        sqlite3_open(":memory:", &db);
        loadSchema(db, SampleBase::dataDir());
    }
    ~MemoryBase() { sqlite3_close(db); }
    double number(const char *sql) const
    {
        sqlite3_stmt *s = nullptr;
        sqlite3_prepare_v2(db, sql, -1, &s, nullptr);
        const double v = sqlite3_step(s) == SQLITE_ROW ? sqlite3_column_double(s, 0) : -1;
        sqlite3_finalize(s);
        return v;
    }
};

QByteArray bolsaChecksum(sqlite3 *db)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    sqlite3_stmt *s = nullptr;
    sqlite3_prepare_v2(
        db,
        "SELECT VALOR, FECHA, ANTERIOR, ULTIMO, DIF, VOLUMEN, MAXIMO, MINIMO, EFECT FROM bolsa "
        "ORDER BY VALOR, FECHA",
        -1, &s, nullptr);
    while (sqlite3_step(s) == SQLITE_ROW) {
        for (int i = 0; i < 9; ++i)
            hash.addData(QByteArrayView(reinterpret_cast<const char *>(sqlite3_column_text(s, i))));
    }
    sqlite3_finalize(s);
    return hash.result().toHex();
}

SampleQuoteOptions smallOptions()
{
    SampleQuoteOptions o;
    o.values = {1, 7, 8, 9};
    o.indexValues = {1};
    o.firstDay = QDate(2025, 12, 1);
    o.lastDay = QDate(2026, 3, 31);
    o.splitValue = 8;
    o.splitDay = QDate(2026, 2, 2);
    o.zeroCloseValue = 9;
    o.zeroCloseDays = {QDate(2026, 1, 14), QDate(2026, 1, 15)};
    return o;
}

} // namespace

TEST(TradingDays, WeekdaysWithoutNewYearAndChristmas)
{
    const struct {
        QDate first, last;
        int count;
    } cases[] = {
        {QDate(2026, 11, 16), QDate(2026, 11, 22), 5}, // Monday to Sunday
        {QDate(2025, 12, 24), QDate(2026, 1, 2), 6},   // 24, 26, 29, 30, 31 Dec and 2 Jan
        {QDate(2026, 1, 5), QDate(2026, 1, 2), 0},     // reversed
        {QDate(), QDate(2026, 1, 2), 0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.first.toString(Qt::ISODate).toStdString());
        EXPECT_EQ(tradingDays(c.first, c.last).size(), c.count);
    }
}

TEST(SampleQuotes, RowsHangTogetherDayAfterDay)
{
    MemoryBase m;
    const SampleQuoteOptions o = smallOptions();
    const long rows = insertSampleQuotes(m.db, o);
    EXPECT_EQ(rows, o.values.size() * tradingDays(o.firstDay, o.lastDay).size());
    EXPECT_EQ(m.number("SELECT COUNT(*) FROM bolsa"), rows);

    const struct {
        const char *what;
        const char *sql; // counts the rows that break the rule
    } rules[] = {
        {"previous close is the close before, but on the split day",
         "SELECT COUNT(*) FROM (SELECT VALOR, FECHA, ANTERIOR, LAG(ULTIMO) OVER (PARTITION BY VALOR ORDER BY "
         "FECHA)"
         " AS p FROM bolsa WHERE ULTIMO <> 0) WHERE p IS NOT NULL AND ANTERIOR <> p"
         " AND NOT (VALOR = 8 AND FECHA = '2026-02-02')"},
        {"high above open and close", "SELECT COUNT(*) FROM bolsa WHERE MAXIMO < ULTIMO OR MAXIMO < MINIMO"},
        {"low below close",
         "SELECT COUNT(*) FROM bolsa WHERE ULTIMO > 0 AND (MINIMO > ULTIMO OR MINIMO <= 0)"},
        {"change from the two closes", "SELECT COUNT(*) FROM bolsa WHERE ULTIMO > 0 AND ABS(DIF - (ULTIMO - "
                                       "ANTERIOR) * 100 / ANTERIOR) > 0.005"},
        {"money in thousands is shares at a price of the day",
         "SELECT COUNT(*) FROM bolsa WHERE VALOR <> 1 AND ULTIMO > 0"
         " AND (EFECT * 1000 < VOLUMEN * MINIMO - 10 OR EFECT * 1000 > VOLUMEN * MAXIMO + 10)"},
        {"shares stocks between 1 and 100 euros",
         "SELECT COUNT(*) FROM bolsa WHERE VALOR <> 1 AND ULTIMO > 0 AND (ULTIMO < 0.5 OR ULTIMO > 150)"},
        {"index in thousands of points", "SELECT COUNT(*) FROM bolsa WHERE VALOR = 1 AND ULTIMO < 500"},
        {"whole shares", "SELECT COUNT(*) FROM bolsa WHERE VOLUMEN <> ROUND(VOLUMEN)"},
    };
    for (const auto &r : rules) {
        SCOPED_TRACE(r.what);
        EXPECT_EQ(m.number(r.sql), 0);
    }
    EXPECT_EQ(m.number("SELECT COUNT(*) FROM bolsa WHERE ULTIMO = 0"), 2);
    EXPECT_EQ(
        m.number("SELECT COUNT(*) FROM bolsa WHERE VALOR = 9 AND ULTIMO = 0 AND FECHA IN ('2026-01-14', "
                 "'2026-01-15')"),
        2);
    EXPECT_NEAR(
        m.number("SELECT (SELECT ULTIMO FROM bolsa WHERE VALOR = 8 AND FECHA = '2026-01-30') / ANTERIOR "
                 "FROM bolsa WHERE VALOR = 8 AND FECHA = '2026-02-02'"),
        2.0, 0.001);
}

// The same options give the same rows, another seed others; a value's series does not
// depend on which other values are drawn with it.
TEST(SampleQuotes, SameOptionsSameRowsOtherSeedOtherRows)
{
    MemoryBase a, b, c, solo;
    SampleQuoteOptions o = smallOptions();
    insertSampleQuotes(a.db, o);
    insertSampleQuotes(b.db, o);
    o.seed += 1;
    insertSampleQuotes(c.db, o);
    EXPECT_EQ(bolsaChecksum(a.db), bolsaChecksum(b.db));
    EXPECT_NE(bolsaChecksum(a.db), bolsaChecksum(c.db));
    o = smallOptions();
    o.values = {9};
    insertSampleQuotes(solo.db, o);
    EXPECT_EQ(a.number("SELECT SUM(ULTIMO) FROM bolsa WHERE VALOR = 9"),
              solo.number("SELECT SUM(ULTIMO) FROM bolsa"));
}

TEST(SampleQuotes, AFailedInsertLeavesNothing)
{
    MemoryBase m;
    sqlite3_exec(m.db,
                 "CREATE TRIGGER no_nine BEFORE INSERT ON bolsa WHEN NEW.VALOR = 9 BEGIN SELECT "
                 "RAISE(ABORT, 'refused'); END",
                 nullptr, nullptr, nullptr);
    EXPECT_THROW(insertSampleQuotes(m.db, smallOptions()), RuntimeError);
    EXPECT_EQ(m.number("SELECT COUNT(*) FROM bolsa"), 0);
}
