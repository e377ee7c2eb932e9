#include "charts/grafica.h"
#include "charts/recording_surface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tesorel
{
namespace
{

using Kind = RecordingSurface::Kind;
using Call = RecordingSurface::Call;
constexpr int kGrid = 6332608;

struct Seg {
    float x1, y1, x2, y2;
    int colour;
    bool operator==(const Seg &) const = default;
};

std::ostream &operator<<(std::ostream &o, const Seg &s)
{
    return o << "(" << s.x1 << "," << s.y1 << ")-(" << s.x2 << "," << s.y2 << ") c" << s.colour;
}

std::vector<Seg> segs(const RecordingSurface &box, Kind kind)
{
    std::vector<Seg> out;
    for (const Call &c : box.callsOf(kind))
        out.push_back(Seg{c.x1, c.y1, c.x2, c.y2, c.colour});
    return out;
}

// Lines that are not the grid's.
std::vector<Seg> plotLines(const RecordingSurface &box)
{
    std::vector<Seg> out;
    for (const Seg &s : segs(box, Kind::Line))
        if (s.colour != kGrid)
            out.push_back(s);
    return out;
}

std::vector<float> gridYs(const RecordingSurface &box)
{
    std::vector<float> out;
    for (const Seg &s : segs(box, Kind::Line))
        if (s.colour == kGrid && s.x1 == -5 && s.x2 == 1005)
            out.push_back(s.y1);
    return out;
}

// A chart on a recording box, filled as the price chart fills it.
struct Chart {
    RecordingSurface box;
    bool log = false;
    grafica g{&log};

    Chart()
    {
        g.Picture(&box);
        g.ColorCuadricula(kGrid);
        g.mascara("##0.##");
        g.graphtitle("TITULO");
    }
    // Fills the sets and draws them as `type`.
    void draw(double type, const std::vector<std::vector<double>> &sets)
    {
        g.graphtype(type);
        fill(sets);
        g.DrawMode(2);
    }
    void fill(const std::vector<std::vector<double>> &sets)
    {
        g.NumPoints(double(sets[0].size()));
        g.NumSets(double(sets.size()));
        for (std::size_t p = 0; p < sets[0].size(); ++p) {
            g.ThisPoint(double(p + 1));
            for (std::size_t s = 0; s < sets.size(); ++s) {
                g.ThisSet(double(s + 1));
                double v = sets[s][p];
                g.Graphdata(v);
            }
        }
    }
};

TEST(Trazar, LineChartScaleTitleGridAndSegments)
{
    Chart c;
    c.g.ColorLinea(1, 255);
    c.g.GruesoLinea(1, 1);
    c.draw(6, {{10, 20, 15}});

    const RecordingSurface &b = c.box;
    // R = 20: top 20 + 1.8, height -1.18 * 20.
    EXPECT_EQ(b.scaleTop(), float(21.8));
    EXPECT_EQ(b.scaleHeight(), float(-23.6));
    EXPECT_EQ(b.scaleLeft(), -65.f);
    EXPECT_EQ(b.scaleWidth(), 1100.f);
    ASSERT_EQ(b.callsOf(Kind::Clear).size(), 1u);

    // The title, half a line (1/20 of the height here) below the top.
    auto prints = b.callsOf(Kind::Print);
    ASSERT_EQ(prints.size(), 1u); // ticks 0: no labels
    EXPECT_EQ(prints[0].text, "TITULO");
    EXPECT_EQ(prints[0].x1, 0.f);
    EXPECT_FLOAT_EQ(prints[0].y1, 21.8f + (-23.6f / 20) / 2);

    // Top line, bottom line; then the two verticals.
    EXPECT_EQ(gridYs(b), (std::vector<float>{20, 0}));
    auto lines = segs(b, Kind::Line);
    EXPECT_EQ(lines[2], (Seg{1005, 20, 1005, 0, kGrid}));
    EXPECT_EQ(lines[3], (Seg{0, 0, 0, 20, kGrid}));

    EXPECT_EQ(plotLines(b), (std::vector<Seg>{{0, 10, 500, 20, 255}, {500, 20, 1000, 15, 255}}));
    for (const Call &l : b.callsOf(Kind::Line)) {
        if (l.colour == 255) {
            EXPECT_EQ(l.width, 2); // GruesoLinea + 1
        }
    }
    EXPECT_EQ(b.foreColor(), 1); // the set number
    EXPECT_EQ(c.g.YAxisMax(), 0);
    EXPECT_EQ(c.g.YAxisMin(), 0);
}

TEST(Trazar, AutomaticLabelsStartOneStepBelowTheTop)
{
    Chart c;
    c.g.YAxisTicks(4);
    c.draw(6, {{0, 20}});
    const RecordingSurface &b = c.box;

    // Step 20 / 4 = 5: three labels, the first reading 15 at the top.
    auto prints = b.callsOf(Kind::Print);
    ASSERT_EQ(prints.size(), 4u);
    const float h = -23.6f;
    const float line = h / 20;
    float y = 21.8f + h / 15.5f;
    const char *texts[] = {"15", "10", "5"};
    for (int i = 0; i < 3; ++i) {
        const Call &p = prints[i + 1];
        EXPECT_EQ(p.text, texts[i]);
        // Flush right at -15 with 10 units a character.
        EXPECT_EQ(p.x1, -15.f - 10.f * float(p.text.size()));
        EXPECT_NEAR(p.y1, y, 1e-4);
        EXPECT_EQ(p.colour, kGrid / 2);
        y = y + line - line + h / 12;
    }
    // The grid divides by ten: top twice, then 18 and 16, then the bottom.
    EXPECT_EQ(gridYs(b), (std::vector<float>{20, 20, 18, 16, 0}));
}

TEST(Trazar, CandlesWearTheColourOfTheDayBefore)
{
    Chart c;
    for (int s = 4; s <= 7; ++s)
        c.g.ColorLinea(s, 1000 + s);
    // close, high, low, three unused, one more, the body's other end
    c.draw(7, {{10, 12, 11},
               {12, 13, 12},
               {9, 10, 10.5},
               {0, 0, 0},
               {0, 0, 0},
               {0, 0, 0},
               {1, 2, 3},
               {11, 10, 12}});
    const RecordingSurface &b = c.box;

    EXPECT_EQ(segs(b, Kind::FilledBox),
              (std::vector<Seg>{{0, 10, 500, 12, 128}, {500, 12, 1000, 11, 32768}}));
    std::vector<Seg> wicks, others;
    for (const Seg &s : plotLines(b))
        (s.colour == 0 ? wicks : others).push_back(s);
    EXPECT_EQ(wicks, (std::vector<Seg>{{250, 13, 250, 10, 0}, {750, 12, 750, 10.5, 0}}));
    // Sets 4 to 7 as lines, 1, 2, 3 and 8 never.
    ASSERT_EQ(others.size(), 8u);
    EXPECT_EQ(others[0], (Seg{0, 0, 500, 0, 1004}));
    EXPECT_EQ(others[3], (Seg{0, 1, 500, 2, 1007}));
    EXPECT_EQ(others[7], (Seg{500, 2, 1000, 3, 1007}));
    EXPECT_EQ(b.foreColor(), 7);
    EXPECT_EQ(c.g.YAxisMax(), 0);
}

TEST(Trazar, BarsFromZeroWithADarkerOutline)
{
    Chart c;
    c.g.ColorLinea(1, 16724787);
    c.draw(3, {{5, 8, 3}});
    const RecordingSurface &b = c.box;
    EXPECT_EQ(segs(b, Kind::FilledBox),
              (std::vector<Seg>{{0, 0, 500, 8, 16724787}, {500, 0, 1000, 3, 16724787}}));
    // 16724787 / 2.5 = 6689914.8
    EXPECT_EQ(segs(b, Kind::Box), (std::vector<Seg>{{0, 0, 500, 8, 6689915}, {500, 0, 1000, 3, 6689915}}));
    EXPECT_TRUE(plotLines(b).empty());
}

TEST(Trazar, MonthMarkStandsOneStepRight)
{
    for (double type : {6.0, 7.0}) {
        Chart c;
        c.g.graphtype(type);
        c.fill({{1, 2, 3, 4, 5}});
        c.g.ThisPoint(2);
        c.g.Vertical();
        c.g.DrawMode(2);
        std::vector<Seg> marks;
        for (const Seg &s : segs(c.box, Kind::Line))
            if (s.colour == kGrid + 3158064)
                marks.push_back(s);
        // Point 2 stands at x 250; its mark at 500. Top 5, bottom 0.
        EXPECT_EQ(marks, (std::vector<Seg>{{500, 5, 500, 0, kGrid + 3158064}})) << type;
    }
}

TEST(Trazar, EdgeCasesOfRangeAndPoints)
{
    struct Case {
        const char *name;
        double type;
        std::vector<double> values;
        double topAfter;
        std::size_t plotted; // lines, or boxes for bars and candles
        bool scales;         // an equal top and bottom leaves the box's own height
    } cases[] = {
        {"lines, no points", 6, {}, 7, 0, true},
        {"lines, one point keeps the top", 6, {7}, 7, 0, true},
        {"bars, one point resets the top", 3, {7}, 0, 0, true},
        {"candles, one point resets the top", 7, {7}, 0, 0, true},
        {"lines, equal top and bottom", 6, {0, 0}, 0, 1, false},
    };
    for (const Case &c : cases) {
        Chart ch;
        ch.g.graphtype(c.type);
        if (c.values.empty()) {
            ch.g.NumPoints(0);
            ch.g.NumSets(1);
            ch.g.YAxisMax(7);
        } else {
            ch.fill({c.values});
        }
        ch.g.DrawMode(2);
        EXPECT_EQ(ch.g.YAxisMax(), c.topAfter) << c.name;
        EXPECT_EQ(plotLines(ch.box).size() + ch.box.callsOf(Kind::FilledBox).size(), c.plotted) << c.name;
        EXPECT_EQ(ch.box.callsOf(Kind::Print).front().text, "TITULO") << c.name;
        EXPECT_EQ(gridYs(ch.box).size(), 2u) << c.name;
        EXPECT_EQ(ch.box.callsOf(Kind::ScaleHeight).empty(), !c.scales) << c.name;
        EXPECT_EQ(ch.box.scaleHeight() == 1000.f, !c.scales) << c.name; // what the box had
    }
}

TEST(Trazar, SwitchedOffSetAndLogarithmicZeros)
{
    Chart c;
    c.log = true;
    c.g.graphtype(6);
    c.fill({{100, 1000}, {0, 0}, {10, -5}});
    c.g.YAxisMin(50); // above the switched-off set
    c.g.DrawMode(2);
    auto lines = plotLines(c.box);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_FLOAT_EQ(lines[0].y1, 2);
    EXPECT_FLOAT_EQ(lines[0].y2, 3);
    EXPECT_EQ(lines[1], (Seg{0, 0, 1000, 0, 0})); // drawn at 0, below the range
    EXPECT_FLOAT_EQ(lines[2].y1, 1);
    EXPECT_FLOAT_EQ(lines[2].y2, -5); // jumps from logarithms to the raw number
}

TEST(Trazar, AFailingStepCostsOnlyThatStep)
{
    Chart c;
    c.g.graphtype(6);
    c.g.ColorLinea(1, 255);
    c.fill({{1, 1e300, 3, 4}});
    c.g.NumSets(12); // sets 11 and 12 fail on every pass
    c.g.DrawMode(2);
    auto lines = plotLines(c.box);
    // Only the step from 3 to 4 survives: 1e300 is past single precision.
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), [](const Seg &s) { return s.colour == 255; }), 1);
    EXPECT_EQ(c.box.foreColor(), 12);
    EXPECT_EQ(c.g.YAxisMax(), 0);
}

