#include "charts/checked_math.h"

#include "core/runtime_error.h"

#include <cfloat>
#include <cmath>

namespace tesorel::chartmath
{

void throwOverflow()
{
    throw RuntimeError(err::Overflow, QStringLiteral("Desbordamiento"));
}

void throwDivisionByZero()
{
    throw RuntimeError(err::DivisionByZero, QStringLiteral("División por cero"));
}

std::int32_t toLongRounded(double value)
{
    const double r = std::nearbyint(value);
    if (!(r >= -2147483648.0 && r <= 2147483647.0))
        throwOverflow();
    return static_cast<std::int32_t>(r);
}

int indexRounded(double value, int first, int last)
{
    const double r = std::nearbyint(value);
    if (!(r >= first && r <= last))
        throw RuntimeError(err::SubscriptOutOfRange, QStringLiteral("El subíndice está fuera del intervalo"));
    return static_cast<int>(r);
}

double lastPass(double first, double last)
{
    if (!(last >= first))
        return first;
    return first + std::floor(last - first);
}

} // namespace tesorel::chartmath
