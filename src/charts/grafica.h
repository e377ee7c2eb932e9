#pragma once
#include "charts/checked_math.h"
#include "core/scale.h"

#include <QDate>
#include <QString>
#include <array>
#include <cmath>
#include <vector>

namespace tesorel
{

class Surface;

// One chart: up to 10 sets of up to 3000 points, a date and a month mark
// per point, and the settings of its drawing. Numbers are kept as the
// generic graph control kept them: doubles, set and point numbers from 1.
// Several setters only store, and several are accepted and ignored: the
// callers still set them.
//
// Values are kept in plot units: on a logarithmic chart Graphdata,
// YAxisMax and YAxisMin take the decimal logarithm of what they are given.
// Whether the chart is logarithmic is read at each call from the tick the
// chart was built with (none: never).
class grafica
{
  public:
    static constexpr int kSets = 10;
    static constexpr int kPoints = 3000;

    explicit grafica(const bool *logaritmica = nullptr);

    void Anular_split(bool flag);
    void GruesoLinea(double set, double width);
    void ColorLinea(double set, double colour);
    void asociar(Surface *control);
    void Pintar();
    void Picture(Surface *box);
    void Imagefile(const QString &) {}
    void mascara(const QString &mask) { mascara_ = mask; }
    void AutoInc(double) {}
    void Split(double factor) { split_ = factor; }
    void NumPoints(double n) { numPoints_ = n; }
    double NumPoints() const { return numPoints_; }
    void LabelText(const QString &) {}
    void YAxisStyle(double v) { yAxisStyle_ = v; }
    void YAxisTicks(double v) { yAxisTicks_ = v; }
    void YAxisMax(double &x);
    void YAxisMax(const double &x)
    {
        double v = x;
        YAxisMax(v);
    }
    void Escribir(QString &t);
    void Escribir(const QString &t)
    {
        QString v = t;
        Escribir(v);
    }
    void YAxisMin(double &x);
    void YAxisMin(const double &x)
    {
        double v = x;
        YAxisMin(v);
    }
    void DrawMode(double) { Trazar(); }
    void LineaHorizontal(double y);
    void graphtitle(const QString &t) { graphtitle_ = t; }
    void graphtype(double v) { graphtype_ = v; }
    void graphSTyLe(double v) { graphStyle_ = v; }
    void gridsTyLe(double v) { gridStyle_ = v; }
    void NumSets(double v) { numSets_ = v; }
    void Left(double v);
    void Height(double v);
    inline void ThisPoint(double p);
    inline void ThisSet(double s);
    inline void Graphdata(double &x);
    void Graphdata(const double &x)
    {
        double v = x;
        Graphdata(v);
    }
    // ThisPoint(p), then ThisSet(s) and Graphdata of valores[s - 1] for s
    // from 1 to n (at most kSets): one day of an indicator, checked once.
    // On a logarithmic chart the values are written back as Graphdata does.
    inline void Fila(double p, double *valores, int n);
    // The same set by set, for a logarithmic chart or a point out of range.
    void FilaPorSeries(double *valores, int n);
    void Fecha(const QDate &d);
    QDate Quefecha(double &x) const;
    QDate Quefecha(const double &x) const
    {
        double v = x;
        return Quefecha(v);
    }
    double QuePrecio(double &x) const;
    double QuePrecio(const double &x) const
    {
        double v = x;
        return QuePrecio(v);
    }
    double QueNum(const QDate &d) const;
    void Vertical();
    void ColorCuadricula(double colour) { colorCuadricula_ = colour; }
    void Width(double v);
    void Top(double v);
    void Visible(bool v);
    double Width() const;
    double Left() const;
    double Height() const;
    double Top() const;
    bool Visible() const;
    void tipo(double v) { tipo_ = v; }

    // The operations that write back take a variable; a constant or an
    // expression is accepted as the language passes it, by a copy.

    // Read access for the windows and the tests; the class itself only
    // ever writes these through the operations above.
    double YAxisMax() const { return yAxisMax_; }
    double YAxisMin() const { return yAxisMin_; }
    double YAxisTicks() const { return yAxisTicks_; }
    double NumSets() const { return numSets_; }
    double ThisSet() const { return thisSet_; }
    double ThisPoint() const { return thisPoint_; }
    double graphtype() const { return graphtype_; }
    const QString &graphtitle() const { return graphtitle_; }
    double Split() const { return split_; }
    double tipo() const { return tipo_; }
    bool Logaritmica() const { return logaritmica(); } // as Graphdata reads it now
    double YAxisStyle() const { return yAxisStyle_; }
    double valor(double set, double point) const; // Graphdata as stored
    QDate fechaDe(double point) const;
    bool verticalDe(double point) const;
    // 30/12/1899, the day of the date zero.
    static constexpr QDate fechaCero() { return QDate::fromJulianDay(2415019); }
    Surface *surfacePtr() const { return surface_; } // the picture box, if any

