#include "charts/grafica.h"

#include "charts/checked_math.h"
#include "charts/surface.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/scale.h"

#include <cmath>

namespace tesorel
{

using namespace chartmath;

namespace
{
const QString kEtiqueta = QStringLiteral("###,###.##");

[[noreturn]] void noObject()
{
    throw RuntimeError(err::ObjectNotSet,
                       QStringLiteral("Variable de tipo Object o de bloque With no establecida"));
}
} // namespace

grafica::grafica(const bool *logaritmica)
    : logaritmica_(logaritmica), data_(std::size_t(kSets) * kPoints, 0.0), vertical_(kPoints, 0),
      fecha_(kPoints, fechaCero())
{
}

double grafica::valor(double set, double point) const
{
    return at(set, point);
}
QDate grafica::fechaDe(double point) const
{
    return fecha_[index(point, 1, kPoints) - 1];
}
bool grafica::verticalDe(double point) const
{
    return vertical_[index(point, 1, kPoints) - 1] != 0;
}

Surface &grafica::surface() const
{
    if (!surface_)
        noObject();
    return *surface_;
}

Surface &grafica::control() const
{
    if (!control_)
        noObject();
    return *control_;
}

void grafica::Anular_split(bool flag)
{
    if (flag && split_ != 0) {
        yAxisMin_ = divide(yAxisMin_, split_);
        yAxisMax_ = divide(yAxisMax_, split_);
    }
    // The fore colour is set for every set of every point, but only the
    // last one stays, or the one where a division failed.
    if (surface_ && numPoints_ >= 0 && numPoints_ <= kPoints && numSets_ >= 0 && numSets_ <= kSets) {
        const int puntos = int(numPoints_), series = int(numSets_);
        if (puntos < 1 || series < 1)
            return;
        int s = 1;
        try {
            if (split_ != 0)
                for (int i = 0; i < puntos; ++i)
                    for (s = 1; s <= series; ++s) {
                        double &v = data_[std::size_t(s - 1) * kPoints + std::size_t(i)];
                        v = divide(v, split_);
                    }
        } catch (const RuntimeError &) {
            surface_->setForeColor(s);
            throw;
        }
        surface_->setForeColor(series);
        return;
    }
    for (double i = 1; i <= numPoints_; ++i)
        for (double s = 1; s <= numSets_; ++s) {
            surface().setForeColor(toLong(s));
            if (split_ != 0) {
                double &v = at(s, i);
                v = divide(v, split_);
            }
        }
}

void grafica::FilaPorSeries(double *valores, int n)
{
    for (int s = 0; s < n; ++s) {
        ThisSet(s + 1);
        Graphdata(valores[s]);
    }
}

void grafica::GruesoLinea(double set, double width)
{
    gruesoLinea_[index(set, 1, kSets) - 1] = width;
}
void grafica::ColorLinea(double set, double colour)
{
    colorLinea_[index(set, 1, kSets) - 1] = colour;
}

void grafica::asociar(Surface *c)
{
    control_ = c;
    thisSet_ = 1;
    thisPoint_ = 1;
    setPlace_ = 0;
    pointPlace_ = 0;
    yAxisMax_ = 0;
}

void grafica::Pintar()
{
    const double h = control().height();
    for (double i = 0; i <= h; ++i)
        surface().line(0, toSingle(i), toSingle(control().width()), toSingle(i), toLong(i));
}

void grafica::Picture(Surface *box)
{
    control_ = box;
    surface_ = box;
}

void grafica::YAxisMax(double &x)
{
    x = A_Escala(x, logaritmica());
    yAxisMax_ = x;
}

void grafica::YAxisMin(double &x)
{
    x = A_Escala(x, logaritmica());
    yAxisMin_ = x;
}

void grafica::Left(double v)
{
    control().setLeft(v);
}
void grafica::Height(double v)
{
    control().setHeight(v);
}
void grafica::Width(double v)
{
    control().setWidth(v);
}
void grafica::Top(double v)
{
    control().setTop(v);
}
void grafica::Visible(bool v)
{
    control().setVisible(v);
}
double grafica::Width() const
{
    return control().width();
}
double grafica::Left() const
{
    return control().left();
}
double grafica::Height() const
{
    return control().height();
}
double grafica::Top() const
{
    return control().top();
}
bool grafica::Visible() const
{
    return control().visible();
}

void grafica::Fecha(const QDate &d)
{
    fecha_[index(thisPoint_, 1, kPoints) - 1] = d;
}
void grafica::Vertical()
{
    vertical_[index(thisPoint_, 1, kPoints) - 1] = 1;
}

void grafica::Escribir(QString &t)
{
    Surface &box = surface();
    if (IsNumeric(t))
        t = Format(CDbl(t), mascara_);
    // A whole number through "###,###.##" keeps a bare decimal comma.
    if (t.endsWith(QLatin1Char(',')))
        t.chop(1);
    box.setForeColor(toLong(colorCuadricula_ / 2));
    box.setCurrentX(-15);
    box.setCurrentX(toSingle(double(box.currentX()) - box.textWidth(t)));
    box.print(t);
    box.setCurrentY(toSingle(double(box.currentY()) - box.textHeight(t)));
    box.setCurrentY(toSingle(double(box.currentY()) + double(box.scaleHeight()) / 12));
}

void grafica::LineaHorizontal(double y)
{
    Surface &box = surface();
    box.setDrawWidth(1);
    box.line(-5, toSingle(y), 1005, toSingle(y), toLong(colorCuadricula_));
    box.setCurrentX(-20);
    box.setCurrentY(toSingle(y - double(box.textHeight(Format(y, kEtiqueta))) / 2));
    QString t = Format(De_Escala(y, logaritmica()), kEtiqueta);
    Escribir(t);
}

namespace
{
// The position written back by Quefecha and QuePrecio: the point number
// after a trip through text with 15 significant digits.
double pointFromPosition(double numPoints, double &x)
{
    double p = finite(numPoints * x / 1000);
    p = Numero_Val(Str(p));
    x = p;
    return p;
}
} // namespace

QDate grafica::Quefecha(double &x) const
{
    const double p = pointFromPosition(numPoints_, x);
    if (p > 0 && p <= kPoints)
        return fecha_[index(p, 1, kPoints) - 1];
    return fechaCero();
}

double grafica::QuePrecio(double &x) const
{
    const double p = pointFromPosition(numPoints_, x);
    if (p > 0 && p <= kPoints)
        return at(1, p);
    return 0;
}

double grafica::QueNum(const QDate &d) const
{
    for (double i = 1; i <= numPoints_; ++i)
        if (fecha_[index(i, 1, kPoints) - 1] >= d)
            return i / numPoints_ * 1000;
    return 0;
}

} // namespace tesorel
