// The store on a full-size base: finding a day in the whole quote table,
// reading one value's history, and adding rows through a recordset against
// the raw engine.
#include "charts/quote_loader.h"
#include "store/database.h"
#include "store/quote_cursor.h"
#include "store/recordset.h"
#include "support/full_base.h"
#include "support/raw_sqlite.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <sqlite3.h>

using namespace tesorel;

namespace
{

std::shared_ptr<Database> fullBase()
{
    static const auto db = Database::open(bench::fullBasePath());
    return db;
}

void BM_FindFirstDateOnWholeBolsa(benchmark::State &state)
{
    auto rs = fullBase()->openRecordset(QStringLiteral("select * from bolsa"));
    const QList<QDate> &days = bench::fullBaseDays();
    qsizetype i = 0;
    for (auto _ : state) {
        const QDate day = days[(i += 977) % days.size()];
        rs->FindFirst(QStringLiteral("FECHA = #") + day.toString(QStringLiteral("MM-dd-yy")) + u'#');
        benchmark::DoNotOptimize(rs->field(0));
    }
    state.counters["rows"] = double(days.size() * bench::kFullBaseValues);
}
BENCHMARK(BM_FindFirstDateOnWholeBolsa)->Unit(benchmark::kMicrosecond);

void BM_OpenWholeBolsa(benchmark::State &state)
{
    for (auto _ : state) {
        auto rs = fullBase()->openRecordset(QStringLiteral("select * from bolsa"));
        benchmark::DoNotOptimize(rs->Eof());
    }
}
BENCHMARK(BM_OpenWholeBolsa)->Unit(benchmark::kMicrosecond);

void BM_OpenOneValueAndWalkAllFields(benchmark::State &state)
{
    int value = 0;
    long rows = 0;
    for (auto _ : state) {
        value = value % bench::kFullBaseValues + 1;
        auto rs = fullBase()->openRecordset(
            QStringLiteral("Select * from bolsa where valor = %1 order by fecha").arg(value));
        rows = 0;
        for (; !rs->Eof(); rs->MoveNext(), ++rows)
            for (int f = 0; f < rs->fieldCount(); ++f)
                benchmark::DoNotOptimize(rs->field(f));
    }
    state.counters["rows"] = double(rows);
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(BM_OpenOneValueAndWalkAllFields)->Unit(benchmark::kMillisecond);

// The chart's copy of one value's series into the quote cursor, through the
// recordset as the program has always done it (count after MoveLast, then
// every row again).
void BM_FillRecordSetoOneValue(benchmark::State &state)
{
    int value = 0;
    RecordSeto cursor;
    for (auto _ : state) {
        value = value % bench::kFullBaseValues + 1;
        auto rs = fullBase()->openRecordset(
            QStringLiteral("Select * from bolsa where valor = %1 order by fecha").arg(value));
        cursor.fillFrom(*rs);
    }
    state.counters["rows"] = cursor.recordcount();
    state.SetItemsProcessed(state.iterations() * long(cursor.recordcount()));
}
BENCHMARK(BM_FillRecordSetoOneValue)->Unit(benchmark::kMillisecond);

// The same copy as the chart makes it: the engine's columns read in place.
void BM_FillRecordSetoDirect(benchmark::State &state)
{
    int value = 0;
    RecordSeto cursor;
    for (auto _ : state) {
        value = value % bench::kFullBaseValues + 1;
        cargarSerie(*fullBase(), value, cursor);
    }
    state.counters["rows"] = cursor.recordcount();
    state.SetItemsProcessed(state.iterations() * long(cursor.recordcount()));
}
BENCHMARK(BM_FillRecordSetoDirect)->Unit(benchmark::kMillisecond);

// Both ways of adding the same rows, in the same run, into fresh bases.
void BM_AddNewVersusRawInsert(benchmark::State &state)
{
    constexpr int kRows = 20000;
    double recordsetSeconds = 0, rawSeconds = 0;
    for (auto _ : state) {
        auto viaRecordset = Database::open(bench::emptyBasePath());
        auto t0 = std::chrono::steady_clock::now();
        viaRecordset->beginTransaction();
        auto rs = viaRecordset->openRecordset(QStringLiteral("select * from bolsa"));
        for (int i = 0; i < kRows; ++i) {
            rs->AddNew();
            rs->setField(QStringLiteral("VALOR"), i % 160);
            rs->setField(QStringLiteral("FECHA"), QDate(2024, 1, 1).addDays(i / 160));
            rs->setField(QStringLiteral("ULTIMO"), 1.5 + i);
            rs->setField(QStringLiteral("ANTERIOR"), 1.0 + i);
            rs->Update();
        }
        viaRecordset->commit();
        recordsetSeconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();

        bench::RawSqlite raw(bench::emptyBasePath());
        t0 = std::chrono::steady_clock::now();
        raw.exec("BEGIN");
        {
            const bench::RawStmt insert =
                raw.prepare("INSERT INTO bolsa (VALOR, FECHA, ULTIMO, ANTERIOR) VALUES (?1, ?2, ?3, ?4)");
            for (int i = 0; i < kRows; ++i) {
                const QByteArray day = QDate(2024, 1, 1).addDays(i / 160).toString(Qt::ISODate).toLatin1();
                sqlite3_bind_int(insert.get(), 1, i % 160);
                sqlite3_bind_text(insert.get(), 2, day.constData(), int(day.size()), SQLITE_TRANSIENT);
                sqlite3_bind_double(insert.get(), 3, 1.5 + i);
                sqlite3_bind_double(insert.get(), 4, 1.0 + i);
                sqlite3_step(insert.get());
                sqlite3_reset(insert.get());
            }
        }
        raw.exec("COMMIT");
        rawSeconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    }
    const double n = double(state.iterations()) * kRows;
    state.counters["recordset_rows_per_s"] = n / recordsetSeconds;
    state.counters["raw_rows_per_s"] = n / rawSeconds;
    state.counters["recordset_over_raw"] = rawSeconds / recordsetSeconds;
}
BENCHMARK(BM_AddNewVersusRawInsert)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char **argv)
{
    // Build the full base before anything is timed.
    fullBase();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
