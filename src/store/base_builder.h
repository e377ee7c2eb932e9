#pragma once
#include "store/sample_quotes.h"

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>

struct sqlite3;

namespace tesorel
{

class Database;

// How a base file is made from the data folder (schema.sql and one CSV a
// reference table) and, on demand, the sample quotes and the demo user.
struct BaseBuildOptions {
    QString dataDir;
    bool sample = false;
    // The sample history: three years of trading days up to a fixed day, so
    // that every build gives the same base.
    QDate sampleFirstDay = QDate(2023, 11, 20);
    QDate sampleLastDay = QDate(2026, 11, 20);
    std::uint64_t seed = 20261120;
    // Books the demo user's ledger and positions (the portfolio's
    // apuntarLibroDemo); the store has no booking of its own.
    std::function<void(Database &, double usuario)> demoLedger;
};

// The demo user of the sample base; its password is the same word.
inline constexpr const char *kDemoUser = "demo";
// The value that splits 2:1 in the sample, and the one with days closed at 0.
inline constexpr const char *kSplitTicker = "ITX";
inline const QDate kSplitDay = QDate(2025, 6, 2);
inline constexpr const char *kZeroCloseTicker = "PVA";

// A CSV text as the data folder holds it: UTF-8 (a leading BOM is dropped),
// comma separated, fields in double quotes may hold commas, quotes ("") and
// line ends; CR LF or LF between records; blank lines are skipped.
struct CsvTable {
    QStringList header;
    QVector<QStringList> rows;
};
CsvTable parseCsv(const QByteArray &text);

// Builds a new base file at outPath. Refuses an existing file
// (RuntimeError 58); a missing schema gives RuntimeError 53. Any other
// failure leaves no file behind.
void buildBase(const QString &outPath, const BaseBuildOptions &options);

// The steps of buildBase, on an open handle (also used by the benchmarks).
void loadSchema(sqlite3 *db, const QString &dataDir);
// Every *.csv of the folder into the table of the same name, in one
// transaction. An empty field is null; the column types make numbers of
// numeric text. Returns the rows written.
long loadReferenceTables(sqlite3 *db, const QString &dataDir);
// The sample quotes for every value of Codigo_Empresas over the given days.
SampleQuoteOptions sampleQuoteOptions(sqlite3 *db, const BaseBuildOptions &options);
// The demo user, its favourites, notes and the session row; needs the
// quotes in place. Returns the user's number.
double addDemoUser(Database &db);

} // namespace tesorel
