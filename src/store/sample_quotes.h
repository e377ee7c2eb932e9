#pragma once
#include <QDate>
#include <QVector>
#include <cstdint>

struct sqlite3;

namespace tesorel
{

// What the sample quote generator writes into bolsa. The same options give
// the same rows on every machine: the walk uses its own PRNG and plain
// arithmetic, never the library's distributions.
struct SampleQuoteOptions {
    QVector<int> values;      // codes to quote
    QVector<int> indexValues; // of those, the ones quoted in points (thousands)
    QDate firstDay;
    QDate lastDay;
    std::uint64_t seed = 20261120;
    int splitValue = 0; // this value halves its price on splitDay (2:1)
    QDate splitDay;
    int zeroCloseValue = 0; // this value closes at 0 on the days below
    QVector<QDate> zeroCloseDays;
};

// Monday to Friday between both days, leaving out 1 January and 25 December.
QVector<QDate> tradingDays(const QDate &first, const QDate &last);

// Inserts one bolsa row a value and trading day, in one transaction, with
// prepared statements on the raw handle. Returns the number of rows written.
// Throws RuntimeError with the engine's message if the insert fails; the
// transaction is then rolled back.
long insertSampleQuotes(sqlite3 *db, const SampleQuoteOptions &options);

// splitmix64: small, fast and the same everywhere.
class SplitMix64
{
  public:
    explicit SplitMix64(std::uint64_t seed) : state_(seed) {}
    std::uint64_t next()
    {
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    // Uniform in [0, 1) with 53 bits.
    double uniform() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }

  private:
    std::uint64_t state_;
};

} // namespace tesorel
