#pragma once
#include <cstdint>

namespace tesorel
{

// A 16-bit signed whole number as the classes of the ledger keep shares
// and codes: any result past -32768..32767 raises RuntimeError(Overflow).
class Int16
{
  public:
    constexpr Int16() = default;
    // Rounds half to even, overflow past the range.
    Int16(double value) : value_(entero(value) ? static_cast<std::int16_t>(value) : redondear(value)) {}
    std::int16_t value() const { return value_; }
    operator double() const { return value_; }

    Int16 operator+(Int16 other) const;
    Int16 operator-(Int16 other) const;
    Int16 operator*(Int16 other) const;
    Int16 &operator+=(Int16 other) { return *this = *this + other; }
    Int16 &operator-=(Int16 other) { return *this = *this - other; }

  private:
    // Shares and codes mostly arrive whole: nothing to round then.
    static bool entero(double v) { return v >= -32768 && v <= 32767 && v == static_cast<std::int16_t>(v); }
    static std::int16_t redondear(double value);
    std::int16_t value_ = 0;
};

// CInt: half to even rounding into 16 bits, overflow past the range.
std::int16_t CInt(double value);
// CLng: half to even rounding into 32 bits, overflow past the range.
std::int32_t CLng(double value);

} // namespace tesorel
