#include "core/numbers.h"

#include "core/decimal_text.h"
#include "core/runtime_error.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

namespace tesorel
{

namespace
{

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// Decimal text in the C form ("-12.5e3") to a double; nullopt when it is
// out of the range of a double.
std::optional<double> parseAscii(const std::string &text)
{
    double value = 0;
    auto res = std::from_chars(text.data(), text.data() + text.size(), value);
    if (res.ec == std::errc::result_out_of_range) {
        // from_chars says "out of range" for underflow as well: a tiny number is 0.
        std::size_t e = text.find('e');
        if (e != std::string::npos && text.find('-', e) != std::string::npos)
            return 0.0;
        return std::nullopt;
    }
    if (res.ec != std::errc())
        return std::nullopt;
    return value;
}

// "&H1F" and "&O17": the whole number in 16 bits when it fits there, as the
// language reads such literals (so "&HFFFF" is -1), else in 32 bits.
std::optional<double> parseRadix(const QString &text, qsizetype start, qsizetype *end)
{
    if (start + 1 >= text.size() || text[start] != u'&')
        return std::nullopt;
    const QChar kind = text[start + 1].toUpper();
    int base = kind == u'H' ? 16 : kind == u'O' ? 8 : 0;
    if (base == 0)
        return std::nullopt;
    std::uint64_t value = 0;
    qsizetype i = start + 2;
    for (; i < text.size(); ++i) {
        int digit = -1;
        const char16_t c = text[i].unicode();
        if (c >= u'0' && c <= u'7')
            digit = c - u'0';
        else if (base == 16 && c >= u'8' && c <= u'9')
            digit = c - u'0';
        else if (base == 16 && c >= u'a' && c <= u'f')
            digit = c - u'a' + 10;
        else if (base == 16 && c >= u'A' && c <= u'F')
            digit = c - u'A' + 10;
        if (digit < 0)
            break;
        value = value * base + digit;
        if (value > 0xFFFFFFFFull)
            throw RuntimeError(err::Overflow, QStringLiteral("Desbordamiento"));
    }
    *end = i;
    if (value <= 0xFFFF)
        return static_cast<double>(static_cast<std::int16_t>(value));
    return static_cast<double>(static_cast<std::int32_t>(value));
}

[[noreturn]] void typeMismatch()
{
    throw RuntimeError(err::TypeMismatch, QStringLiteral("No coinciden los tipos"));
}

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == QChar(0xA0);
}

// The locale reading on Spanish settings; nullopt when the text is no number.
std::optional<double> readSpanish(const QString &input)
{
    qsizetype begin = 0, end = input.size();
    while (begin < end && isBlank(input[begin]))
        ++begin;
    while (end > begin && isBlank(input[end - 1]))
        --end;
    QString text = input.mid(begin, end - begin);

    if (text.startsWith(u'&')) {
        qsizetype stop = 0;
        auto value = parseRadix(text, 0, &stop);
        if (!value || stop != text.size() || stop == 2)
            return std::nullopt;
        return value;
    }

    bool negative = false;
    bool signSeen = false;
    auto takeSign = [&](QChar c) {
        if (signSeen || (c != u'-' && c != u'+'))
            return false;
        signSeen = true;
        negative = c == u'-';
        return true;
    };
    auto stripBlanks = [&] {
        while (!text.isEmpty() && isBlank(text.front()))
            text.remove(0, 1);
        while (!text.isEmpty() && isBlank(text.back()))
            text.chop(1);
    };
    // Parentheses around an amount mean a negative one.
    if (text.size() >= 2 && text.front() == u'(' && text.back() == u')') {
        text = text.mid(1, text.size() - 2);
        signSeen = true;
        negative = true;
        stripBlanks();
    }
    // The currency sign and the sign may stand before or after the figure.
    for (int pass = 0; pass < 2 && !text.isEmpty(); ++pass) {
        if (text.front() == QChar(0x20AC))
            text.remove(0, 1);
        else if (takeSign(text.front()))
            text.remove(0, 1);
        stripBlanks();
    }
    for (int pass = 0; pass < 2 && !text.isEmpty(); ++pass) {
        if (text.back() == QChar(0x20AC))
            text.chop(1);
        else if (takeSign(text.back()))
            text.chop(1);
        stripBlanks();
    }

    std::string ascii = negative ? "-" : "";
    qsizetype i = 0;
    const qsizetype n = text.size();
    int mantissaDigits = 0;
    bool comma = false;
    for (; i < n; ++i) {
        const QChar c = text[i];
        if (isDigit(c)) {
            ascii += static_cast<char>(c.unicode());
            ++mantissaDigits;
        } else if (c == u'.' && !comma && i > 0 && isDigit(text[i - 1]) && i + 1 < n &&
                   isDigit(text[i + 1])) {
            // a thousands point; where it stands does not matter
        } else if (c == u',' && !comma) {
            comma = true;
            ascii += '.';
        } else {
            break;
        }
    }
    if (mantissaDigits == 0)
        return std::nullopt;
    if (i < n) {
        const QChar e = text[i].toUpper();
        if (e != u'E' && e != u'D')
            return std::nullopt;
        ++i;
        ascii += 'e';
        if (i < n && (text[i] == u'+' || text[i] == u'-'))
            ascii += static_cast<char>(text[i++].unicode());
        qsizetype expStart = i;
        for (; i < n && isDigit(text[i]); ++i)
            ascii += static_cast<char>(text[i].unicode());
        if (i == expStart || i != n)
            return std::nullopt;
    }
    auto value = parseAscii(ascii);
    if (!value)
        throw RuntimeError(err::Overflow, QStringLiteral("Desbordamiento"));
    return value;
}

// The shortest text of the 15 significant digits; E notation below 1E-04
// and from 1E+15 on, as the language writes a double.
QString numberText(double value, QChar point, bool leadingZero)
{
    if (std::isnan(value))
        return QStringLiteral("NaN");
    if (std::isinf(value))
        return value < 0 ? QStringLiteral("-Inf") : QStringLiteral("Inf");
    const DecimalText d = DecimalText::fromDouble(value);
    if (d.isZero())
        return QStringLiteral("0");
    QString out = d.negative ? QStringLiteral("-") : QString();
    const int exponent = d.point - 1;
    if (exponent < -4 || exponent >= 15) {
        out += QChar(d.digits[0]);
        if (d.digits.size() > 1) {
            out += point;
            out += QString::fromLatin1(d.digits.data() + 1, static_cast<qsizetype>(d.digits.size() - 1));
        }
        out += exponent < 0 ? QStringLiteral("E-") : QStringLiteral("E+");
        out += QStringLiteral("%1").arg(std::abs(exponent), 2, 10, QChar(u'0'));
        return out;
    }
    const std::string whole = d.integerDigits();
    if (whole.empty() && leadingZero)
        out += u'0';
    else
        out += QString::fromLatin1(whole.data(), static_cast<qsizetype>(whole.size()));
    const int decimals = static_cast<int>(d.digits.size()) - d.point;
    if (decimals > 0) {
        std::string frac = d.decimalDigits(decimals);
        out += point;
        out += QString::fromLatin1(frac.data(), static_cast<qsizetype>(frac.size()));
    }
    return out;
}

} // namespace

