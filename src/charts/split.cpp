#include "charts/split.h"

#include "charts/checked_math.h"
#include "core/format.h"
#include "core/numbers.h"

namespace tesorel
{

using namespace chartmath;

double factorSplit(double cierreAnterior, double anterior)
{
    const double r = divide(cierreAnterior, anterior);
    if (r > 0.97 && r < 1.3)
        return 1;
    return r;
}

QString DetectorSplits::notaDe(const QDate &fecha, double factor)
{
    // The year's conversion brings its own leading blank.
    return Format(fecha, QStringLiteral("dddd, d")) + QStringLiteral(" de ") +
           Format(fecha, QStringLiteral("mmmm")) + QStringLiteral(" de") + Str(fecha.year()) +
           QStringLiteral(" : Split x ") + Str(factor);
}

void DetectorSplits::ajustar(const Registro &r, Ajustado &a, QString &noticias)
{
    a.cierre = r.ultimo;
    a.acciones = r.volumen;
    if (finite(r.anterior * cierreAnterior_) == 0) {
        // Without one of the two closes nothing is adjusted, not even by the
        // factor found so far; high and low stay as the record before left them.
        cierreAnterior_ = r.ultimo;
        return;
    }
    if (r.anterior != cierreAnterior_) {
        const double f = factorSplit(cierreAnterior_, r.anterior);
        if (f != 1) {
            nota_ = notaDe(r.fecha, f);
            noticias += nota_ + QStringLiteral("\r\n");
            // Added after the note reached the news: never seen there.
            nota_ += QStringLiteral(" (Anulado)");
        }
        actual_ = finite(f * acumulado_);
        acumulado_ = actual_;
    }
    if (actual_ != 0) {
        a.cierre = finite(r.ultimo * actual_);
        a.maximo = finite(r.maximo * actual_);
        a.minimo = finite(r.minimo * actual_);
        a.acciones = divide(r.volumen, actual_);
    }
    cierreAnterior_ = r.ultimo;
}

} // namespace tesorel
