// SPDX-License-Identifier: MIT
#include "Vesk/NumericString.h"
#include "ExceptionMatcher.h"
#include "Vesk/NumberParser.h"
#include <cmath>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace Vesk
{

namespace
{

using Float = std::numeric_limits<float>;
using Double = std::numeric_limits<double>;

template <class To, class From>
To bitsAs(From from)
{
    static_assert(sizeof(To) == sizeof(From));
    To to;
    std::memcpy(&to, &from, sizeof to);
    return to;
}

struct DoubleCase
{
    double value;
    const char* text; // with the bounds -15 and 15
};

const DoubleCase DOUBLE_CASES[] = {
    {0.0, "0"},
    {-0.0, "-0"},
    {1.0, "1"},
    {-1.5, "-1.5"},
    {0.1, "0.1"},
    {1.0 / 3, "0.3333333333333333"},
    {100.0, "100"},
    {123456.789, "123456.789"},
    // The bounds themselves: plain from exponent -15 to 14.
    {1e14, "100000000000000"},
    {999999999999999.0, "999999999999999"},
    {123456789012345.67, "123456789012345.67"},
    {1e15, "1e15"},
    {1234567890123456.0, "1.234567890123456e15"},
    {1e-15, "0.000000000000001"},
    {1.25e-15, "0.00000000000000125"},
    {9.9e-16, "9.9e-16"},
    {-2.5e-100, "-2.5e-100"},
    {Double::max(), "1.7976931348623157e308"},
    {Double::lowest(), "-1.7976931348623157e308"},
    {Double::min(), "2.2250738585072014e-308"},
    {Double::denorm_min(), "5e-324"},
    {Double::infinity(), "INF"},
    {-Double::infinity(), "-INF"},
    {Double::quiet_NaN(), "NaN"},
    {-Double::quiet_NaN(), "NaN"},
};

struct FloatCase
{
    float value;
    const char* text; // with the bounds -6 and 6
};

const FloatCase FLOAT_CASES[] = {
    {0.0f, "0"},
    {-0.0f, "-0"},
    {0.1f, "0.1"},
    {16777216.0f, "1.6777216e7"},
    {123456.0f, "123456"},
    {123456.78f, "123456.78"},
    {1e5f, "100000"},
    {1e6f, "1e6"},
    {1e-6f, "0.000001"},
    {9.9e-7f, "9.9e-7"},
    {Float::max(), "3.4028235e38"},
    {Float::min(), "1.1754944e-38"},
    {Float::denorm_min(), "1e-45"},
    {-Float::infinity(), "-INF"},
    {Float::quiet_NaN(), "NaN"},
};

} // namespace

TEST(NumericString, PrintsIntegersInAnyBase)
{
    EXPECT_EQ(intToStr(0), "0");
    EXPECT_EQ(intToStr(std::numeric_limits<long>::min()), "-9223372036854775808");
    EXPECT_EQ(intToStr(std::numeric_limits<long>::max()), "9223372036854775807");
    EXPECT_EQ(uIntToStr(std::numeric_limits<unsigned long>::max()), "18446744073709551615");
    EXPECT_EQ(uIntToStr(0xDEADBEEF, 16), "DEADBEEF");
    EXPECT_EQ(uIntToStr(0xAB, 16, 4), "00AB");
    EXPECT_EQ(uIntToStr(0xABCDE, 16, 4), "ABCDE");
    EXPECT_EQ(intToStr(-5, 2, 6), "-00101");
    EXPECT_EQ(intToStr(std::numeric_limits<long>::min(), 2), "-1" + std::string(63, '0'));
    for (const int base : {-1, 0, 1, 17})
        EXPECT_THROW(intToStr(5, base), AssertionViolationException) << base;
}

TEST(NumericString, PrintsDoublesInTheirShortestForm)
{
    for (const DoubleCase& row : DOUBLE_CASES)
        EXPECT_EQ(doubleToStr(row.value, -15, 15), row.text);
}

TEST(NumericString, PrintsFloatsInTheirShortestForm)
{
    for (const FloatCase& row : FLOAT_CASES)
        EXPECT_EQ(floatToStr(row.value, -6, 6), row.text);
}

TEST(NumericString, BoundsChooseTheNotation)
{
    EXPECT_EQ(doubleToStr(25, 0, 0), "2.5e1");
    EXPECT_EQ(doubleToStr(25, 1, 2), "25");
    EXPECT_EQ(doubleToStr(0.25, 0, 10), "2.5e-1");
    EXPECT_EQ(doubleToStr(1e308, -400, 400), "1" + std::string(308, '0'));
    EXPECT_EQ(doubleToStr(5e-324, -400, 400), "0." + std::string(323, '0') + "5");
}

TEST(NumericString, DoublesReadBackBitForBit)
{
    std::mt19937_64 random(20240229);
    for (int i = 0; i < 200000; ++i)
    {
        const std::uint64_t bits = random();
        const double value = bitsAs<double>(bits);
        if (std::isnan(value))
            continue;
        const std::string text = doubleToStr(value, -15, 15);
        double back = 0;
        ASSERT_TRUE(NumberParser::tryParseFloat(text, back)) << text;
        ASSERT_EQ(bitsAs<std::uint64_t>(back), bits) << text;
    }
}

TEST(NumericString, FloatsReadBackBitForBit)
{
    std::mt19937 random(20240229);
    for (int i = 0; i < 200000; ++i)
    {
        const std::uint32_t bits = static_cast<std::uint32_t>(random());
        const float value = bitsAs<float>(bits);
        if (std::isnan(value))
            continue;
        const std::string text = floatToStr(value, -6, 6);
        double back = 0;
        ASSERT_TRUE(NumberParser::tryParseFloat(text, back)) << text;
        ASSERT_EQ(bitsAs<std::uint32_t>(static_cast<float>(back)), bits) << text;
    }
}

} // namespace Vesk
