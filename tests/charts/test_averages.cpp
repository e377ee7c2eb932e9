#include "charts/maximos.h"
#include "charts/mmedia.h"
#include "errores.h"

#include <gtest/gtest.h>
#include <vector>

namespace tesorel
{
namespace
{

using testing::errorOf;

enum class Op { Max, Maxi, Min, Mini };

// Values fed one by one with a period, and what each call returns.
template <class Kind> struct Series {
    const char *name;
    Kind kind;
    double period;
    std::vector<double> values;
    std::vector<double> expected;
    std::vector<double> periods = {}; // the period written back after each call, if given
};

// Expected values worked out by hand from the definitions.
const Series<ClaseMedia> kAverages[] = {
    // Exponential, period 3: weight 2 / 4 = 0.5.
    {"exponential", ClaseMedia::Exponencial, 3, {10, 20, 0, 30}, {10, 15, 7.5, 18.75}, {3, 3, 3, 3}},
    // Period 1 has weight 1: the average reaches exactly 0 and restarts at 7.
    {"exponential restarts at 0", ClaseMedia::Exponencial, 1, {4, 0, 7, 9}, {4, 0, 7, 9}},
    // Simple, period 3: windows of 1, 2, then 3 values, and the caller's period shortened to match.
    {"simple warm-up", ClaseMedia::Simple, 3, {3, 6, 9, 12}, {3, 4.5, 6, 9}, {1, 2, 3, 3}},
    // A zero shortens the window: 6/1, (6+0)/1, (6+0+3)/2.
    {"simple leaves zeros out", ClaseMedia::Simple, 3, {6, 0, 3}, {6, 6, 4.5}},
    // Weighted, period 3: 1/1, (2*2+1*1)/3, (3*3+2*1+1*2)/6, (3*4+2*2+1*3)/6.
    {"weighted", ClaseMedia::Ponderada, 3, {1, 2, 3, 4}, {1, 5.0 / 3, 13.0 / 6, 19.0 / 6}, {1, 2, 3, 3}},
    {"unknown kind", ClaseMedia(4), 3, {5, 6}, {0, 0}},
};

TEST(MMedia, AveragesByKind)
{
    for (const Series<ClaseMedia> &c : kAverages) {
        MMedia m;
        for (std::size_t i = 0; i < c.values.size(); ++i) {
            double period = c.period;
            EXPECT_DOUBLE_EQ(m.Siguiente(c.values[i], 0, period, c.kind), c.expected[i])
                << c.name << " #" << i;
            if (!c.periods.empty())
                EXPECT_EQ(period, c.periods[i]) << c.name << " #" << i;
        }
    }
}

TEST(MMedia, UnknownKindFeedsNothing)
{
    MMedia m;
    m.Siguiente(100, 0, 3, ClaseMedia(9));
    // Still the first value of the simple average.
    EXPECT_DOUBLE_EQ(m.Siguiente(8, 0, 3, ClaseMedia::Simple), 8);
}

TEST(MMedia, Failures)
{
    struct Case {
        const char *name;
        ClaseMedia kind;
        double period, value;
        int calls;
        int number;
    } cases[] = {
        {"simple period 0", ClaseMedia::Simple, 0, 5, 1, err::DivisionByZero},
        {"weighted period 0", ClaseMedia::Ponderada, 0, 5, 1, err::DivisionByZero},
        {"simple first value 0", ClaseMedia::Simple, 3, 0, 1, err::Overflow}, // 0 / 0
        {"simple past 200 places", ClaseMedia::Simple, 250, 1, 201, err::SubscriptOutOfRange},
        {"weighted past 200 places", ClaseMedia::Ponderada, 250, 1, 201, err::SubscriptOutOfRange},
    };
    for (const Case &c : cases) {
        MMedia m;
        for (int i = 1; i < c.calls; ++i) {
            double period = c.period;
            EXPECT_NO_THROW(m.Siguiente(c.value, 0, period, c.kind)) << c.name;
        }
        double period = c.period;
        EXPECT_EQ(errorOf([&] { m.Siguiente(c.value, 0, period, c.kind); }), c.number) << c.name;
    }
}

const Series<Op> kExtremes[] = {
    // Ages from 0, runs out when the age equals 3; the follow-up is the
    // best seen since the reset (4), kept even once it is older than 3.
    {"Max by candidates", Op::Max, 3, {5, 3, 4, 2, 1, 0}, {5, 5, 5, 4, 4, 4}},
    {"Max renews on equal values", Op::Max, 2, {5, 5, 5, 1}, {5, 5, 5, 5}},
    // Ages from 1, runs out at or above 3: after three values 5 gives way
    // to 6 though it is still in the window.
    {"Mini by candidates", Op::Mini, 3, {5, 7, 6, 8, 9}, {5, 5, 6, 6, 6}},
    {"Maxi over the ring", Op::Maxi, 3, {2, 5, 1, 1, 1}, {2, 5, 5, 5, 1}},
    {"Maxi starts at 0", Op::Maxi, 2, {-3, -1}, {0, 0}},
    // Empty places hold 0: 0 until five values are in.
    {"Min warm-up zeros", Op::Min, 5, {5, 4, 6, 7, 8, 9, 10}, {0, 0, 0, 0, 4, 4, 6}},
};

TEST(Maximos, RingKeepsItsPlaceWhenThePeriodChanges)
{
    // Period 4 fills places 1..4; period 2 goes on from 4 Mod 2 + 1 = 1 and
    // reads places 1 and 2 only; 2.5 moves as 2 (rounded) and reads up to 2.
    Maximos m;
    for (double v : {1, 2, 3, 4})
        m.Maxi(v, 4);
    EXPECT_EQ(m.Maxi(9, 2), 9);   // ring 9 2 3 4
    EXPECT_EQ(m.Maxi(0, 2), 9);   // ring 9 0 3 4
    EXPECT_EQ(m.Maxi(1, 2.5), 1); // ring 1 0 3 4
    EXPECT_EQ(m.Maxi(-5, 4), 4);  // place 2: ring 1 -5 3 4
}

double feed(Maximos &m, Op op, double v, double n)
{
    switch (op) {
    case Op::Max:
        return m.Max(v, n);
    case Op::Maxi:
        return m.Maxi(v, n);
    case Op::Min:
        return m.Min(v, n);
    case Op::Mini:
        return m.Mini(v, n);
    }
    return 0;
}

TEST(Maximos, ExtremesByKind)
{
    for (const Series<Op> &c : kExtremes) {
        Maximos m;
        for (std::size_t i = 0; i < c.values.size(); ++i)
            EXPECT_DOUBLE_EQ(feed(m, c.kind, c.values[i], c.period), c.expected[i]) << c.name << " #" << i;
    }
}

TEST(Maximos, RingFailures)
{
    struct Case {
        Op op;
        double period;
        int number;
    } cases[] = {{Op::Maxi, 0, err::DivisionByZero},
                 {Op::Min, 0, err::DivisionByZero},
                 {Op::Maxi, 201, err::SubscriptOutOfRange},
                 {Op::Min, 201, err::SubscriptOutOfRange}};
    for (const Case &c : cases) {
        Maximos m;
        EXPECT_EQ(errorOf([&] { feed(m, c.op, 1, c.period); }), c.number) << c.period;
    }
}

} // namespace
} // namespace tesorel
