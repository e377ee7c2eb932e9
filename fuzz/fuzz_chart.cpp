// Random series and settings into the drawing on a recording box, and
// random periods into the averages and extremes: failures must be
// RuntimeErrors, never a crash or a hang.
#include "charts/grafica.h"
#include "charts/indicators.h"
#include "charts/maximos.h"
#include "charts/mmedia.h"
#include "charts/recording_surface.h"
#include "core/runtime_error.h"

#include <QDate>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

using namespace tesorel;

namespace
{

struct Input {
    const std::uint8_t *data;
    std::size_t size;
    std::uint8_t byte()
    {
        if (!size)
            return 0;
        --size;
        return *data++;
    }
    // Values that a series may hold, the awkward ones often.
    double value()
    {
        switch (byte() % 12) {
        case 0:
            return 0;
        case 1:
            return std::numeric_limits<double>::quiet_NaN();
        case 2:
            return std::numeric_limits<double>::infinity();
        case 3:
            return -std::numeric_limits<double>::infinity();
        case 4:
            return 1e300;
        case 5:
            return -1e-300;
        case 6:
            return -double(byte());
        default: {
            std::int16_t raw = std::int16_t(byte() | (byte() << 8));
            return raw / 16.0;
        }
        }
    }
    // A small count that stays within what the original loops run in time.
    double count(int limit) { return double(int(byte() % (limit + 1)) - 2) + (byte() % 4 == 0 ? 0.5 : 0); }
};

template <typename F> void guarded(F &&f)
{
    try {
        f();
    } catch (const RuntimeError &) {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input in{data, size};
    bool log = in.byte() & 1;
    RecordingSurface box;
    grafica g(&log);
    g.Picture(&box);
    g.ColorCuadricula(in.value());
    g.mascara(in.byte() & 1 ? "##0.##" : "#####0");
    static const double types[] = {3, 6, 7, 0};
    g.graphtype(types[in.byte() % 4]);
    for (int s = 1; s <= 10; ++s) {
        g.ColorLinea(s, in.value());
        g.GruesoLinea(s, in.byte() % 8 == 0 ? in.value() : double(in.byte() % 3));
    }
    const double points = in.byte() % 16 == 0 ? double(in.byte()) * 40 : in.count(60);
    const double sets = in.count(12);
    g.NumPoints(points);
    g.NumSets(sets);
    const int filled = int(std::min(200.0, std::max(0.0, points)));
    for (int p = 1; p <= filled && in.size; ++p) {
        guarded([&] { g.ThisPoint(p); });
        if (in.byte() % 5 == 0)
            guarded([&] { g.Vertical(); });
        guarded([&] { g.Fecha(QDate(2000, 1, 1).addDays(p)); });
        for (int s = 1; s <= 10; ++s) {
            g.ThisSet(s);
            double v = in.value();
            guarded([&] { g.Graphdata(v); });
        }
    }
    if (in.byte() & 1)
        guarded([&] { g.YAxisMax(in.value()); });
    if (in.byte() & 1)
        guarded([&] { g.YAxisMin(in.value()); });
    g.YAxisTicks(in.count(30));
    g.DrawMode(2);
    guarded([&] { g.LineaHorizontal(in.value()); });
    guarded([&] { g.Quefecha(in.value()); });
    guarded([&] { g.QuePrecio(in.value()); });
    guarded([&] { g.QueNum(QDate(2000, 1, 1).addDays(in.byte())); });
    g.Split(in.value());
    guarded([&] { g.Anular_split(in.byte() & 1); });

    // Averages, extremes and indicators with random periods.
    MMedia m;
    Maximos x;
    IndicatorState st;
    HistoriaMomentum h{};
    for (int i = 1; i <= 40 && in.size; ++i) {
        const double v = in.value();
        double period = in.count(220);
        guarded([&] { m.Siguiente(v, 0, period, ClaseMedia(in.byte() % 5)); });
        guarded([&] { x.Max(v, in.count(220)); });
        guarded([&] { x.Mini(v, in.count(220)); });
        guarded([&] { x.Maxi(v, in.count(220)); });
        guarded([&] { x.Min(v, in.count(220)); });
        guarded([&] { grafica_macd(g, st, v, in.value(), 0, i, v); });
        guarded([&] { grafica_rsi(g, st, v, 0, i); });
        guarded([&] { grafica_momentum(g, v, in.count(45), i, h); });
        guarded([&] { grafica_stocastico(g, st, v, in.value(), in.value(), 5, i); });
    }
    return 0;
}
