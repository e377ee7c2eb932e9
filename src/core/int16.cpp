#include "core/int16.h"

#include "core/currency.h"
#include "core/runtime_error.h"

#include <cmath>
#include <limits>

namespace tesorel
{

namespace
{

[[noreturn]] void overflow()
{
    throw RuntimeError(err::Overflow, QStringLiteral("Desbordamiento"));
}

template <typename T> T roundInto(double value)
{
    if (!std::isfinite(value))
        overflow();
    const double whole = Round(value, 0);
    if (whole < std::numeric_limits<T>::min() || whole > std::numeric_limits<T>::max())
        overflow();
    return static_cast<T>(whole);
}

Int16 checked(int value)
{
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max())
        overflow();
    return Int16(static_cast<double>(value));
}

} // namespace

std::int16_t Int16::redondear(double value)
{
    return roundInto<std::int16_t>(value);
}

Int16 Int16::operator+(Int16 other) const
{
    return checked(int(value_) + int(other.value_));
}
Int16 Int16::operator-(Int16 other) const
{
    return checked(int(value_) - int(other.value_));
}
Int16 Int16::operator*(Int16 other) const
{
    return checked(int(value_) * int(other.value_));
}

std::int16_t CInt(double value)
{
    return roundInto<std::int16_t>(value);
}
std::int32_t CLng(double value)
{
    return roundInto<std::int32_t>(value);
}

} // namespace tesorel
