#pragma once
#include <cfloat>
#include <cmath>
#include <cstdint>

namespace tesorel::chartmath
{

// The arithmetic of the chart classes with the failures the language
// raises instead of producing infinities: all throw RuntimeError.

// The failures themselves, kept out of line so that the checks inline.
[[noreturn]] void throwOverflow();
[[noreturn]] void throwDivisionByZero();

// A double as single precision; Overflow past its range or for NaN.
inline float toSingle(double value)
{
    if (!(std::fabs(value) <= double(FLT_MAX)))
        throwOverflow();
    return static_cast<float>(value);
}
// Half-to-even rounding into 32 bits (colours, pen widths); Overflow past the range.
std::int32_t toLongRounded(double value);
inline std::int32_t toLong(double value)
{
    // Whole numbers, nearly every call, need no rounding.
    if (value >= -2147483648.0 && value <= 2147483647.0) {
        const auto i = static_cast<std::int32_t>(value);
        if (i == value)
            return i;
    }
    return toLongRounded(value);
}
// An array index: rounded half to even, SubscriptOutOfRange outside first..last.
int indexRounded(double value, int first, int last);
inline int index(double value, int first, int last)
{
    if (value >= first && value <= last) {
        const int i = static_cast<int>(value);
        if (i == value)
            return i;
    }
    return indexRounded(value, first, last);
}
// A result that left the range of a double: Overflow.
inline double finite(double value)
{
    if (!std::isfinite(value))
        throwOverflow();
    return value;
}
// a / b: DivisionByZero for x / 0, Overflow for 0 / 0 or a result past the range.
inline double divide(double a, double b)
{
    if (b == 0) {
        if (a == 0 || std::isnan(a))
            throwOverflow();
        throwDivisionByZero();
    }
    return finite(a / b);
}
// a Mod b on both rounded to whole numbers; the sign follows a.
// DivisionByZero when b rounds to 0.
inline double mod(double a, double b)
{
    const std::int32_t x = toLong(a);
    const std::int32_t y = toLong(b);
    if (y == 0)
        throwDivisionByZero();
    if (x >= 0 && x < y)
        return x; // a ring position moving on: no division
    return double(std::int64_t(x) % std::int64_t(y));
}
// The value that a loop "for i = first to last" leaves in i on its final
// pass (first itself if the loop does not run at all).
double lastPass(double first, double last);

} // namespace tesorel::chartmath
