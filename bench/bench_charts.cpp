// Drawing speed of the three charts of a 3,000-point value, against a
// raw QPainter drawing of the same polylines and boxes, and the cost of
// the four indicators over 3,000 points.
#include "charts/grafica.h"
#include "charts/indicators.h"
#include "charts/maximos.h"
#include "charts/mmedia.h"
#include "charts/painter_surface.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <benchmark/benchmark.h>

#include "support/medianas.h"
#include "support/run_benchmarks.h"
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

using namespace tesorel;

namespace
{

constexpr int kPoints = 3000;
constexpr int kW = 1200, kH = 800;
// The three charts share one 1200x800 picture as the main window shares
// its chart area: 60, 15 and 25 hundredths of the height.
struct Alturas {
    int precio, volumen, indicador;
};
constexpr Alturas kVentana{kH * 60 / 100, kH * 15 / 100, kH * 25 / 100};
// The stricter figure of earlier runs: each chart a whole 1200x800 image.
constexpr Alturas kEnteras{kH, kH, kH};
const int kColours[8] = {16719920, 1127423, 192, 6736930, 16777215, 16777215, 4504439, 14729328};

struct Day {
    double close, high, low, average, money, dif;
};

std::vector<Day> walk()
{
    std::vector<Day> out;
    double close = 20;
    for (int i = 0; i < kPoints; ++i) {
        const double before = close;
        close = std::max(1.0, close + std::sin(i * 0.37) * 0.35 + std::sin(i * 0.011) * 0.3);
        out.push_back({close, std::max(before, close) + 0.2, std::min(before, close) - 0.2,
                       (before + close) / 2, 1000 + 800 * std::fabs(std::sin(i * 0.21)),
                       (close - before) * 100 / before});
    }
    return out;
}

struct Charts {
    std::vector<Day> days = walk();
    PainterSurface p1, p2, p3;
    grafica precio, volumen, indicador;
    IndicatorState state;
    double hi = 0, lo = 1e16;

    explicit Charts(Alturas h) : p1(kW, h.precio), p2(kW, h.volumen), p3(kW, h.indicador)
    {
        precio.Picture(&p1);
        volumen.Picture(&p2);
        indicador.Picture(&p3);
        precio.ColorCuadricula(6332608);
        precio.mascara("##0.##");
        volumen.ColorCuadricula(8437952);
        volumen.mascara("#####0");
        for (int s = 1; s <= 8; ++s) {
            precio.ColorLinea(s, kColours[s - 1]);
            precio.GruesoLinea(s, (s == 4 || s == 7 || s == 8) ? 1 : 0);
        }
        volumen.ColorLinea(1, 16724787);
        indicador.ColorLinea(1, 8388608);
        indicador.ColorLinea(2, 128);
        precio.graphtype(6);
        volumen.graphtype(3);
        indicador.graphtype(6);
        precio.graphtitle("BENCH");
        MMedia a, b;
        for (grafica *g : {&precio, &volumen, &indicador})
            g->NumPoints(kPoints);
        precio.NumSets(8);
        volumen.NumSets(1);
        for (int i = 0; i < kPoints; ++i) {
            const Day &d = days[i];
            const double p = i + 1;
            precio.ThisPoint(p);
            const double row[8] = {d.close,
                                   d.high,
                                   d.low,
                                   a.Siguiente(d.close, 0, 30, ClaseMedia::Exponencial),
                                   0,
                                   0,
                                   b.Siguiente(d.close, 0, 9, ClaseMedia::Exponencial),
                                   d.average};
            for (int s = 0; s < 8; ++s) {
                precio.ThisSet(s + 1);
                precio.Graphdata(row[s]);
            }
            volumen.ThisPoint(p);
            volumen.ThisSet(1);
            volumen.Graphdata(d.money);
            grafica_rsi(indicador, state, d.dif, 0, p);
            hi = std::max(hi, d.high);
            lo = std::min(lo, d.low);
        }
    }

    void drawPrice()
    {
        precio.YAxisMax(hi);
        precio.YAxisMin(lo);
        precio.DrawMode(2);
        for (double y = std::floor(lo) + 1; y < hi; y += 1)
            precio.LineaHorizontal(y);
        benchmark::DoNotOptimize(p1.image().constBits());
    }
    void drawVolume()
    {
        volumen.YAxisMax(2000);
        volumen.DrawMode(2);
        benchmark::DoNotOptimize(p2.image().constBits());
    }
    void drawIndicator()
    {
        indicador.YAxisMax(100);
        indicador.DrawMode(2);
        benchmark::DoNotOptimize(p3.image().constBits());
    }
    void draw()
    {
        drawPrice();
        drawVolume();
        drawIndicator();
    }
};

// The same primitives straight into QPainter: polylines per set, boxes,
// grid and a few texts, with no chart logic around them.
struct Raw {
    QImage i1, i2, i3;
    std::vector<std::vector<QPointF>> price, rsi;
    std::vector<QRect> bars;
    std::vector<double> levels; // the price chart's labelled lines
    QFont font{QStringLiteral("DejaVu Sans"), 8};