double Numero_Val(const QString &input)
{
    // Val drops every blank, tab and line feed before it reads.
    QString text;
    text.reserve(input.size());
    for (QChar c : input)
        if (c != u' ' && c != u'\t' && c != u'\n')
            text += c;

    try {
        if (text.startsWith(u'&')) {
            qsizetype end = 0;
            return parseRadix(text, 0, &end).value_or(0.0);
        }
    } catch (const RuntimeError &) {
        return 0.0; // the guarded reading answers 0 on an overflow
    }

    std::string ascii;
    qsizetype i = 0;
    const qsizetype n = text.size();
    if (i < n && (text[i] == u'+' || text[i] == u'-'))
        if (text[i++] == u'-')
            ascii += '-'; // from_chars takes no "+"
    int mantissaDigits = 0;
    bool point = false;
    for (; i < n; ++i) {
        const QChar c = text[i];
        if (isDigit(c)) {
            ascii += static_cast<char>(c.unicode());
            ++mantissaDigits;
        } else if (c == u'.' && !point) {
            point = true;
            ascii += '.';
        } else {
            break;
        }
    }
    if (mantissaDigits == 0)
        return 0.0;
    if (i < n) {
        const QChar e = text[i].toUpper();
        if (e == u'E' || e == u'D') {
            std::string exponent = "e";
            qsizetype j = i + 1;
            if (j < n && (text[j] == u'+' || text[j] == u'-'))
                exponent += static_cast<char>(text[j++].unicode());
            const qsizetype digitsStart = j;
            for (; j < n && isDigit(text[j]); ++j)
                exponent += static_cast<char>(text[j].unicode());
            if (j > digitsStart)
                ascii += exponent;
        }
    }
    return parseAscii(ascii).value_or(0.0);
}

double CDbl(const QString &text)
{
    auto value = readSpanish(text);
    if (!value)
        typeMismatch();
    return *value;
}

double Numero_Cdbl(const QString &text)
{
    try {
        return readSpanish(text).value_or(0.0);
    } catch (const RuntimeError &) {
        return 0.0;
    }
}

bool IsNumeric(const QString &text)
{
    try {
        return readSpanish(text).has_value();
    } catch (const RuntimeError &) {
        return false;
    }
}

QString Str(double value)
{
    QString text = numberText(value, u'.', false);
    return value >= 0 || text == u"0" ? u' ' + text : text;
}

QString CStr(double value)
{
    return numberText(value, u',', true);
}

QString Coma_A_Punto(const QString &text)
{
    QString out = text;
    out.replace(u',', u'.');
    return out;
}

QString Barra_A_Guion(const QString &text)
{
    QString out = text;
    out.replace(u'/', u'-');
    return out;
}

} // namespace tesorel
