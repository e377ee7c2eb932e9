#pragma once
#include <cstdint>

namespace tesorel::chartmath
{

// The arithmetic of the chart classes with the failures the language
// raises instead of producing infinities: all throw RuntimeError.

// A double as single precision; Overflow past its range or for NaN.
float toSingle(double value);
// Half-to-even rounding into 32 bits (colours, pen widths); Overflow past the range.
std::int32_t toLong(double value);
// a / b: DivisionByZero for x / 0, Overflow for 0 / 0 or a result past the range.
double divide(double a, double b);
// A result that left the range of a double: Overflow.
double finite(double value);
// a Mod b on both rounded to whole numbers; the sign follows a.
// DivisionByZero when b rounds to 0.
double mod(double a, double b);
// An array index: rounded half to even, SubscriptOutOfRange outside first..last.
int index(double value, int first, int last);
// The value that a loop "for i = first to last" leaves in i on its final
// pass (first itself if the loop does not run at all).
double lastPass(double first, double last);

} // namespace tesorel::chartmath
