// The drawing of a chart. Every statement that can fail is one step: a
// failure costs that step only (one line of the picture, one label) and
// the drawing goes on, so a bad value never loses the whole chart.
#include "charts/checked_math.h"
#include "charts/grafica.h"
#include "charts/surface.h"
#include "core/format.h"
#include "core/paleta.h"
#include "core/runtime_error.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace tesorel
{

using namespace chartmath;

namespace
{
const QString kEtiqueta = QStringLiteral("###,###.##");

template <typename F> void step(F &&f)
{
    try {
        f();
    } catch (const RuntimeError &) {
    }
}

// Past point kPoints + 1 every pass of the plot loops fails in the same
// way and leaves the same state, so those passes are folded into one.
double lastPlotPass(double numPoints)
{
    return std::min(lastPass(1, numPoints - 1), double(grafica::kPoints + 1));
}
} // namespace

void grafica::Trazar()
{
    double r = 0;
    step([&] { r = finite(yAxisMax_ - yAxisMin_); });
    step([&] { surface().setScaleTop(toSingle(yAxisMax_ + 0.09 * r)); });
    if (r != 0)
        step([&] { surface().setScaleHeight(toSingle(-1.18 * r)); });
    step([&] { surface().setScaleLeft(-65); });
    step([&] { surface().setScaleWidth(1100); });
    step([&] { surface().clear(); });

    // The title takes whatever fore colour the last drawing left.
    step([&] { surface().setCurrentX(0); });
    step([&] {
        Surface &b = surface();
        b.setCurrentY(toSingle(double(b.scaleTop()) + double(b.textHeight(graphtitle_)) / 2));
    });
    step([&] { surface().print(graphtitle_); });

    step([&] { surface().setCurrentX(-20); });
    step([&] {
        Surface &b = surface();
        b.setCurrentY(toSingle(double(b.scaleTop()) + double(b.scaleHeight()) / 15.5));
    });
    if (yAxisTicks_ > 0) {
        // The first label reads one step below the top though it stands
        // at the top of the column.
        double paso = 0, y = 0;
        step([&] { paso = divide(r, yAxisTicks_); });
        y = yAxisMax_;
        for (double k = 1; k <= yAxisTicks_ - 1; ++k) {
            step([&] { y = finite(y - paso); });
            QString t;
            step([&] { t = Format(y, kEtiqueta); });
            step([&] { Escribir(t); });
        }
    }
    step([&] { surface().setCurrentY(toSingle(yAxisMin_)); });
    step([&] { surface().setDrawWidth(1); });

    // The grid always divides by ten, whatever the ticks say.
    {
        double y = yAxisMax_, paso = 0;
        step([&] { paso = finite(r / 10); });
        auto horizontal = [&](double at) {
            step([&] { surface().line(-5, toSingle(at), 1005, toSingle(at), toLong(colorCuadricula_)); });
        };
        horizontal(y);
        for (double i = 2; i <= yAxisTicks_; ++i) {
            horizontal(y);
            step([&] { y = finite(y - paso); });
        }
        horizontal(yAxisMin_);
        step([&] {
            surface().line(1005, toSingle(yAxisMax_), 1005, toSingle(yAxisMin_), toLong(colorCuadricula_));
        });
        step([&] {
            surface().line(0, toSingle(yAxisMin_), 0, toSingle(yAxisMax_), toLong(colorCuadricula_));
        });
    }

    double dx = 1;
    if (numPoints_ > 1)
        step([&] { dx = finite(1000 / (numPoints_ - 1)); });

    if (graphtype_ == 3) {
        plotBars(dx);
    } else if (graphtype_ == 7) {
        plotCandles(dx);
    } else {
        if (numPoints_ <= 1)
            return; // a line chart of one point keeps its top
        plotLines(dx);
    }
    yAxisMax_ = 0;
}

void grafica::verticalMark(double i, double dx)
{
    // Stands at the x of point i + 1: one step right of its own point.
    step([&] {
        if (vertical_[index(i, 1, kPoints) - 1])
            surface().line(toSingle(i * dx), toSingle(yAxisMax_), toSingle(i * dx), toSingle(yAxisMin_),
                           toLong(colorCuadricula_ + double(paleta::MarcaMes)));
    });
}

inline bool grafica::valorSimple(int s, double p, float &y) const
{
    // What at(s, p) and toSingle make of it, for the whole points from 1
    // that the drawing loops give: false where either would fail.
    if (s < 1 || s > kSets || !(p <= kPoints))
        return false;
    const double v = data_[std::size_t(s - 1) * kPoints + std::size_t(p) - 1];
    if (!(std::fabs(v) <= double(FLT_MAX)))
        return false;
    y = float(v);
    return true;
}

grafica::Plumas grafica::plumas() const
{
    // A set's width and colour stay the same through a drawing: converted
    // once, a conversion that fails failing the same step at every point.
    Plumas p{};
    for (int s = 1; s <= kSets; ++s) {
        Pluma &pl = p[std::size_t(s - 1)];
        step([&] {
            pl.ancho = toLong(gruesoLinea_[std::size_t(s - 1)] + 1);
            pl.conAncho = true;
        });
        step([&] {
            pl.color = toLong(colorLinea_[std::size_t(s - 1)]);
            pl.conColor = true;
        });
        // A plain division of the packed colour: darker only by accident.
        step([&] {
            pl.borde = toLong(colorLinea_[std::size_t(s - 1)] / 2.5);
            pl.conBorde = true;
        });
    }
    return p; // the eleventh, past the last set, fails both
}

grafica::Tramo grafica::tramo(double i, double dx)
{
    // toSingle of both ends, without the exception of a failure: the
    // segments of the point are then not drawn.
    const double desde = (i - 1) * dx, hasta = i * dx;
    Tramo t;
    if (std::fabs(desde) <= double(FLT_MAX) && std::fabs(hasta) <= double(FLT_MAX))
        t = Tramo{true, float(desde), float(hasta)};
    return t;
}

void grafica::setLine(int s, double i, const Tramo &t, const Pluma &pluma)
{
    // Three steps: the fore colour, the width, the segment from point i
    // to point i + 1. Without a picture box all three fail.
    Surface *b = surface_;
    if (!b)
        return;
    b->setForeColor(s);
    if (pluma.conAncho)
        b->setDrawWidth(pluma.ancho);
    float desde = 0, hasta = 0;
    if (pluma.conColor && t.valido && valorSimple(s, i, desde) && valorSimple(s, i + 1, hasta))
        b->line(t.desde, desde, t.hasta, hasta, pluma.color);
}

namespace
{
// Sets past the tenth only fail after setting the fore colour; the state
// they leave is the fore colour of the last one, so they fold into one.
double lastSet(double numSets)
{
    return lastPass(1, numSets);
}
constexpr double kFoldSets = grafica::kSets + 1;
} // namespace

void grafica::plotLines(double dx)
{
    const Plumas pl = plumas();
    const double last = lastPlotPass(numPoints_);
    for (double i = 1; i <= last && i <= numPoints_ - 1; ++i) {
        step([&] { surface().setDrawWidth(1); });
        verticalMark(i, dx);
        const Tramo t = tramo(i, dx);
        for (int s = 1; s <= numSets_ && s <= kFoldSets; ++s)
            setLine(s, i, t, pl[std::size_t(s - 1)]);
        if (numSets_ > kFoldSets)
            step([&] { surface().setForeColor(toLong(std::min(lastSet(numSets_), 2147483647.0))); });
    }
}

void grafica::plotCandles(double dx)
{
    const Plumas pl = plumas();
    const double last = lastPlotPass(numPoints_);
    for (double i = 1; i <= last && i <= numPoints_ - 1; ++i) {
        step([&] { surface().setDrawWidth(1); });
        verticalMark(i, dx);
        // Tested on point i while the candle drawn is that of point i + 1:
        // each candle wears the colour of the day before.
        int colour = 0;
        step([&] { colour = at(8, i) > at(1, i) ? paleta::RojoOscuro : paleta::VerdeOscuro; });
        step([&] {
            surface().line(toSingle((i - 0.5) * dx), toSingle(at(2, i + 1)), toSingle((i - 0.5) * dx),
                           toSingle(at(3, i + 1)), paleta::Negro);
        });
        step([&] {
            surface().filledBox(toSingle((i - 1) * dx), toSingle(at(8, i + 1)), toSingle(i * dx),
                                toSingle(at(1, i + 1)), colour);
        });
        const Tramo t = tramo(i, dx);
        for (int s = 1; s <= numSets_ && s <= kFoldSets; ++s)
            if (s != 1 && s != 2 && s != 3 && s != 8)
                setLine(s, i, t, pl[std::size_t(s - 1)]);
        if (numSets_ > kFoldSets)
            step([&] { surface().setForeColor(toLong(std::min(lastSet(numSets_), 2147483647.0))); });
    }
}

void grafica::plotBars(double dx)
{
    const Plumas pl = plumas();
    const double last = lastPlotPass(numPoints_);
    for (double i = 1; i <= last && i <= numPoints_ - 1; ++i) {
        const Tramo t = tramo(i, dx);
        // Three steps a set: the fore colour, the bar, its outline.
        Surface *b = surface_;
        for (int s = 1; b && s <= numSets_ && s <= kFoldSets; ++s) {
            b->setForeColor(s);
            const Pluma &p = pl[std::size_t(s - 1)];
            float y = 0;
            if (!t.valido || !valorSimple(s, i + 1, y))
                continue;
            if (p.conColor)
                b->filledBox(t.desde, 0, t.hasta, y, p.color);
            if (p.conBorde)
                b->box(t.desde, 0, t.hasta, y, p.borde);
        }
        if (numSets_ > kFoldSets)
            step([&] { surface().setForeColor(toLong(std::min(lastSet(numSets_), 2147483647.0))); });
    }
}

} // namespace tesorel
