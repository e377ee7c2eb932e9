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
    static Currency fromDouble(double value);
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
    Currency operator*(double factor) const; // the product rounded half to even
    double operator/(Currency other) const;  // a plain double quotient
    Currency &operator+=(Currency other) { return *this = *this + other; }
    Currency &operator-=(Currency other) { return *this = *this - other; }
    auto operator<=>(const Currency &) const = default;

  private:
    std::int64_t units_ = 0;
};

// Round(x, digits) with half to even on the decimal digit, as the
// language's Round does (Round(2.5) = 2, Round(0.125, 2) = 0.12).
double Round(double value, int digits = 0);

} // namespace tesorel
