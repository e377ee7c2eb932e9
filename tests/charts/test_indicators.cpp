#include "charts/grafica.h"
#include "charts/indicators.h"
#include "errores.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace tesorel
{
namespace
{

using testing::errorOf;

TEST(Indicators, Macd)
{
    grafica g;
    IndicatorState st;
    struct Step {
        double second, first, macd, signal;
    } steps[] = {
        {12, 10, 2, 2},        // the signal starts at the first value
        {13, 10, 3, 2.25},     // (3 - 2) * 2/8 + 2
        {11, 10, 1, 1.9375},   // (1 - 2.25) * 0.25 + 2.25
        {9, 10, -1, 1.203125}, // (-1 - 1.9375) * 0.25 + 1.9375
    };
    double p = 1;
    for (const Step &s : steps) {
        grafica_macd(g, st, s.second, s.first, 0, p, 100);
        EXPECT_DOUBLE_EQ(g.valor(1, p), s.macd);
        EXPECT_DOUBLE_EQ(g.valor(2, p), s.signal);
        ++p;
    }
    EXPECT_EQ(g.NumSets(), 2);
    EXPECT_EQ(g.YAxisMin(), -1);
    // Point 1 starts a new signal line.
    grafica_macd(g, st, 15, 10, 0, 1, 100);
    EXPECT_DOUBLE_EQ(g.valor(2, 1), 5);
}

TEST(Indicators, MacdWhoseSignalFailsKeepsItsLine)
{
    grafica g;
    IndicatorState st;
    grafica_macd(g, st, 1e308, 0, 0, 1, 100);
    // (-1e308 - 1e308) * 0.25 overflows.
    EXPECT_EQ(errorOf([&] { grafica_macd(g, st, -1e308, 0, 0, 2, 100); }), err::Overflow);
    EXPECT_EQ(g.valor(1, 2), -1e308);
    EXPECT_EQ(g.valor(2, 2), 0); // never written
}

TEST(Indicators, Rsi)
{
    grafica g;
    IndicatorState st;
    struct Step {
        double dif, rsi;
    } steps[] = {
        {0, 0},                                            // u = d = 0, divisor 1
        {2, 100 - 100.0 / 3},                              // u = 2, d = 0 -> divisor 1
        {-1, 2600.0 / 41},                                 // u = 2 - 2 * 2/15 = 26/15, d = 1
        {-1, 100 - 100 / (1 + (26.0 / 15 * 13 / 15) / 1)}, // u shrinks, d stays 1
    };
    double p = 1;
    for (const Step &s : steps) {
        grafica_rsi(g, st, s.dif, 0, p);
        EXPECT_NEAR(g.valor(1, p), s.rsi, 1e-12) << p;
        EXPECT_EQ(g.valor(2, p), 30);
        EXPECT_EQ(g.valor(3, p), 70);
        ++p;
    }
    EXPECT_EQ(g.NumSets(), 3);
}

TEST(Indicators, OnALogarithmicChartTheyStoreLogarithms)
{
    bool log = true;
    grafica g(&log), r(&log);
    IndicatorState st, sr;
    grafica_macd(g, st, 110, 10, 0, 1, 100);  // MACD 100, stored as 2
    grafica_macd(g, st, 1010, 10, 0, 2, 100); // MACD 1000, stored as 3
    EXPECT_NEAR(g.valor(1, 2), 3, 1e-12);
    // The signal averages the logarithm: it starts at log 100 = 2 and moves a
    // quarter of the way to 3; the chart stores the logarithm of that.
    EXPECT_NEAR(g.valor(2, 2), std::log10(2.25), 1e-12);
    grafica_rsi(r, sr, 2, 0, 1); // a first gain: u = 2, d = 0, r = 100 - 100 / 3
    EXPECT_NEAR(r.valor(1, 1), std::log10(100 - 100.0 / 3), 1e-12);
    EXPECT_NEAR(r.valor(2, 1), std::log10(30), 1e-12);
    EXPECT_NEAR(r.valor(3, 1), std::log10(70), 1e-12);
}

TEST(Indicators, MomentumHistoryMovesOnlyTheFirstPlaces)
{
    // Against the history as the routine describes it: places 1 to n take
    // the places before them, the close goes to 0, places past n stay.
    std::array<double, 41> lugares{};
    auto referencia = [&](double cierre, int n) {
        const double antes = n >= 1 ? lugares[std::size_t(n - 1)] : cierre;
        for (int k = n; k >= 1; --k)
            lugares[std::size_t(k)] = lugares[std::size_t(k - 1)];
        lugares[0] = cierre;
        return cierre - antes;
    };
    grafica g;
    HistoriaMomentum h{};
    const int ns[] = {0,  1, 2,  3,  3,  3,  5, 2,  2,  7,  7, 7, 7, 40,
                      40, 1, 14, 14, 14, 14, 3, 40, 39, 39, 0, 6, 6};
    double p = 1;
    for (int n : ns) {
        const double cierre = p * p - 3 * p;
        grafica_momentum(g, cierre, n, p, h);
        EXPECT_EQ(g.valor(1, p), referencia(cierre, n)) << "call " << p << ", n " << n;
        ++p;
    }
    EXPECT_EQ(g.NumSets(), 1);
    EXPECT_EQ(errorOf([&] { grafica_momentum(g, 1, 41, 1, h); }), err::SubscriptOutOfRange);
}

TEST(Indicators, StochasticRatioOfSumsAndRingsThatNeverReset)
{
    grafica g;
    IndicatorState st;
    struct Step {
        double close, high, low, k, d;
    } steps[] = {
        {8, 10, 0, 80, 80},          // warm-up low 0: close / high
        {9, 10, 6, 75, 1100.0 / 14}, // (8+3) / (10+4)
        {6, 10, 6, 0, 1100.0 / 18},  // (8+3+0) / (10+4+4)
        {7, 7, 7, 0, 37.5},          // (0+3+0) / (0+4+4): first place overwritten
    };
    double p = 1;
    for (const Step &s : steps) {
        grafica_stocastico(g, st, s.close, s.high, s.low, 5, p);
        EXPECT_NEAR(g.valor(1, p), s.k, 1e-12) << p;
        EXPECT_EQ(g.valor(2, p), 20);
        EXPECT_EQ(g.valor(3, p), 80);
        EXPECT_NEAR(g.valor(4, p), s.d, 1e-12) << p;
        ++p;
    }
    EXPECT_EQ(g.NumSets(), 4);

    // A new chart from point 1 still sums the last two days of the old one
    // (steps 3 and 4); the new day replaces step 2.
    grafica next;
    grafica_stocastico(next, st, 5, 10, 0, 5, 1);
    EXPECT_NEAR(next.valor(4, 1), (0 + 0 + 5) * 100.0 / (0 + 4 + 10), 1e-12);
    // All denominators 0: %D is 0.
    IndicatorState flat;
    grafica_stocastico(next, flat, 5, 5, 5, 5, 2);
    EXPECT_EQ(next.valor(4, 2), 0);
}

} // namespace
} // namespace tesorel
