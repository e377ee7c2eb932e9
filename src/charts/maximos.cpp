#include "charts/maximos.h"

#include "charts/checked_math.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>

namespace tesorel
{

using namespace chartmath;

double Maximos::Max(double valor, double periodo)
{
    // Ages count from 0 and run out on equality.
    if (valor >= maximo_) {
        maximo_ = valor;
        edad_ = 0;
        segundoMaximo_ = 0;
    } else {
        if (valor >= segundoMaximo_) {
            segundoMaximo_ = valor;
            segundaEdad_ = 0;
        } else {
            segundaEdad_ = segundaEdad_ + 1;
        }
        edad_ = edad_ + 1;
        if (edad_ == periodo) {
            maximo_ = segundoMaximo_;
            edad_ = segundaEdad_;
        }
    }
    return maximo_;
}

double Maximos::Mini(double valor, double periodo)
{
    // Ages count from 1 and run out at or above the period.
    if (iniciado_ == 0) {
        minimo_ = 1e19;
        iniciado_ = 1;
    }
    if (valor <= minimo_) {
        minimo_ = valor;
        edadMin_ = 1;
        segundoMinimo_ = 1e19;
    } else {
        if (valor <= segundoMinimo_) {
            segundoMinimo_ = valor;
            segundaEdadMin_ = 1;
        } else {
            segundaEdadMin_ = segundaEdadMin_ + 1;
        }
        edadMin_ = edadMin_ + 1;
        if (edadMin_ >= periodo) {
            minimo_ = segundoMinimo_;
            edadMin_ = segundaEdadMin_;
        }
    }
    return minimo_;
}

// The newest value goes into the ring; `extremo`, started at `inicio`,
// becomes the extreme of the ring's first `periodo` places, the places not
// yet written counting as zeros. A failing place leaves what was found so far.
// This is every case; the charts' case, a whole period, goes the quick way
// of the header and never comes here.
template <class Mejor>
void extremoDelAnillo(std::array<double, 200> &anillo, std::int64_t &pos, double valor, double periodo,
                      double &extremo, double inicio, Mejor mejor)
{
    pos = std::int64_t(mod(double(pos), periodo)) + 1;
    anillo[size_t(index(double(pos), 1, 200) - 1)] = valor;
    extremo = inicio;
    for (double i = 1; i <= periodo; ++i) {
        const double v = anillo[size_t(index(i, 1, 200) - 1)];
        if (mejor(v, extremo))
            extremo = v;
    }
}

double Maximos::MaxiEnAnillo(double valor, double periodo)
{
    extremoDelAnillo(ringMax_, posMax_, valor, periodo, maximo_, 0.0, std::greater<double>());
    return maximo_;
}

double Maximos::MinEnAnillo(double valor, double periodo)
{
    extremoDelAnillo(ringMin_, posMin_, valor, periodo, minimo_, 1e21, std::less<double>());
    return minimo_;
}

} // namespace tesorel