    Raw(const Charts &c, Alturas h)
        : i1(kW, h.precio, QImage::Format_RGB32), i2(kW, h.volumen, QImage::Format_RGB32),
          i3(kW, h.indicador, QImage::Format_RGB32)
    {
        auto py = [&](double alto, double v, double lo, double hi) {
            return alto * (1.09 - (v - lo) / (hi - lo) / 1.18);
        };
        for (double y = std::floor(c.lo) + 1; y < c.hi; y += 1)
            levels.push_back(py(h.precio, y, c.lo, c.hi));
        const double dx = double(kW) / (kPoints - 1);
        price.resize(8);
        rsi.resize(3);
        for (int i = 0; i < kPoints; ++i) {
            for (int s = 0; s < 8; ++s)
                price[s].emplace_back(i * dx, py(h.precio, c.precio.valor(s + 1, i + 1), c.lo, c.hi));
            for (int s = 0; s < 3; ++s)
                rsi[s].emplace_back(i * dx, py(h.indicador, c.indicador.valor(s + 1, i + 1), 0, 100));
            bars.emplace_back(QPoint(int(i * dx), int(py(h.volumen, c.volumen.valor(1, i + 1), 0, 2000))),
                              QPoint(int((i + 1) * dx), int(py(h.volumen, 0, 0, 2000))));
        }
    }

    static QColor qc(int c) { return PainterSurface::toQColor(c); }

    void grid(QPainter &p, int alto)
    {
        p.setPen(QPen(qc(6332608), 0));
        for (int k = 0; k <= 10; ++k)
            p.drawLine(QLineF(0, k * alto / 11.0, kW, k * alto / 11.0));
        p.setFont(font);
        for (int k = 0; k < 12; ++k)
            p.drawText(QPointF(5, 10 + k * alto / 13.0), QStringLiteral("12,34"));
    }

