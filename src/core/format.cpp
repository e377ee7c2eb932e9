#include "core/format.h"

#include "core/decimal_text.h"
#include "core/numbers.h"

#include <cmath>
#include <string>
#include <vector>

namespace tesorel
{

namespace
{

// One piece of a number mask after reading it.
struct MaskToken {
    enum Kind { Digit, Point, Comma, Literal } kind;
    QChar placeholder; // '#' or '0' for a Digit
    QString text;      // for a Literal
};

struct NumberMask {
    std::vector<MaskToken> tokens;
    bool percent = false;
};

// Splits the mask into its ";" sections: positive; negative; zero.
std::vector<QString> splitSections(const QString &mask)
{
    std::vector<QString> sections(1);
    bool quoted = false;
    for (qsizetype i = 0; i < mask.size(); ++i) {
        const QChar c = mask[i];
        if (c == u'"')
            quoted = !quoted;
        if (!quoted && c == u'\\' && i + 1 < mask.size()) {
            sections.back() += c;
            sections.back() += mask[++i];
            continue;
        }
        if (!quoted && c == u';' && sections.size() < 4) {
            sections.emplace_back();
            continue;
        }
        sections.back() += c;
    }
    return sections;
}

NumberMask readMask(const QString &section)
{
    NumberMask mask;
    bool pointSeen = false;
    for (qsizetype i = 0; i < section.size(); ++i) {
        const QChar c = section[i];
        if (c == u'#' || c == u'0') {
            mask.tokens.push_back({MaskToken::Digit, c, {}});
        } else if (c == u'.' && !pointSeen) {
            pointSeen = true;
            mask.tokens.push_back({MaskToken::Point, {}, {}});
        } else if (c == u',') {
            if (!pointSeen)
                mask.tokens.push_back({MaskToken::Comma, {}, {}});
        } else if (c == u'\\' && i + 1 < section.size()) {
            mask.tokens.push_back({MaskToken::Literal, {}, QString(section[++i])});
        } else if (c == u'"') {
            const qsizetype close = section.indexOf(u'"', i + 1);
            const qsizetype end = close < 0 ? section.size() : close;
            mask.tokens.push_back({MaskToken::Literal, {}, section.mid(i + 1, end - i - 1)});
            i = end;
        } else {
            if (c == u'%')
                mask.percent = true;
            mask.tokens.push_back({MaskToken::Literal, {}, QString(c)});
        }
    }
    return mask;
}

// What a section's placeholders ask for, read once from its tokens.
struct MaskLayout {
    std::size_t pointIndex;            // the decimal point's token, or the end
    std::vector<std::size_t> intSlots; // the integer placeholders
    bool grouping = false;             // a comma between integer placeholders
    int thousandsScale = 0;            // commas after the last one: each divides by a thousand
    int decimals = 0, requiredDecimals = 0;
    int minIntDigits = 0;
};

MaskLayout layoutOf(const NumberMask &mask)
{
    const auto &tokens = mask.tokens;
    MaskLayout l;
    l.pointIndex = tokens.size();
    for (std::size_t i = 0; i < tokens.size(); ++i)
        if (tokens[i].kind == MaskToken::Point)
            l.pointIndex = i;
    for (std::size_t i = 0; i < l.pointIndex; ++i)
        if (tokens[i].kind == MaskToken::Digit)
            l.intSlots.push_back(i);
    for (std::size_t i = 0; i < l.pointIndex; ++i) {
        if (tokens[i].kind != MaskToken::Comma || l.intSlots.empty() || i < l.intSlots.front())
            continue;
        if (i < l.intSlots.back())
            l.grouping = true;
        else
            ++l.thousandsScale;
    }
    for (std::size_t i = l.pointIndex; i < tokens.size(); ++i) {
        if (tokens[i].kind != MaskToken::Digit)
            continue;
        ++l.decimals;
        if (tokens[i].placeholder == u'0')
            l.requiredDecimals = l.decimals;
    }
    for (std::size_t k = 0; k < l.intSlots.size(); ++k)
        if (tokens[l.intSlots[k]].placeholder == u'0') {
            l.minIntDigits = static_cast<int>(l.intSlots.size() - k);
            break;
        }
    return l;
}

// The digits of the integer part go right to left into the placeholders;
// the first placeholder takes whatever is left over.
std::vector<std::string> digitsBySlot(const std::string &whole, std::size_t slotCount)
{
    std::vector<std::string> slotDigits(slotCount);
    std::size_t remaining = whole.size();
    for (std::size_t k = slotCount; k-- > 0;) {
        if (k == 0) {
            slotDigits[k] = whole.substr(0, remaining);
            remaining = 0;
        } else if (remaining > 0) {
            slotDigits[k] = whole.substr(remaining - 1, 1);
            --remaining;
        }
    }
    return slotDigits;
}

QString formatSection(double magnitude, bool negative, const NumberMask &mask)
{
    const auto &tokens = mask.tokens;
    const MaskLayout l = layoutOf(mask);

    double scaled = magnitude;
    if (mask.percent)
        scaled *= 100;
    for (int i = 0; i < l.thousandsScale; ++i)
        scaled /= 1000;
    if (!std::isfinite(scaled))
        return CStr(negative ? -scaled : scaled); // "%" can push the largest doubles past the range
    const DecimalText d = DecimalText::fromDouble(scaled).roundedHalfAway(l.decimals);
    std::string whole = d.integerDigits();
    if (static_cast<int>(whole.size()) < l.minIntDigits)
        whole.insert(0, l.minIntDigits - whole.size(), '0');
    const std::string frac = d.decimalDigits(l.decimals);
    int shownDecimals = l.decimals;
    while (shownDecimals > l.requiredDecimals && frac[shownDecimals - 1] == '0')
        --shownDecimals;
    const std::vector<std::string> slotDigits = digitsBySlot(whole, l.intSlots.size());

    QString out;
    if (negative)
        out += u'-';
    std::size_t digitsLeft = whole.size();
    bool anyDigit = false;
    auto putIntegerDigits = [&](const std::string &digits) {
        for (char c : digits) {
            if (l.grouping && anyDigit && digitsLeft % 3 == 0)
                out += u'.';
            out += QChar(c);
            anyDigit = true;
            --digitsLeft;
        }
    };
    std::size_t slot = 0;
    int decimalSlot = 0;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const MaskToken &t = tokens[i];
        switch (t.kind) {
        case MaskToken::Digit:
            if (i < l.pointIndex) {
                putIntegerDigits(slotDigits[slot++]);
            } else {
                if (decimalSlot < shownDecimals)
                    out += QChar(frac[decimalSlot]);
                ++decimalSlot;
            }
            break;
        case MaskToken::Point:
            if (l.intSlots.empty())
                putIntegerDigits(whole);
            out += u',';
            break;
        case MaskToken::Comma:
            break;
        case MaskToken::Literal:
            out += t.text;
            break;
        }
    }
    if (l.intSlots.empty() && l.pointIndex == tokens.size())
        putIntegerDigits(whole);
    return out;
}

} // namespace

QString Format(double value, const QString &mask)
{
    if (mask.isEmpty() || !std::isfinite(value))
        return CStr(value);
    const std::vector<QString> sections = splitSections(mask);
    // A negative number shows a "-" even when its digits round to zero
    // (-0.001 through "0.00" is "-0,00"): the sign is that of the number,
    // not of the text, as the masks have always worked.
    const bool negative = value < 0;
    if (value == 0 && sections.size() >= 3 && !sections[2].isEmpty())
        return formatSection(0, false, readMask(sections[2]));
    if (negative && sections.size() >= 2 && !sections[1].isEmpty())
        return formatSection(-value, false, readMask(sections[1]));
    return formatSection(std::fabs(value), negative, readMask(sections[0]));
}

} // namespace tesorel
