#pragma once
#include <string>

namespace tesorel
{

// A double as the language sees it when it turns a number into text: the
// 15 significant digits of its decimal form. Every rounding of the system
// works on these digits, so 2.675 is "2675" (not 2.67499...) and rounds up.
struct DecimalText {
    bool negative = false;
    std::string digits; // significant digits, no leading or trailing zeros; "" for zero
    int point = 0;      // the decimal point stands after this many digits (may be < 0 or > size)

    static DecimalText fromDouble(double value); // value must be finite
    bool isZero() const { return digits.empty(); }

    // Keeps `places` decimals; the dropped part decides the last digit.
    DecimalText roundedHalfEven(int places) const;
    DecimalText roundedHalfAway(int places) const;

    // The digits of the integer part ("" when below 1) and `places` decimals.
    std::string integerDigits() const;
    std::string decimalDigits(int places) const;

    double toDouble() const;

  private:
    DecimalText rounded(int places, bool halfEven) const;
    void trim();
};

} // namespace tesorel
