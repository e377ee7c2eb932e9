// The sample quote generator and the build of a base from the data folder.
#include "store/base_builder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace
{

// The data folder of the source tree, found from this file's own path.
const QString kDataDir = QFileInfo(QStringLiteral(__FILE__)).dir().filePath(QStringLiteral("../data"));

// An in-memory base with the schema and reference tables.
sqlite3 *referenceBase()
{
    sqlite3 *db = nullptr;
    sqlite3_open(":memory:", &db);
    tesorel::loadSchema(db, kDataDir);
    tesorel::loadReferenceTables(db, kDataDir);
    return db;
}

// values x years of quotes into a fresh in-memory base.
void BM_SampleQuotes(benchmark::State &state)
{
    const int values = static_cast<int>(state.range(0));
    const int years = static_cast<int>(state.range(1));
    tesorel::SampleQuoteOptions options;
    for (int v = 1; v <= values; ++v)
        options.values.append(v);
    options.indexValues = {1, 2, 3, 4};
    options.lastDay = QDate(2026, 11, 20);
    options.firstDay = options.lastDay.addYears(-years);
    long rows = 0;
    for (auto _ : state) {
        state.PauseTiming();
        sqlite3 *db = referenceBase();
        state.ResumeTiming();
        rows = tesorel::insertSampleQuotes(db, options);
        state.PauseTiming();
        sqlite3_close(db);
        state.ResumeTiming();
    }
    state.counters["rows"] = static_cast<double>(rows);
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(BM_SampleQuotes)->Args({130, 3})->Args({160, 25})->Unit(benchmark::kMillisecond);

// The whole sample base as the build makes it, on disk.
void BM_BuildSampleBase(benchmark::State &state)
{
    QTemporaryDir dir;
    tesorel::BaseBuildOptions options;
    options.dataDir = kDataDir;
    options.sample = true;
    int n = 0;
    for (auto _ : state) {
        const QString path = dir.filePath(QStringLiteral("base%1.mdb").arg(n++));
        tesorel::buildBase(path, options);
        state.PauseTiming();
        QFile::remove(path);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_BuildSampleBase)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
