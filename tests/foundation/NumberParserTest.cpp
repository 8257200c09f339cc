// SPDX-License-Identifier: MIT
#include "Vesk/NumberParser.h"
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace Vesk
{

namespace
{

struct IntegerCase
{
    const char* text;
    bool isInt;
    bool isLong;
    long value;
};

const IntegerCase INTEGER_CASES[] = {
    {"0", true, true, 0},
    {"-0", true, true, 0},
    {"007", true, true, 7},
    {"2147483647", true, true, 2147483647},
    {"-2147483648", true, true, -2147483648},
    {"2147483648", false, true, 2147483648},
    {"-2147483649", false, true, -2147483649},
    {"9223372036854775807", false, true, std::numeric_limits<long>::max()},
    {"-9223372036854775808", false, true, std::numeric_limits<long>::min()},
    {"9223372036854775808", false, false, 0},
    {"-9223372036854775809", false, false, 0},
    {"1,000,000", true, true, 1000000},
    {"-1,0", true, true, -10},
    {",1", false, false, 0},
    {"1,", false, false, 0},
    {"1,,0", false, false, 0},
    {"-,1", false, false, 0},
    {"", false, false, 0},
    {"-", false, false, 0},
    {"+1", false, false, 0},
    {"--1", false, false, 0},
    {" 1", false, false, 0},
    {"1 ", false, false, 0},
    {"1.0", false, false, 0},
    {"1e3", false, false, 0},
    {"0x10", false, false, 0},
    {"12a", false, false, 0},
};

struct RealCase
{
    const char* text;
    double value;
};

const RealCase REAL_CASES[] = {
    {"0", 0.0},
    {"1.5", 1.5},
    {"-1.5e-7", -1.5e-7},
    {"1E+20", 1e20},
    {"1e20", 1e20},
    {".5", 0.5},
    {"5.", 5.0},
    {"1,234,567.25", 1234567.25},
    {"1.7976931348623157e308", std::numeric_limits<double>::max()},
    {"5e-324", std::numeric_limits<double>::denorm_min()},
    {"INF", std::numeric_limits<double>::infinity()},
    {"-INF", -std::numeric_limits<double>::infinity()},
    // Decides correctly between two neighbours that differ in the last bit.
    {"9007199254740993", 9007199254740992.0},
    {"9007199254740993.0000000000000000000001", 9007199254740994.0},
};

const char* const BAD_REALS[] = {
    "",      "-",     ".",      "-.",     "e5",   ".e5", "1e",    "1e+",  "1.5.2", "+1",       " 1",
    "1 ",    "1.5f",  "inf",    "-inf",   "+INF", "Inf", "nan",   "NAN",  "-NaN",  "INFINITY", "nan(1)",
    "0x1p3", "1e400", "-1e400", "1e-400", ",1",   "1,",  "1.0,5", "1,e5", "1e1,0", "1,,0",     "1,.5",
};

} // namespace

TEST(NumberParser, ReadsIntegers)
{
    for (const IntegerCase& row : INTEGER_CASES)
    {
        int number = 99;
        EXPECT_EQ(NumberParser::tryParse(row.text, number), row.isInt) << row.text;
        EXPECT_EQ(number, row.isInt ? row.value : 99) << row.text;
        long number64 = 99;
        EXPECT_EQ(NumberParser::tryParse64(row.text, number64), row.isLong) << row.text;
        EXPECT_EQ(number64, row.isLong ? row.value : 99) << row.text;
    }
}

TEST(NumberParser, ReadsReals)
{
    for (const RealCase& row : REAL_CASES)
    {
        double number = 99;
        EXPECT_TRUE(NumberParser::tryParseFloat(row.text, number)) << row.text;
        EXPECT_EQ(number, row.value) << row.text;
    }
    double number = 0;
    EXPECT_TRUE(NumberParser::tryParseFloat("-0", number));
    EXPECT_TRUE(std::signbit(number));
    EXPECT_TRUE(NumberParser::tryParseFloat("NaN", number));
    EXPECT_TRUE(std::isnan(number));
}

TEST(NumberParser, RefusesEverythingElse)
{
    for (const char* text : BAD_REALS)
    {
        double number = 99;
        EXPECT_FALSE(NumberParser::tryParseFloat(text, number)) << text;
        EXPECT_EQ(number, 99) << text;
    }
    int number = 99;
    EXPECT_FALSE(NumberParser::tryParse(std::string_view("1\0", 2), number));
}

TEST(NumberParser, SeparatorsCanBeChosen)
{
    int number = 0;
    EXPECT_TRUE(NumberParser::tryParse("1'000", number, '\''));
    EXPECT_EQ(number, 1000);
    EXPECT_FALSE(NumberParser::tryParse("1,000", number, '\''));
    EXPECT_FALSE(NumberParser::tryParse("1,000", number, 0));

    double real = 0;
    EXPECT_TRUE(NumberParser::tryParseFloat("-1.234.567,5e1", real, ',', '.'));
    EXPECT_EQ(real, -12345675.0);
    EXPECT_FALSE(NumberParser::tryParseFloat("1.5", real, ',', 0));
    EXPECT_FALSE(NumberParser::tryParseFloat("1,5.5", real, ',', '.'));
    EXPECT_FALSE(NumberParser::tryParseFloat(std::string_view("1\0002", 3), real, ',', 0));
}

TEST(NumberParser, ReadsAsManyDigitsAsThereAre)
{
    const std::string many = std::string(100000, '1') + "e-100000";
    double number = 0;
    EXPECT_TRUE(NumberParser::tryParseFloat(many, number));
    EXPECT_NEAR(number, 0.1111111111111111, 1e-15);
    long integer = 0;
    EXPECT_FALSE(NumberParser::tryParse64(std::string(100000, '1'), integer));
}

} // namespace Vesk