  private:
    void Trazar();
    void plotLines(double dx);
    void plotCandles(double dx);
    void plotBars(double dx);
    void verticalMark(double i, double dx);
    // A set's pen and the x of a point's segment, worked out once for all
    // the sets; a flag down stands for a conversion that failed.
    struct Pluma {
        bool conAncho = false, conColor = false, conBorde = false;
        int ancho = 0, color = 0, borde = 0; // borde: the outline of a bar
    };
    using Plumas = std::array<Pluma, kSets + 1>;
    struct Tramo {
        bool valido = false;
        float desde = 0, hasta = 0;
    };
    Plumas plumas() const;
    static Tramo tramo(double i, double dx);
    void setLine(int s, double i, const Tramo &t, const Pluma &pluma);
    bool valorSimple(int s, double p, float &y) const;
    inline double &at(double set, double point);
    double at(double set, double point) const { return const_cast<grafica *>(this)->at(set, point); }
    bool logaritmica() const { return logaritmica_ && *logaritmica_; }
    Surface &surface() const;
    Surface &control() const;

    const bool *logaritmica_;
    double tipo_ = 0;
    Surface *control_ = nullptr;
    Surface *surface_ = nullptr;
    double yAxisTicks_ = 0;
    double yAxisMin_ = 0;
    double yAxisMax_ = 0;
    double split_ = 0;
    std::vector<double> data_; // set after set, each kPoints long
    std::vector<unsigned char> vertical_;
    std::vector<QDate> fecha_;
    double numPoints_ = 0;
    double yAxisStyle_ = 0;
    QString graphtitle_;
    double graphtype_ = 0;
    double graphStyle_ = 0, gridStyle_ = 0;
    double numSets_ = 0;
    double thisSet_ = 0, thisPoint_ = 0;
    // The two as places from 0 when both are whole and in range, else -1:
    // Graphdata then skips the checks and the conversions.
    int setPlace_ = -1, pointPlace_ = -1;
    QString mascara_;
    std::array<double, kSets> gruesoLinea_{};
    double colorCuadricula_ = 0;
    std::array<double, kSets> colorLinea_{};
};

// The calls made for every point of every set, inline for the indicator
// routines and the price chart's fill.

double &grafica::at(double set, double point)
{
    const int s = chartmath::index(set, 1, kSets);
    const int p = chartmath::index(point, 1, kPoints);
    return data_[std::size_t(s - 1) * kPoints + std::size_t(p - 1)];
}

void grafica::ThisPoint(double p)
{
    // A refill starts each point clean: no old month mark, no old date.
    thisPoint_ = p;
    pointPlace_ = -1; // stays so if the index fails
    const int i = chartmath::index(p, 1, kPoints) - 1;
    if (i + 1 == p) // a rounded point number keeps the checked way
        pointPlace_ = i;
    vertical_[i] = 0;
    fecha_[i] = fechaCero();
}

void grafica::ThisSet(double s)
{
    thisSet_ = s;
    setPlace_ = s >= 1 && s <= kSets && static_cast<int>(s) == s ? static_cast<int>(s) - 1 : -1;
}

void grafica::Graphdata(double &x)
{
    if (logaritmica())
        x = A_Escala(x, true);
    if ((setPlace_ | pointPlace_) >= 0) {
        data_[std::size_t(setPlace_) * kPoints + std::size_t(pointPlace_)] = x;
        if (pointPlace_ == 0)
            yAxisMin_ = 0;
    } else {
        at(thisSet_, thisPoint_) = x;
        if (thisPoint_ == 1)
            yAxisMin_ = 0;
    }
    if (yAxisMax_ < x)
        yAxisMax_ = x;
    if (yAxisMin_ > x)
        yAxisMin_ = x;
}

void grafica::Fila(double p, double *valores, int n)
{
    const int punto = p >= 1 && p <= kPoints ? static_cast<int>(p) : 0;
    if (punto != p || n < 0 || n > kSets || logaritmica()) {
        ThisPoint(p);
        FilaPorSeries(valores, n);
        return;
    }
    // ThisPoint for a whole point in range, without checking it again.
    thisPoint_ = p;
    pointPlace_ = punto - 1;
    vertical_[std::size_t(punto - 1)] = 0;
    fecha_[std::size_t(punto - 1)] = fechaCero();
    // The extremes of the row first, then one comparison with the chart's:
    // the same result as set after set (a NaN is never taken either way)
    // without a chain of comparisons through the chart from call to call.
    double *columna = data_.data() + (punto - 1);
    double maximo = -HUGE_VAL, minimo = HUGE_VAL;
    for (int s = 0; s < n; ++s) {
        const double x = valores[s];
        columna[std::size_t(s) * kPoints] = x;
        maximo = maximo < x ? x : maximo;
        minimo = minimo > x ? x : minimo;
    }
    // Jumps, not selections: a new extreme is rare, and a predicted jump
    // does not make the next row wait for this one's result.
    if (n > 0) {
        if (yAxisMax_ < maximo)
            yAxisMax_ = maximo;
        if (punto == 1) // the first point starts the minimum at 0 at each set
            yAxisMin_ = valores[n - 1] < 0 ? valores[n - 1] : 0;
        else if (yAxisMin_ > minimo)
            yAxisMin_ = minimo;
    }
    thisSet_ = n; // ThisSet(n)
    setPlace_ = n - 1;
}

} // namespace tesorel