TEST(Trazar, LongLoopsFoldWithoutChangingTheResult)
{
    Chart c;
    c.g.graphtype(6);
    c.fill({{1, 2}});
    c.g.NumPoints(1e9);
    c.g.NumSets(1e7);
    c.g.DrawMode(2);
    EXPECT_EQ(c.box.foreColor(), 10000000);
    // Every set of points 1..2999 is written as 0 but only set 1 is ever
    // filled; the count of line calls is bounded by the array.
    EXPECT_LE(c.box.callsOf(Kind::Line).size(), 3000u * 10 + 10);
}

TEST(LineaHorizontal, LabelCentredOnTheLine)
{
    for (bool log : {false, true}) {
        Chart c;
        c.log = log;
        c.draw(6, {{10, 20}});
        c.box.forget();
        const double y = log ? std::log10(12.5) : 12.5;
        c.g.LineaHorizontal(y);
        const RecordingSurface &b = c.box;
        auto lines = segs(b, Kind::Line);
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_EQ(lines[0], (Seg{-5, float(y), 1005, float(y), kGrid}));
        auto prints = b.callsOf(Kind::Print);
        ASSERT_EQ(prints.size(), 1u);
        // The price also on a logarithmic chart.
        EXPECT_EQ(prints[0].text, "12,5") << log;
        EXPECT_EQ(prints[0].x1, -55.f);
        const float line = b.scaleHeight() / 20;
        EXPECT_FLOAT_EQ(prints[0].y1, float(y) - line / 2);
        EXPECT_FLOAT_EQ(b.currentY(), float(y) - line / 2 + b.scaleHeight() / 12);
    }
}

TEST(Escribir, MaskAndTrailingComma)
{
    struct Case {
        const char *mask, *in, *out;
    } cases[] = {
        {"##0.##", "12", "12"},       {"##0.##", "1.234,5", "1234,5"},
        {"#####0", "1234,6", "1235"}, {"###,###.##", "1234567", "1.234.567"},
        {"##0.##", "abc", "abc"},
    };
    for (const Case &k : cases) {
        Chart c;
        c.g.mascara(k.mask);
        QString t = k.in;
        c.g.Escribir(t);
        EXPECT_EQ(t, k.out) << k.mask << " " << k.in;
        EXPECT_EQ(c.box.callsOf(Kind::Print).back().text, k.out);
    }
}

} // namespace
} // namespace tesorel
