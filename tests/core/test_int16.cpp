#include "core/int16.h"
#include "core/runtime_error.h"
#include "fallo.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

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