    void draw()
    {
        {
            QPainter p(&i1);
            p.fillRect(i1.rect(), Qt::white);
            grid(p, i1.height());
            p.setPen(QPen(qc(6332608), 0));
            for (double y : levels) {
                p.drawLine(QLineF(60, y, 1160, y));
                p.drawText(QPointF(5, y), QStringLiteral("12,34"));
            }
            for (int s = 0; s < 8; ++s) {
                QPen pen(qc(kColours[s]), (s == 3 || s == 6 || s == 7) ? 2 : 0);
                pen.setCapStyle(Qt::FlatCap);
                pen.setJoinStyle(Qt::BevelJoin);
                p.setPen(pen);
                p.drawPolyline(price[s].data(), int(price[s].size()));
            }
        }
        {
            QPainter p(&i2);
            p.fillRect(i2.rect(), Qt::white);
            grid(p, i2.height());
            p.setPen(QPen(qc(6689915), 0));
            for (const QRect &r : bars) {
                p.fillRect(r, qc(16724787));
                p.drawRect(r);
            }
        }
        {
            QPainter p(&i3);
            p.fillRect(i3.rect(), Qt::white);
            grid(p, i3.height());
            for (int s = 0; s < 3; ++s) {
                p.setPen(QPen(qc(s == 0 ? 8388608 : s == 1 ? 128 : 0), 0));
                p.drawPolyline(rsi[s].data(), int(rsi[s].size()));
            }
        }
        benchmark::DoNotOptimize(i1.constBits());
    }
};

Charts *gCharts = nullptr;
Raw *gRaw = nullptr;

void BM_DrawThreeCharts(benchmark::State &state)
{
    for (auto _ : state)
        gCharts->draw();
}
BENCHMARK(BM_DrawThreeCharts)->Unit(benchmark::kMillisecond);

// Each chart alone, to see where the time goes.
void BM_DrawPriceChart(benchmark::State &state)
{
    for (auto _ : state)
        gCharts->drawPrice();
}
BENCHMARK(BM_DrawPriceChart)->Unit(benchmark::kMicrosecond);

void BM_DrawVolumeBars(benchmark::State &state)
{
    for (auto _ : state)
        gCharts->drawVolume();
}
BENCHMARK(BM_DrawVolumeBars)->Unit(benchmark::kMicrosecond);

void BM_DrawIndicatorChart(benchmark::State &state)
{
    for (auto _ : state)
        gCharts->drawIndicator();
}
BENCHMARK(BM_DrawIndicatorChart)->Unit(benchmark::kMicrosecond);

void BM_RawQPainterSamePrimitives(benchmark::State &state)
{
    for (auto _ : state)
        gRaw->draw();
}
BENCHMARK(BM_RawQPainterSamePrimitives)->Unit(benchmark::kMillisecond);

// The two averages of the price chart, which it draws whatever the
// indicator, and which the MACD reads.
struct Medias {
    std::vector<double> corta, larga;
    explicit Medias(const std::vector<Day> &days)
    {
        MMedia a, b;
        for (const Day &d : days) {
            corta.push_back(b.Siguiente(d.close, 0, 9, ClaseMedia::Exponencial));
            larga.push_back(a.Siguiente(d.close, 0, 30, ClaseMedia::Exponencial));
        }
    }
};

// The four indicator routines fed as the price chart feeds them: the
// chart draws one indicator at a time, so each runs over the whole series
// into its own chart. The stochastic's extremes are worked out here, only
// it reads them.
void fourIndicators()
{
    static grafica macd, rsi, momento, estocastico;
    static IndicatorState st;
    const std::vector<Day> &days = gCharts->days;
    static const Medias medias(days);
    for (int i = 0; i < kPoints; ++i)
        grafica_macd(macd, st, medias.corta[size_t(i)], medias.larga[size_t(i)], 0, i + 1,
                     days[size_t(i)].close);
    for (int i = 0; i < kPoints; ++i)
        grafica_rsi(rsi, st, days[size_t(i)].dif, 0, i + 1);
    HistoriaMomentum h{};
    double n = 0;
    for (int i = 0; i < kPoints; ++i) {
        grafica_momentum(momento, days[size_t(i)].close, n, i + 1, h);
        if (n < 14)
            n += 1;
    }
    Maximos extremes;
    for (int i = 0; i < kPoints; ++i) {
        const Day &d = days[size_t(i)];
        grafica_stocastico(estocastico, st, d.close, extremes.Maxi(d.high, 5), extremes.Min(d.low, 5), 5,
                           i + 1);
    }
    for (const grafica *g : {&macd, &rsi, &momento, &estocastico})
        benchmark::DoNotOptimize(g->valor(1, kPoints));
}

void BM_FourIndicators3000(benchmark::State &state)
{
    for (auto _ : state)
        fourIndicators();
}
BENCHMARK(BM_FourIndicators3000)->Unit(benchmark::kMicrosecond);

// Each indicator over the series alone, to see where the time goes.
template <typename F> void unaPasada(benchmark::State &state, F &&f)
{
    for (auto _ : state)
        for (int i = 0; i < kPoints; ++i)
            f(i);
}
void BM_IndicatorMacd(benchmark::State &state)
{
    static grafica g;
    static IndicatorState st;
    static const Medias m(gCharts->days);
    unaPasada(state, [&](int i) {
        grafica_macd(g, st, m.corta[size_t(i)], m.larga[size_t(i)], 0, i + 1, gCharts->days[size_t(i)].close);
    });
}
BENCHMARK(BM_IndicatorMacd)->Unit(benchmark::kMicrosecond);
void BM_IndicatorRsi(benchmark::State &state)
{
    static grafica g;
    static IndicatorState st;
    unaPasada(state, [&](int i) { grafica_rsi(g, st, gCharts->days[size_t(i)].dif, 0, i + 1); });
}
BENCHMARK(BM_IndicatorRsi)->Unit(benchmark::kMicrosecond);
void BM_IndicatorMomentum(benchmark::State &state)
{
    static grafica g;
    for (auto _ : state) {
        HistoriaMomentum h{};
        double n = 0;
        for (int i = 0; i < kPoints; ++i) {
            grafica_momentum(g, gCharts->days[size_t(i)].close, n, i + 1, h);
            if (n < 14)
                n += 1;
        }
    }
}
BENCHMARK(BM_IndicatorMomentum)->Unit(benchmark::kMicrosecond);
void BM_IndicatorStochasticWithExtremes(benchmark::State &state)
{
    static grafica g;
    static IndicatorState st;
    static Maximos e;
    unaPasada(state, [&](int i) {
        const Day &d = gCharts->days[size_t(i)];
        grafica_stocastico(g, st, d.close, e.Maxi(d.high, 5), e.Min(d.low, 5), 5, i + 1);
    });
}
BENCHMARK(BM_IndicatorStochasticWithExtremes)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int qargc = 1;
    QGuiApplication app(qargc, argv);
    Charts charts(kVentana);
    Raw raw(charts, kVentana);
    gCharts = &charts;
    gRaw = &raw;

    if (tesorel::bench::correrBenchmarks(argc, argv))
        return 0;

    // The indicators first: measured after the drawings they come out
    // slower on this machine, for as long as a median takes.
    const double four = bench::medianaDe(101, [] { fourIndicators(); }) * 1000;
    std::printf("four indicators, 3000 points:       median %.1f us (target <= 100 us)\n", four);
    // Medians in this one run, the raw drawing right after, for the ratio.
    auto medir = [](Charts &c, Raw &r, const char *como) {
        for (int warm = 0; warm < 5; ++warm) {
            c.draw();
            r.draw();
        }
        const double chart = bench::medianaDe(101, [&] { c.draw(); });
        const double base = bench::medianaDe(101, [&] { r.draw(); });
        std::printf("three charts, 3000 points, %s: median %.3f ms\n", como, chart);
        std::printf(
            "  raw QPainter, same primitives: median %.3f ms, ratio charts / raw %.2f (target <= 2)\n", base,
            chart / base);
        return chart;
    };
    const double ventana = medir(charts, raw, "one 1200x800 picture as the window splits it");
    std::printf("  target <= 2 ms: %.3f ms\n", ventana);
    Charts enteras(kEnteras);
    Raw rawEnteras(enteras, kEnteras);
    medir(enteras, rawEnteras, "each chart a whole 1200x800 image");
    return 0;
}
