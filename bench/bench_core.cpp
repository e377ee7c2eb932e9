// The conversions run for every row a window shows: masks, readers, Str.
#include "core/currency.h"
#include "core/format.h"
#include "core/numbers.h"

#include <QLocale>
#include <benchmark/benchmark.h>

using namespace tesorel;

namespace
{

void BM_FormatGroupedMask(benchmark::State &state)
{
    const QString mask = QStringLiteral("###,###,##0.00 ");
    double v = 1234567.891;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Format(v, mask));
        v += 0.01;
    }
}
BENCHMARK(BM_FormatGroupedMask);

// Qt's own Spanish formatting of the same figure, as a yardstick.
void BM_QtLocaleBaseline(benchmark::State &state)
{
    const QLocale spanish(QLocale::Spanish, QLocale::Spain);
    double v = 1234567.891;
    for (auto _ : state) {
        benchmark::DoNotOptimize(spanish.toString(v, 'f', 2));
        v += 0.01;
    }
}
BENCHMARK(BM_QtLocaleBaseline);

void BM_Str(benchmark::State &state)
{
    double v = 1234.5678;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Str(v));
        v += 0.25;
    }
}
BENCHMARK(BM_Str);

void BM_NumeroVal(benchmark::State &state)
{
    const QString text = QStringLiteral(" 1234.5678");
    for (auto _ : state)
        benchmark::DoNotOptimize(Numero_Val(text));
}
BENCHMARK(BM_NumeroVal);

void BM_CDbl(benchmark::State &state)
{
    const QString text = QStringLiteral("1.234,5678");
    for (auto _ : state)
        benchmark::DoNotOptimize(CDbl(text));
}
BENCHMARK(BM_CDbl);

void BM_CurrencyFromDouble(benchmark::State &state)
{
    double v = 1234.56785;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Currency::fromDouble(v));
        v += 0.0001;
    }
}
BENCHMARK(BM_CurrencyFromDouble);

} // namespace

BENCHMARK_MAIN();
