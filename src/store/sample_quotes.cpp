#include "store/sample_quotes.h"

#include "core/runtime_error.h"
#include "store/sqlite_steps.h"

#include <QSet>
#include <algorithm>
#include <cmath>
#include <sqlite3.h>
#include <string>
#include <vector>

namespace tesorel
{

QVector<QDate> tradingDays(const QDate &first, const QDate &last)
{
    QVector<QDate> days;
    if (!first.isValid() || !last.isValid())
        return days;
    for (QDate d = first; d <= last; d = d.addDays(1)) {
        if (d.dayOfWeek() >= 6)
            continue;
        if ((d.month() == 1 && d.day() == 1) || (d.month() == 12 && d.day() == 25))
            continue;
        days.append(d);
    }
    return days;
}

namespace
{

constexpr double kMarketSharePrice = 12.5;

double roundTo(double x, double scale)
{
    return std::round(x * scale) / scale;
}

// A normal-looking step from four uniforms (Irwin-Hall), scaled to sd 1.
double gaussianish(SplitMix64 &rng)
{
    const double sum = rng.uniform() + rng.uniform() + rng.uniform() + rng.uniform();
    return (sum - 2.0) / 0.5773502691896258;
}

struct Walk {
    bool isIndex = false;
    double price = 0;     // unrounded level of the walk
    double lastClose = 0; // as stored, the last non-zero close
    double baseVolume = 0;
    double sigma = 0;
    double low = 0, high = 0; // soft bounds that push the walk back
    double scale = 1000;      // stocks quote to 0.001, indices to 0.01
};

Walk startWalk(SplitMix64 &rng, bool isIndex)
{
    Walk w;
    w.isIndex = isIndex;
    const double u = rng.uniform();
    if (isIndex) {
        w.price = 800 + 14000 * u;
        w.baseVolume = 2e8 + 3e8 * rng.uniform();
        w.sigma = 0.010;
        w.low = 500;
        w.high = 30000;
        w.scale = 100;
    } else {
        w.price = 2 + 58 * u * u; // more cheap shares than dear ones, as on the market
        const double v = rng.uniform();
        w.baseVolume = 2e4 + 3e7 * v * v;
        w.sigma = 0.018;
        w.low = 1.2;
        w.high = 95;
    }
    w.lastClose = roundTo(w.price, w.scale);
    return w;
}

struct Row {
    double anterior, ultimo, dif, volumen, maximo, minimo, efect;
};

Row tradingDay(Walk &w, SplitMix64 &rng, bool split)
{
    double anterior = w.lastClose;
    if (split) {
        // The exchange publishes the adjusted previous close on the day of a
        // split: the chart finds the split by that difference.
        w.price /= 2;
        w.baseVolume *= 2;
        anterior = roundTo(w.lastClose / 2, w.scale);
    }
    double drift = 0;
    if (w.price < w.low)
        drift = 0.004;
    else if (w.price > w.high)
        drift = -0.004;
    w.price *= 1 + drift + w.sigma * gaussianish(rng);

    Row r;
    r.anterior = anterior;
    r.ultimo = std::max(roundTo(w.price, w.scale), 1 / w.scale);
    const double open =
        std::max(roundTo(anterior * (1 + (rng.uniform() - 0.5) * 0.01), w.scale), 1 / w.scale);
    const double top = std::max(open, r.ultimo);
    const double bottom = std::min(open, r.ultimo);
    r.maximo = std::max(top, roundTo(top * (1 + rng.uniform() * 0.012), w.scale));
    r.minimo =
        std::min(bottom, std::max(roundTo(bottom * (1 - rng.uniform() * 0.012), w.scale), 1 / w.scale));
    r.dif = roundTo((r.ultimo - anterior) * 100 / anterior, 100);
    r.volumen = std::round(w.baseVolume * (0.4 + 1.2 * rng.uniform()));
    // An index has no price of its own: its money is the shares traded at
    // an average share price of the market.
    const double averagePrice = w.isIndex ? kMarketSharePrice : (r.maximo + r.minimo + r.ultimo) / 3;
    // Money traded is stored in thousands of euros, as the quote sources give it.
    r.efect = roundTo(r.volumen * averagePrice / 1000, 100);
    w.lastClose = r.ultimo;
    return r;
}

// A suspended day: the closes file gives 0 and nothing was traded.
Row zeroCloseDay(const Walk &w)
{
    return Row{w.lastClose, 0, 0, 0, 0, 0, 0};
}

} // namespace

long insertSampleQuotes(sqlite3 *db, const SampleQuoteOptions &options)
{
    const QVector<QDate> days = tradingDays(options.firstDay, options.lastDay);
    std::vector<std::string> dayTexts;
    dayTexts.reserve(days.size());
    for (const QDate &d : days)
        dayTexts.push_back(d.toString(Qt::ISODate).toStdString());
    const QSet<int> indices(options.indexValues.begin(), options.indexValues.end());
    const QSet<QDate> zeroDays(options.zeroCloseDays.begin(), options.zeroCloseDays.end());

    return inTransaction(db, [&] {
        long written = 0;
        Statement insert(
            db,
            QStringLiteral("INSERT INTO bolsa (VALOR, FECHA, ANTERIOR, ULTIMO, DIF, VOLUMEN, MAXIMO, MINIMO, "
                           "EFECT) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"));
        sqlite3_stmt *s = insert.get();
        for (int value : options.values) {
            // One stream a value, so adding a value leaves the others as they were.
            SplitMix64 rng(options.seed ^ (static_cast<std::uint64_t>(value) * 0xD1B54A32D192ED03ull));
            rng.next();
            Walk walk = startWalk(rng, indices.contains(value));
            for (qsizetype i = 0; i < days.size(); ++i) {
                const bool zero = value == options.zeroCloseValue && zeroDays.contains(days[i]);
                const bool split = value == options.splitValue && days[i] == options.splitDay;
                const Row r = zero ? zeroCloseDay(walk) : tradingDay(walk, rng, split);
                sqlite3_bind_int(s, 1, value);
                sqlite3_bind_text(s, 2, dayTexts[i].c_str(), static_cast<int>(dayTexts[i].size()),
                                  SQLITE_STATIC);
                sqlite3_bind_double(s, 3, r.anterior);
                sqlite3_bind_double(s, 4, r.ultimo);
                sqlite3_bind_double(s, 5, r.dif);
                sqlite3_bind_double(s, 6, r.volumen);
                sqlite3_bind_double(s, 7, r.maximo);
                sqlite3_bind_double(s, 8, r.minimo);
                sqlite3_bind_double(s, 9, r.efect);
                if (sqlite3_step(s) != SQLITE_DONE)
                    engineFailure(db);
                sqlite3_reset(s);
                ++written;
            }
        }
        return written;
    });
}

} // namespace tesorel
