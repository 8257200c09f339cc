// SPDX-License-Identifier: MIT
#include "Vesk/NumberFormatter.h"
#include <gtest/gtest.h>
#include <limits>

namespace Vesk
{

TEST(NumberFormatter, FormatsEachType)
{
    EXPECT_EQ(NumberFormatter::format(std::numeric_limits<int>::min()), "-2147483648");
    EXPECT_EQ(NumberFormatter::format(std::numeric_limits<unsigned>::max()), "4294967295");
    EXPECT_EQ(NumberFormatter::format(std::numeric_limits<long>::min()), "-9223372036854775808");
    EXPECT_EQ(NumberFormatter::format(std::numeric_limits<unsigned long>::max()), "18446744073709551615");
    EXPECT_EQ(NumberFormatter::format(short{-7}), "-7");
    EXPECT_EQ(NumberFormatter::format(true), "true");
    EXPECT_EQ(NumberFormatter::format(false), "false");
}

TEST(NumberFormatter, FloatAndDoubleHaveBoundsOfTheirOwn)
{
    EXPECT_EQ(NumberFormatter::format(1e5f), "100000");
    EXPECT_EQ(NumberFormatter::format(1e6f), "1e6");
    EXPECT_EQ(NumberFormatter::format(1e6), "1000000");
    EXPECT_EQ(NumberFormatter::format(1e15), "1e15");
    EXPECT_EQ(NumberFormatter::format(1e-6f), "0.000001");
    EXPECT_EQ(NumberFormatter::format(1e-7f), "1e-7");
    EXPECT_EQ(NumberFormatter::format(1e-15), "0.000000000000001");
    EXPECT_EQ(NumberFormatter::format(1e-16), "1e-16");
}

TEST(NumberFormatter, AppendKeepsWhatIsThere)
{
    std::string text;
    NumberFormatter::append(text, 1);
    text += ' ';
    NumberFormatter::append(text, -2.5);
    text += ' ';
    NumberFormatter::append(text, true);
    EXPECT_EQ(text, "1 -2.5 true");
}

} // namespace Vesk
