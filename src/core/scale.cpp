#include "core/scale.h"

#include <cmath>

namespace tesorel
{

double A_Escala(double value, bool logaritmica)
{
    // ln(x) / ln(10), not log10: the last bit must match the stored charts.
    return (logaritmica && value > 0) ? std::log(value) / std::log(10.0) : value;
}

double De_Escala(double value, bool logaritmica)
{
    return logaritmica ? std::pow(10.0, value) : value;
}

} // namespace tesorel
