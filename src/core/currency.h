#pragma once
#include <QString>
#include <cstdint>

namespace tesorel
{

// Money with four decimals: a 64-bit count of ten-thousandths.
// Conversion from a double rounds half to even; overflow past the
// range raises RuntimeError(Overflow).
class Currency
{
  public:
    constexpr Currency() = default;
    static Currency fromDouble(double value)
    {
        const double x = value * 10000.0;
        return entero(x) ? fromUnits(static_cast<std::int64_t>(x)) : fromDoubleRounded(value);
    }
    static constexpr Currency fromUnits(std::int64_t units)
    {
        Currency c;
        c.units_ = units;
        return c;
    }

    std::int64_t units() const { return units_; }
    double toDouble() const { return static_cast<double>(units_) / 10000.0; }

    Currency operator+(Currency other) const;
    Currency operator-(Currency other) const;
    Currency operator-() const;
    // The product rounded half to even.
    Currency operator*(double factor) const
    {
        const double x = static_cast<double>(units_) * factor;
        return entero(x) ? fromUnits(static_cast<std::int64_t>(x)) : productRounded(x);
    }
    double operator/(Currency other) const; // a plain double quotient
    Currency &operator+=(Currency other) { return *this = *this + other; }
    Currency &operator-=(Currency other) { return *this = *this - other; }
    auto operator<=>(const Currency &) const = default;

  private:
    // Most amounts land on a whole ten-thousandth: nothing to round then (the
    // bound keeps to where the rounding would take x as it is).
    static bool entero(double x)
    {
        return x > -5e13 && x < 5e13 && x == static_cast<double>(static_cast<std::int64_t>(x));
    }
    static Currency fromDoubleRounded(double value);
    static Currency productRounded(double tenThousandths);
    std::int64_t units_ = 0;
};

// Round(x, digits) with half to even on the decimal digit, as the
// language's Round does (Round(2.5) = 2, Round(0.125, 2) = 0.12).
double Round(double value, int digits = 0);

} // namespace tesorel
