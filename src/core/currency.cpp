#include "core/currency.h"

#include "core/decimal_text.h"
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

// The whole number of `scale` decimals that a double rounds to, half to
// even on its 15-digit text; overflow past the 64-bit range.
std::int64_t roundedUnits(double value, int scale)
{
    if (!std::isfinite(value))
        overflow();
    const DecimalText d = DecimalText::fromDouble(value).roundedHalfEven(scale);
    if (d.isZero())
        return 0;
    const long long places = static_cast<long long>(d.point) + scale; // digits of the whole number
    if (places > 19)
        overflow();
    unsigned __int128 magnitude = 0;
    for (long long i = 0; i < places; ++i) {
        const char digit = i < static_cast<long long>(d.digits.size()) ? d.digits[i] : '0';
        magnitude = magnitude * 10 + static_cast<unsigned>(digit - '0');
    }
    const unsigned __int128 limit =
        static_cast<unsigned __int128>(std::numeric_limits<std::int64_t>::max()) + (d.negative ? 1 : 0);
    if (magnitude > limit)
        overflow();
    if (d.negative)
        return static_cast<std::int64_t>(-static_cast<__int128>(magnitude));
    return static_cast<std::int64_t>(magnitude);
}

} // namespace

Currency Currency::fromDouble(double value)
{
    return fromUnits(roundedUnits(value, 4));
}

Currency Currency::operator+(Currency other) const
{
    std::int64_t sum = 0;
    if (__builtin_add_overflow(units_, other.units_, &sum))
        overflow();
    return fromUnits(sum);
}

Currency Currency::operator-(Currency other) const
{
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(units_, other.units_, &difference))
        overflow();
    return fromUnits(difference);
}

Currency Currency::operator-() const
{
    if (units_ == std::numeric_limits<std::int64_t>::min())
        overflow();
    return fromUnits(-units_);
}

Currency Currency::operator*(double factor) const
{
    // The product in ten-thousandths, rounded half to even to a whole one.
    return fromUnits(roundedUnits(static_cast<double>(units_) * factor, 0));
}

double Currency::operator/(Currency other) const
{
    return static_cast<double>(units_) / static_cast<double>(other.units_);
}

double Round(double value, int digits)
{
    if (!std::isfinite(value))
        return value;
    if (digits < 0)
        throw RuntimeError(err::InvalidCall, QStringLiteral("Llamada a procedimiento o argumento no válido"));
    return DecimalText::fromDouble(value).roundedHalfEven(digits).toDouble();
}

} // namespace tesorel
