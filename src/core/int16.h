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
    Int16(double value); // rounds half to even, overflow past the range
    std::int16_t value() const { return value_; }
    operator double() const { return value_; }

    Int16 operator+(Int16 other) const;
    Int16 operator-(Int16 other) const;
    Int16 operator*(Int16 other) const;
    Int16 &operator+=(Int16 other) { return *this = *this + other; }
    Int16 &operator-=(Int16 other) { return *this = *this - other; }

  private:
    std::int16_t value_ = 0;
};

// CInt: half to even rounding into 16 bits, overflow past the range.
std::int16_t CInt(double value);
// CLng: half to even rounding into 32 bits, overflow past the range.
std::int32_t CLng(double value);

} // namespace tesorel
