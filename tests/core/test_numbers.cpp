#include "core/numbers.h"
#include "core/runtime_error.h"
#include "fallo.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

struct TextToNumber {
    const char *text;
    double expected;
};

TEST(NumeroVal, ReadsUpToTheFirstForeignCharacter)
{
    const TextToNumber cases[] = {
        {"", 0},
        {"abc", 0},
        {"1234,56", 1234}, // the comma ends the number: a Spanish amount loses its decimals
        {"1.000", 1},      // a Spanish thousands point is a decimal point here
        {".5", 0.5},
        {"-.5", -0.5},
        {"1 2", 12}, // blanks inside are dropped before reading
        {"\t4\n2", 42},
        {"  -3.25xyz", -3.25},
        {"+7", 7},
        {"--5", 0},
        {"1.2.3", 1.2},
        {"1E3", 1000},
        {"1D2", 100},
        {"2.5e-2", 0.025},
        {"3.5E+18", 3.5e18}, // the exponent's sign, as Str writes it
        {"1E", 1},           // an exponent without digits is ignored
        {"&H1F", 31},
        {"&hff", 255},
        {"&HFFFF", -1}, // four hex digits are a 16-bit number
        {"&H10000", 65536},
        {"&O17", 15},
        {"&H", 0},
        {"1E400", 0}, // overflow: the guarded reading answers 0
        {"1E-400", 0},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Numero_Val(QString::fromUtf8(c.text)), c.expected) << c.text;
}

TEST(CDbl, ReadsTheSpanishForm)
{
    const TextToNumber cases[] = {
        {"1.234,5", 1234.5},
        {"1.5", 15}, // a point is only a thousands sign
        {"1.234.567", 1234567},
        {"12,5", 12.5},
        {" 7 ", 7},
        {"-3,25", -3.25},
        {"3,25-", -3.25},
        {"+4", 4},
        {"- 4", -4},
        {",5", 0.5},
        {"5,", 5},
        {"1,5E-07", 1.5e-7},
        {"1E+16", 1e16},
        {"2D3", 2000},
        {"12 €", 12},
        {"€12,5", 12.5},
        {"(5)", -5},
        {"&H10", 16},
    };
    for (const auto &c : cases) {
        const QString text = QString::fromUtf8(c.text);
        EXPECT_EQ(CDbl(text), c.expected) << c.text;
        EXPECT_EQ(Numero_Cdbl(text), c.expected) << c.text;
        EXPECT_TRUE(IsNumeric(text)) << c.text;
    }
}

TEST(CDbl, RejectsTextThatIsNoNumber)
{
    // The last one is a number too large: an overflow, not a type mismatch.
    const char *cases[] = {"",   "   ", "abc", "-",   ",",  "1,2,3", "1.",    "1 2",   "12abc", "E5",
                           "1E", "1E+", "--1", "+-1", "&H", "&HZ",   "1,5.3", "5 - -", "1E400"};
    for (const char *text : cases) {
        const QString q = QString::fromUtf8(text);
        const bool demasiado = q == QStringLiteral("1E400");
        EXPECT_FALSE(IsNumeric(q)) << text;
        EXPECT_EQ(Numero_Cdbl(q), 0) << text;
        const Fallo f = falloDe([&] { CDbl(q); });
        EXPECT_EQ(f.numero, demasiado ? err::Overflow : err::TypeMismatch) << text;
        EXPECT_EQ(f.texto, QString::fromUtf8(demasiado ? "Desbordamiento" : "No coinciden los tipos"))
            << text;
    }
}

struct NumberToText {
    double value;
    const char *str;
    const char *cstr;
};

TEST(StrAndCStr, WriteFifteenSignificantDigits)
{
    const NumberToText cases[] = {
        {12.5, " 12.5", "12,5"},
        {0, " 0", "0"},
        {-3, "-3", "-3"},
        {0.5, " .5", "0,5"},
        {-0.25, "-.25", "-0,25"},
        {1.0 / 3.0, " .333333333333333", "0,333333333333333"},
        {0.1 + 0.2, " .3", "0,3"},
        {123456789012345, " 123456789012345", "123456789012345"},
        {1e15, " 1E+15", "1E+15"},
        {-1.25e20, "-1.25E+20", "-1,25E+20"},
        {1.5e-7, " 1.5E-07", "1,5E-07"},
        {0.0001, " .0001", "0,0001"},
        {0.00001, " 1E-05", "1E-05"},
        {1e-300, " 1E-300", "1E-300"},
        {-0.0, " 0", "0"},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(Str(c.value), QString::fromUtf8(c.str)) << c.str;
        EXPECT_EQ(CStr(c.value), QString::fromUtf8(c.cstr)) << c.cstr;
    }
}

} // namespace
