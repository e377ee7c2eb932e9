#include "core/currency.h"

#include "core/decimal_text.h"
#include "core/runtime_error.h"

#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

namespace tesorel
{

namespace
{

[[noreturn]] void overflow()
{
    throw RuntimeError(err::Overflow, QStringLiteral("Desbordamiento"));
}

constexpr double kPotencias[] = {1,   10,  100,  1e3,  1e4,  1e5,  1e6,  1e7,
                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// value * 10^scale rounded to the nearest whole number straight from the
// binary value, when that is sure to be what the 15-digit text gives.
// Cutting to 15 significant digits moves a number by at most 5e-15 of
// itself and the product adds at most 1.2e-16: outside a band of 1e-14 of
// |x| around a half, the text and x round to the same whole number. Near
// a half (a tie in the text, 2.675 and its kind) or for numbers whose 15
// digits end before the wanted decimal, the caller goes through the text.
std::optional<double> redondeoDirecto(double value, int scale)
{
    if (scale < 0 || scale >= static_cast<int>(std::size(kPotencias)))
        return std::nullopt;
    const double x = value * kPotencias[scale];
    if (!(std::fabs(x) < 1e15)) // also rejects NaN and infinities
        return std::nullopt;
    const double entero = std::nearbyint(x);
    const double resto = std::fabs(x - entero); // exact: both are multiples of x's last bit
    if (std::fabs(resto - 0.5) <= std::fabs(x) * 1e-14)
        return std::nullopt;
    return entero == 0 ? 0.0 : entero; // the text has no negative zero
}

// The whole number of `scale` decimals that a double rounds to, half to
// even on its 15-digit text; overflow past the 64-bit range.
std::int64_t roundedUnits(double value, int scale)
{
    if (!std::isfinite(value))
        overflow();
    if (const std::optional<double> directo = redondeoDirecto(value, scale))
        return static_cast<std::int64_t>(*directo);
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

Currency Currency::fromDoubleRounded(double value)
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

Currency Currency::productRounded(double tenThousandths)
{
    return fromUnits(roundedUnits(tenThousandths, 0));
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
    if (const std::optional<double> directo = redondeoDirecto(value, digits))
        return *directo / kPotencias[digits]; // one correctly rounded division, as reading the text back
    return DecimalText::fromDouble(value).roundedHalfEven(digits).toDouble();
}

} // namespace tesorel
