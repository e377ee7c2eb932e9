// Draws a synthetic value with the QPainter surface and keeps the PNG
// files under the build folder for a look by eye.
#include "charts/grafica.h"
#include "charts/indicators.h"
#include "charts/maximos.h"
#include "charts/mmedia.h"
#include "charts/painter_surface.h"
#include "gui_app.h"

#include <QDir>
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace tesorel
{
namespace
{

using testing::guiApp;

struct Quote {
    double close, high, low, average, money;
    QDate date;
};

// A deterministic walk: no randomness, the same picture every run.
std::vector<Quote> walk(int n)
{
    std::vector<Quote> out;
    double close = 20;
    QDate d(2004, 1, 2);
    for (int i = 0; i < n; ++i) {
        const double move = std::sin(i * 0.37) * 0.35 + std::sin(i * 0.05) * 0.25 + 0.01;
        const double open = close;
        close = std::max(1.0, close + move);
        const double high = std::max(open, close) + 0.2 + 0.1 * std::fabs(std::sin(i * 1.3));
        const double low = std::min(open, close) - 0.2 - 0.1 * std::fabs(std::cos(i * 0.7));
        out.push_back({close, high, low, (open + close) / 2, 1000 + 800 * std::fabs(std::sin(i * 0.21)), d});
        d = d.addDays(d.dayOfWeek() == 5 ? 3 : 1);
    }
    return out;
}

constexpr int kGrid = 6332608;
const int kPriceColours[8] = {16719920, 1127423, 192, 6736930, 16777215, 16777215, 4504439, 14729328};

void setUpPrice(grafica &g, PainterSurface &box, double type)
{
    g.tipo(2);
    g.Picture(&box);
    g.ColorCuadricula(kGrid);
    g.mascara("##0.##");
    for (int s = 1; s <= 8; ++s) {
        g.ColorLinea(s, kPriceColours[s - 1]);
        g.GruesoLinea(s, (s == 4 || s == 7 || s == 8) ? 1 : 0);
    }
    g.graphtype(type);
    g.graphtitle("SINTETICA");
}

void fillPrice(grafica &g, const std::vector<Quote> &q, bool candles)
{
    MMedia first, second;
    g.NumPoints(double(q.size()));
    g.NumSets(8);
    int month = 0;
    for (std::size_t i = 0; i < q.size(); ++i) {
        const double p = double(i + 1);
        g.ThisPoint(p);
        if (q[i].date.month() != month) {
            if (month != 0)
                g.Vertical();
            month = q[i].date.month();
        }
        g.ThisSet(1);
        g.Fecha(q[i].date);
        g.Graphdata(q[i].close);
        g.ThisSet(2);
        g.Graphdata(candles ? q[i].high : 0);
        g.ThisSet(3);
        g.Graphdata(candles ? q[i].low : 0);
        g.ThisSet(4);
        g.Graphdata(first.Siguiente(q[i].close, 0, 30, 3));
        g.ThisSet(8);
        g.Graphdata(q[i].average);
        g.ThisSet(7);
        g.Graphdata(second.Siguiente(q[i].close, 0, 9, 3));
    }
}

void scaleLines(grafica &g, double low, double high)
{
    g.YAxisMax(high);
    g.YAxisMin(low);
    g.DrawMode(2);
    for (double y = std::floor(low / 2) * 2 + 2; y < high; y += 2)
        g.LineaHorizontal(y);
}

bool hasColour(const QImage &img, int colour)
{
    const QRgb want = PainterSurface::toQColor(colour).rgb();
    for (int y = 0; y < img.height(); ++y) {
        const QRgb *line = reinterpret_cast<const QRgb *>(img.constScanLine(y));
        for (int x = 0; x < img.width(); ++x)
            if ((line[x] | 0xFF000000u) == (want | 0xFF000000u))
                return true;
    }
    return false;
}

QString outPath(const char *name)
{
    QDir().mkpath(QStringLiteral(TESOREL_BINARY_DIR "/charts_png"));
    return QStringLiteral(TESOREL_BINARY_DIR "/charts_png/") + QLatin1String(name);
}

TEST(Render, SyntheticValueToPng)
{
    guiApp();
    const std::vector<Quote> q = walk(500);
    double lo = 1e16, hi = 0;
    for (const Quote &x : q) {
        lo = std::min(lo, x.low);
        hi = std::max(hi, x.high);
    }

    struct Picture {
        const char *file;
        double type;
        std::vector<int> colours;
    } pictures[] = {
        {"price_lines.png", 6, {16719920, 6736930, 4504439, 14729328, kGrid}},
        {"price_candles.png", 7, {128, 32768, 6736930, 4504439}},
    };
    for (const Picture &pic : pictures) {
        PainterSurface box(1200, 500);
        grafica g;
        setUpPrice(g, box, pic.type);
        fillPrice(g, q, pic.type == 7);
        scaleLines(g, lo, hi);
        const QImage &img = box.image();
        for (int c : pic.colours)
            EXPECT_TRUE(hasColour(img, c)) << pic.file << " colour " << c;
        EXPECT_TRUE(box.savePng(outPath(pic.file)));
    }

    // Money as bars.
    {
        PainterSurface box(1200, 200);
        grafica g;
        g.Picture(&box);
        g.ColorCuadricula(8437952);
        g.mascara("#####0");
        g.ColorLinea(1, 16724787);
        g.graphtype(3);
        g.NumPoints(double(q.size()));
        g.NumSets(1);
        for (std::size_t i = 0; i < q.size(); ++i) {
            g.ThisPoint(double(i + 1));
            g.ThisSet(1);
            g.Graphdata(q[i].money);
        }
        g.YAxisTicks(4);
        g.DrawMode(2);
        EXPECT_TRUE(hasColour(box.image(), 16724787));
        EXPECT_TRUE(box.savePng(outPath("volume_bars.png")));
    }

    // RSI of the day's change.
    {
        PainterSurface box(1200, 200);
        grafica g;
        IndicatorState st;
        g.Picture(&box);
        g.ColorLinea(1, 8388608);
        g.ColorLinea(2, 128);
        g.ColorLinea(3, 0);
        g.graphtype(6);
        g.NumPoints(double(q.size()));
        double before = q[0].close;
        for (std::size_t i = 0; i < q.size(); ++i) {
            grafica_rsi(g, st, (q[i].close - before) * 100 / before, 0, double(i + 1));
            before = q[i].close;
        }
        g.DrawMode(2);
        EXPECT_TRUE(hasColour(box.image(), 8388608));
        EXPECT_TRUE(hasColour(box.image(), 128));
        EXPECT_TRUE(box.savePng(outPath("rsi.png")));
    }
}

TEST(Render, TextMetricsFollowTheScale)
{
    guiApp();
    PainterSurface box(1100, 400);
    box.setScaleLeft(-65);
    box.setScaleWidth(1100);
    box.setScaleTop(10);
    box.setScaleHeight(-20);
    const QString t = QStringLiteral("123,45");
    EXPECT_GT(box.textWidth(t), 0);
    EXPECT_LT(box.textHeight(t), 0); // y grows upward
    box.setCurrentX(0);
    box.setCurrentY(5);
    box.print(t);
    EXPECT_EQ(box.currentX(), -65.f);
    EXPECT_FLOAT_EQ(box.currentY(), 5 + box.textHeight(t));
}

} // namespace
} // namespace tesorel
