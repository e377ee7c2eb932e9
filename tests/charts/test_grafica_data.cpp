#include "charts/grafica.h"
#include "charts/recording_surface.h"
#include "errores.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

namespace tesorel
{
namespace
{

using testing::errorOf;

TEST(GraficaData, GraphdataGrowsTheRange)
{
    grafica g;
    g.NumSets(2);
    double v = 0;
    struct Step {
        double set, point, value, max, min;
    } steps[] = {
        {1, 1, -3, 0, -3}, // point 1 sets the bottom to 0 first
        {2, 1, 4, 4, 0},   // and again for the next set: -3 is forgotten
        {1, 2, 9, 9, 0},    {2, 2, -2, 9, -2},
        {1, 3, 5, 9, -2},   {1, 1.4, -1, 9, -2}, // rounds to point 1 but is not exactly 1: the bottom stays
        {1, 1.5, 3, 9, -2},                      // half to even: point 2
        {2.5, 3, 4, 9, -2},                      // set 2
    };
    for (const Step &s : steps) {
        g.ThisSet(s.set);
        g.ThisPoint(s.point);
        v = s.value;
        g.Graphdata(v);
        EXPECT_EQ(g.YAxisMax(), s.max) << s.set << "," << s.point;
        EXPECT_EQ(g.YAxisMin(), s.min) << s.set << "," << s.point;
        EXPECT_EQ(g.valor(std::nearbyint(s.set), std::nearbyint(s.point)), s.value);
    }
}

TEST(GraficaData, LogarithmicScaleConvertsWhatItIsGiven)
{
    bool log = true;
    grafica g(&log);
    g.ThisSet(1);
    struct Case {
        double in, stored;
    } cases[] = {{100, 2}, {0.01, -2}, {0, 0}, {-5, -5}};
    for (const Case &c : cases) {
        g.ThisPoint(2);
        double v = c.in;
        g.Graphdata(v);
        EXPECT_NEAR(v, c.stored, 1e-12) << "written back for " << c.in;
        EXPECT_NEAR(g.valor(1, 2), c.stored, 1e-12);
    }
    double top = 1000, bottom = 10;
    g.YAxisMax(top);
    g.YAxisMin(bottom);
    EXPECT_NEAR(top, 3, 1e-12);
    EXPECT_NEAR(g.YAxisMax(), 3, 1e-12);
    EXPECT_NEAR(bottom, 1, 1e-12);

    // The tick is read at each call.
    log = false;
    g.ThisPoint(2);
    g.Graphdata(100);
    EXPECT_EQ(g.valor(1, 2), 100);
}

TEST(GraficaData, ARowAtOnceLeavesTheChartAsSetBySet)
{
    // Rows with negatives at point 1 (the bottom restarts at 0 at each
    // set), a NaN that no extreme takes, and a point past the last.
    struct Row {
        double point;
        std::vector<double> values;
    } rows[] = {{1, {-3, 4, -1}}, {1, {-3, 4, 2}},  {2, {7, std::nan(""), -6}},
                {3, {0.5}},       {3000, {-9, 11}}, {2.5, {1, 2}}};
    for (bool log : {false, true}) {
        grafica porFilas(&log), porSeries(&log);
        for (const Row &r : rows) {
            std::vector<double> fila = r.values;
            porFilas.Fila(r.point, fila.data(), int(fila.size()));
            porSeries.ThisPoint(r.point);
            for (std::size_t s = 0; s < r.values.size(); ++s) {
                porSeries.ThisSet(double(s + 1));
                double v = r.values[s];
                porSeries.Graphdata(v);
                EXPECT_TRUE(fila[s] == v || (std::isnan(fila[s]) && std::isnan(v)))
                    << "written back, log " << log;
            }
            EXPECT_EQ(porFilas.YAxisMax(), porSeries.YAxisMax()) << "point " << r.point << " log " << log;
            EXPECT_EQ(porFilas.YAxisMin(), porSeries.YAxisMin()) << "point " << r.point << " log " << log;
            EXPECT_EQ(porFilas.ThisSet(), porSeries.ThisSet());
            for (std::size_t s = 1; s <= r.values.size(); ++s) {
                const double a = porFilas.valor(double(s), r.point), b = porSeries.valor(double(s), r.point);
                EXPECT_TRUE(a == b || (std::isnan(a) && std::isnan(b))) << s << "," << r.point;
            }
        }
    }
}

TEST(GraficaData, ThisPointStartsThePointClean)
{
    grafica g;
    g.ThisPoint(5);
    g.Fecha(QDate(2005, 3, 1));
    g.Vertical();
    ASSERT_TRUE(g.verticalDe(5));
    g.ThisPoint(5);
    EXPECT_FALSE(g.verticalDe(5));
    EXPECT_EQ(g.fechaDe(5), grafica::fechaCero());
}

TEST(GraficaData, IndicesOutOfRange)
{
    grafica g;
    struct Case {
        const char *name;
        std::function<void()> call;
    } cases[] = {
        {"point 0", [&] { g.ThisPoint(0); }},
        {"point 3001", [&] { g.ThisPoint(3001); }},
        {"set 11",
         [&] {
             g.ThisSet(11);
             g.ThisPoint(1);
             g.Graphdata(1);
         }},
        {"set 0 width", [&] { g.GruesoLinea(0, 1); }},
        {"set 11 colour", [&] { g.ColorLinea(11, 1); }},
    };
    for (const Case &c : cases)
        EXPECT_EQ(errorOf(c.call), err::SubscriptOutOfRange) << c.name;

    // The cursor moves before the point is cleared, and the value is
    // written back before it is stored.
    g.ThisSet(1);
    errorOf([&] { g.ThisPoint(4000); });
    EXPECT_EQ(g.ThisPoint(), 4000);
    EXPECT_EQ(errorOf([&] { g.Graphdata(1); }), err::SubscriptOutOfRange);
    bool log = true;
    grafica lg(&log);
    lg.ThisSet(12);
    double v = 1000;
    EXPECT_EQ(errorOf([&] { lg.Graphdata(v); }), err::SubscriptOutOfRange);
    EXPECT_NEAR(v, 3, 1e-12);
    g.ThisSet(std::nan(""));
    g.ThisPoint(1);
    EXPECT_NE(errorOf([&] { g.Graphdata(v); }), 0);
}

TEST(GraficaData, PositionsToPoints)
{
    grafica g;
    g.NumPoints(10);
    g.ThisSet(1);
    for (int p = 1; p <= 10; ++p) {
        g.ThisPoint(p);
        g.Fecha(QDate(2006, 1, p));
        g.Graphdata(10.0 * p);
    }
    struct Case {
        double x;           // position 0..1000
        double writtenBack; // the point number
        QDate date;
        double price;
    } cases[] = {
        {250, 2.5, QDate(2006, 1, 2), 20}, // halves to even
        {350, 3.5, QDate(2006, 1, 4), 40},
        {1000, 10, QDate(2006, 1, 10), 100},
        {0, 0, grafica::fechaCero(), 0},
        {2000, 20, grafica::fechaCero(), 0}, // beyond the last point: unwritten
        {400000, 4000, grafica::fechaCero(), 0},
    };
    for (const Case &c : cases) {
        double x = c.x;
        EXPECT_EQ(g.Quefecha(x), c.date) << c.x;
        EXPECT_DOUBLE_EQ(x, c.writtenBack) << c.x;
        x = c.x;
        EXPECT_EQ(g.QuePrecio(x), c.price) << c.x;
    }
    // 0.3 is above 0 but rounds to point 0.
    EXPECT_EQ(errorOf([&] { g.Quefecha(30); }), err::SubscriptOutOfRange);

    // The way back counts i / NumPoints, not the plot's (i - 1) / (NumPoints - 1).
    EXPECT_DOUBLE_EQ(g.QueNum(QDate(2006, 1, 1)), 100);
    EXPECT_DOUBLE_EQ(g.QueNum(QDate(2005, 6, 1)), 100);
    EXPECT_DOUBLE_EQ(g.QueNum(QDate(2006, 1, 4)), 400);
    EXPECT_DOUBLE_EQ(g.QueNum(QDate(2006, 1, 11)), 0);
}

// Two points of three sets on `box`, point 1 of set 1 holding `primero`.
void tresSeries(grafica &g, RecordingSurface &box, double primero)
{
    g.Picture(&box);
    g.NumPoints(2);
    g.NumSets(3);
    g.ThisSet(1);
    g.ThisPoint(1);
    g.Graphdata(primero);
}

TEST(GraficaData, AnularSplit)
{
    struct Case {
        bool flag;
        double split;
        double top, bottom, first;
    } cases[] = {
        {true, 2, 20, 2, 5}, {false, 2, 40, 4, 5}, {true, 0, 40, 4, 10}, // nothing divided by 0
    };
    for (const Case &c : cases) {
        RecordingSurface box;
        grafica g;
        tresSeries(g, box, 10);
        g.YAxisMax(40);
        g.YAxisMin(4);
        g.Split(c.split);
        g.Anular_split(c.flag);
        EXPECT_EQ(g.YAxisMax(), c.top);
        EXPECT_EQ(g.YAxisMin(), c.bottom);
        EXPECT_EQ(g.valor(1, 1), c.first);
        // The fore colour walks the set numbers and stays at the last.
        EXPECT_EQ(box.foreColor(), 3);
    }
    // A division that overflows stops the walk at its set: point 1 of set 2.
    RecordingSurface box;
    grafica g;
    tresSeries(g, box, 1);
    g.ThisSet(2);
    g.Graphdata(1e300);
    g.Split(1e-300);
    EXPECT_EQ(errorOf([&] { g.Anular_split(false); }), err::Overflow);
    EXPECT_EQ(box.foreColor(), 2);
    EXPECT_DOUBLE_EQ(g.valor(1, 1), 1e300); // divided
    EXPECT_EQ(g.valor(2, 1), 1e300);        // left as it was
}

TEST(GraficaData, WithoutPictureBox)
{
    grafica g;
    EXPECT_EQ(errorOf([&] { g.LineaHorizontal(1); }), err::ObjectNotSet);
    EXPECT_EQ(errorOf([&] { g.Width(); }), err::ObjectNotSet);
    // Drawing swallows the failures and still resets the top.
    g.NumPoints(3);
    g.graphtype(3);
    g.YAxisMax(50);
    EXPECT_NO_THROW(g.DrawMode(2));
    EXPECT_EQ(g.YAxisMax(), 0);
}

TEST(GraficaData, GeometryGoesToTheControl)
{
    RecordingSurface a, b;
    grafica g;
    g.Picture(&a);
    g.asociar(&b);
    g.Width(300);
    g.Visible(false);
    EXPECT_EQ(b.width(), 300);
    EXPECT_FALSE(b.visible());
    EXPECT_TRUE(a.visible());
}

} // namespace
} // namespace tesorel
