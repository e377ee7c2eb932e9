#include "core/currency.h"
#include "core/decimal_text.h"
#include "core/int16.h"
#include "core/runtime_error.h"
#include "fallo.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

TEST(Round, HalfToEvenOnTheDecimalText)
{
    const struct {
        double value;
        int digits;
        double expected;
    } cases[] = {
        {2.5, 0, 2},    {3.5, 0, 4},      {0.5, 0, 0},      {1.5, 0, 2},          {-2.5, 0, -2},
        {-3.5, 0, -4},  {0.125, 2, 0.12}, {0.135, 2, 0.14}, {-0.125, 2, -0.12},   {2.675, 2, 2.68},
        {1.005, 2, 1},  {1.015, 2, 1.02}, {0.00005, 4, 0},  {0.00015, 4, 0.0002}, {123.456, 1, 123.5},
        {2.4999, 0, 2}, {2.5001, 0, 3},   {1e20, 2, 1e20},  {0.3, 5, 0.3},        {99.995, 2, 100},
        {-0.4, 0, 0},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Round(c.value, c.digits), c.expected) << c.value << " to " << c.digits;
    EXPECT_EQ(falloDe([] { Round(1.5, -1); }).numero, err::InvalidCall) << "negative digits";
}

TEST(Currency, OverflowPastTheRange)
{
    const std::int64_t max = std::numeric_limits<std::int64_t>::max();
    const std::int64_t min = std::numeric_limits<std::int64_t>::min();
    EXPECT_TRUE(desborda([] { Currency::fromDouble(922337203685478.0); })) << "fromDouble above";
    EXPECT_TRUE(desborda([] { Currency::fromDouble(-922337203685478.0); })) << "fromDouble below";
    EXPECT_TRUE(desborda([] { Currency::fromDouble(1e300); })) << "fromDouble huge";
    EXPECT_TRUE(desborda([] { Currency::fromDouble(std::nan("")); })) << "fromDouble NaN";
    EXPECT_TRUE(desborda([=] { Currency::fromUnits(max) + Currency::fromUnits(1); })) << "sum";
    EXPECT_TRUE(desborda([=] { Currency::fromUnits(min) - Currency::fromUnits(1); })) << "difference";
    EXPECT_TRUE(desborda([=] { -Currency::fromUnits(min); })) << "negation";
    EXPECT_TRUE(desborda([] { Currency::fromDouble(1e14) * 100.0; })) << "product";
    EXPECT_EQ((Currency::fromUnits(max - 1) + Currency::fromUnits(1)).units(), max);
}

TEST(Currency, Arithmetic)
{
    const Currency ten = Currency::fromDouble(10);
    const Currency four = Currency::fromDouble(4);
    EXPECT_EQ((ten + four).units(), 140000);
    EXPECT_EQ((ten - four).units(), 60000);
    EXPECT_EQ((-four).units(), -40000);
    EXPECT_EQ(ten / four, 2.5);
    EXPECT_EQ(Currency::fromUnits(12345).toDouble(), 1.2345);
    Currency sum;
    sum += ten;
    sum -= four;
    EXPECT_EQ(sum, Currency::fromDouble(6));
    EXPECT_LT(four, ten);
}

TEST(Currency, ProductRoundsHalfToEven)
{
    const struct {
        Currency money;
        double factor;
        std::int64_t units;
    } cases[] = {
        {Currency::fromDouble(1), 0.00005, 0}, // half a unit: to the even 0
        {Currency::fromDouble(3), 0.00005, 2}, // one and a half: to 2
        {Currency::fromUnits(5), 0.5, 2},
        {Currency::fromUnits(7), 0.5, 4},
        {Currency::fromUnits(-5), 0.5, -2},
        {Currency::fromDouble(10.5), 3, 315000},
        {Currency::fromDouble(12.3456), -2, -246912},
    };
    for (const auto &c : cases)
        EXPECT_EQ((c.money * c.factor).units(), c.units) << c.money.units() << " * " << c.factor;
}

