#include "core/decimal_text.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <system_error>

namespace tesorel
{

DecimalText DecimalText::fromDouble(double value)
{
    DecimalText d;
    if (value == 0)
        return d;
    d.negative = value < 0;
    // "d.dddddddddddddde+XX": 15 significant digits, locale-free.
    char buf[40];
    auto res =
        std::to_chars(buf, buf + sizeof buf, value < 0 ? -value : value, std::chars_format::scientific, 14);
    std::string text(buf, res.ptr);
    std::size_t e = text.find('e');
    int exponent = std::atoi(text.c_str() + e + 1);
    for (std::size_t i = 0; i < e; ++i)
        if (text[i] != '.')
            d.digits += text[i];
    d.point = exponent + 1;
    d.trim();
    return d;
}

void DecimalText::trim()
{
    while (!digits.empty() && digits.back() == '0')
        digits.pop_back();
    std::size_t lead = 0;
    while (lead < digits.size() && digits[lead] == '0')
        ++lead;
    digits.erase(0, lead);
    point -= static_cast<int>(lead);
    if (digits.empty()) {
        point = 0;
        negative = false;
    }
}

DecimalText DecimalText::roundedHalfEven(int places) const
{
    return rounded(places, true);
}
DecimalText DecimalText::roundedHalfAway(int places) const
{
    return rounded(places, false);
}

DecimalText DecimalText::rounded(int places, bool halfEven) const
{
    long keep = static_cast<long>(point) + places; // digits that stay
    if (keep >= static_cast<long>(digits.size()))
        return *this;
    DecimalText r = *this;
    if (keep < 0) {
        r.digits.clear();
        r.trim();
        return r;
    }
    const char first = digits[keep];
    bool restNonZero = false;
    for (std::size_t i = keep + 1; i < digits.size(); ++i)
        if (digits[i] != '0')
            restNonZero = true;
    bool up;
    if (first > '5' || (first == '5' && restNonZero))
        up = true;
    else if (first < '5')
        up = false;
    else if (!halfEven)
        up = true;
    else
        up = keep > 0 && ((digits[keep - 1] - '0') % 2 == 1);

    r.digits.resize(keep);
    if (up) {
        long i = keep - 1;
        while (i >= 0 && r.digits[i] == '9') {
            r.digits[i] = '0';
            --i;
        }
        if (i >= 0) {
            ++r.digits[i];
        } else {
            r.digits.insert(r.digits.begin(), '1');
            ++r.point;
        }
    }
    r.trim();
    return r;
}

std::string DecimalText::integerDigits() const
{
    if (point <= 0)
        return {};
    std::string s = digits.substr(0, std::min<std::size_t>(digits.size(), point));
    s.append(point - s.size(), '0');
    return s;
}

std::string DecimalText::decimalDigits(int places) const
{
    std::string s;
    s.reserve(places > 0 ? places : 0);
    for (int i = 0; i < places; ++i) {
        long index = static_cast<long>(point) + i;
        s += (index >= 0 && index < static_cast<long>(digits.size())) ? digits[index] : '0';
    }
    return s;
}

double DecimalText::toDouble() const
{
    if (digits.empty())
        return 0.0;
    std::string text = digits + "e" + std::to_string(point - static_cast<int>(digits.size()));
    double value = 0;
    auto res = std::from_chars(text.data(), text.data() + text.size(), value);
    if (res.ec == std::errc::result_out_of_range)
        value = point > 0 ? HUGE_VAL : 0.0; // the top of the range rounds past DBL_MAX
    return negative ? -value : value;
}

} // namespace tesorel
