#include "charts/checked_math.h"

#include "core/runtime_error.h"

#include <cfloat>
#include <cmath>

namespace tesorel::chartmath
{

namespace
{
[[noreturn]] void overflow()
{
    throw RuntimeError(err::Overflow, QStringLiteral("Desbordamiento"));
}
} // namespace

float toSingle(double value)
{
    if (!std::isfinite(value) || std::fabs(value) > double(FLT_MAX))
        overflow();
    return static_cast<float>(value);
}

std::int32_t toLong(double value)
{
    const double r = std::nearbyint(value);
    if (!(r >= -2147483648.0 && r <= 2147483647.0))
        overflow();
    return static_cast<std::int32_t>(r);
}

double divide(double a, double b)
{
    if (b == 0) {
        if (a == 0 || std::isnan(a))
            overflow();
        throw RuntimeError(err::DivisionByZero, QStringLiteral("División por cero"));
    }
    return finite(a / b);
}

double finite(double value)
{
    if (!std::isfinite(value))
        overflow();
    return value;
}

double mod(double a, double b)
{
    const std::int32_t x = toLong(a);
    const std::int32_t y = toLong(b);
    if (y == 0)
        throw RuntimeError(err::DivisionByZero, QStringLiteral("División por cero"));
    return double(std::int64_t(x) % std::int64_t(y));
}

int index(double value, int first, int last)
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