// Currency::fromDouble rounds half to even at the fourth decimal, straight
// from the binary value when the result is sure; these are the values where
// a shortcut goes wrong (ties of the text at the rounded digit, numbers not
// exact in binary, the edges of 15 digits and of the range), each with its
// neighbours. All must agree with the text route; some units are also given.
TEST(Currency, DirectRoundingAgreesWithTheDecimalText)
{
    const struct {
        double valor;
        std::optional<std::int64_t> unidades = {};
    } casos[] = {
        {0, 0},
        {1.23456, 12346},
        {0.00005, 0},
        {0.00015, 2},
        {0.00025, 2},
        {-0.00015, -2},
        {1.00015},
        {2.675},
        {1.005},
        {0.125},
        {2.5, 25000},
        {-2.5},
        {-1.00015},
        {-0.00005},
        {1234.56785},
        {-1234.56785, -12345678},
        {99999.99995},
        {1.000050000000001},
        {123456789.00005},
        {9999999999.99995},
        {1e10 + 0.00005},
        {100000000000000.3},
        {922337203685477.0, 9223372036854770000},
        {-922337203685477.0, -9223372036854770000},
        {0.1 + 0.2, 3000},
        {4503599627370495.5},
        {1e-300},
    };
    for (const auto &c : casos) {
        if (c.unidades) {
            EXPECT_EQ(Currency::fromDouble(c.valor).units(), *c.unidades) << c.valor;
        }
        const double caso = c.valor;
        for (double v :
             {std::nextafter(std::nextafter(caso, -1e300), -1e300), std::nextafter(caso, -1e300), caso,
              std::nextafter(caso, 1e300), std::nextafter(std::nextafter(caso, 1e300), 1e300)}) {
            for (const int digitos : {0, 2, 4})
                EXPECT_EQ(Round(v, digitos), DecimalText::fromDouble(v).roundedHalfEven(digitos).toDouble())
                    << v << " to " << digitos;
            if (std::fabs(v) > 9.223e14)
                continue;
            const DecimalText t = DecimalText::fromDouble(v).roundedHalfEven(4);
            const std::int64_t unidades = std::stoll(t.integerDigits() + t.decimalDigits(4));
            EXPECT_EQ(Currency::fromDouble(v).units(), t.negative ? -unidades : unidades) << v;
        }
    }
}

// Sixteen- and thirty-two-bit whole numbers.
TEST(CInt, HalfToEvenWithinSixteenBits)
{
    const struct {
        double value;
        int expected;
    } cases[] = {{2.5, 2},         {3.5, 4},           {-2.5, -2}, {-3.5, -4},     {0.5, 0},
                 {1.5, 2},         {2.4, 2},           {2.6, 3},   {32767, 32767}, {-32768, -32768},
                 {32767.4, 32767}, {-32768.4, -32768}, {0, 0}};
    for (const auto &c : cases) {
        EXPECT_EQ(CInt(c.value), c.expected) << c.value;
        EXPECT_EQ(Int16(c.value).value(), c.expected) << c.value;
        EXPECT_EQ(CLng(c.value), c.expected) << c.value;
    }
}

TEST(CInt, OverflowPastTheRange)
{
    const double cases[] = {32767.5, 32768, -32768.6, -40000, 1e10, std::nan(""), INFINITY};
    for (double v : cases) {
        EXPECT_TRUE(desborda([v] { CInt(v); })) << v;
        EXPECT_TRUE(desborda([v] { Int16 x(v); })) << v;
    }
}

TEST(CLng, ThirtyTwoBits)
{
    EXPECT_EQ(CLng(2147483647), 2147483647);
    EXPECT_EQ(CLng(-2147483648.0), -2147483647 - 1);
    EXPECT_EQ(CLng(100000.5), 100000);
    EXPECT_TRUE(desborda([] { CLng(2147483647.5); }));
    EXPECT_TRUE(desborda([] { CLng(-2147483649.0); }));
}

TEST(Int16, ArithmeticOverflows)
{
    EXPECT_TRUE(desborda([] { Int16(32767) + Int16(1); }));
    EXPECT_TRUE(desborda([] { Int16(-32768) - Int16(1); }));
    EXPECT_TRUE(desborda([] { Int16(200) * Int16(200); }));
    EXPECT_TRUE(desborda([] {
        Int16 x(32000);
        x += Int16(1000);
    }));
    EXPECT_EQ((Int16(100) * Int16(3)).value(), 300);
    EXPECT_EQ((Int16(32766) + Int16(1)).value(), 32767);
    EXPECT_EQ((Int16(-5) - Int16(7)).value(), -12);
    Int16 x(10);
    x -= Int16(25);
    EXPECT_EQ(x.value(), -15);
}

} // namespace
