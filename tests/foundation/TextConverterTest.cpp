// SPDX-License-Identifier: MIT
#include "Vesk/TextConverter.h"
#include "Vesk/UTF16Encoding.h"
#include "Vesk/UTF8Encoding.h"
#include <gtest/gtest.h>

namespace Vesk
{

namespace
{

struct ConverterCase
{
    std::string utf16;
    std::string utf8;
    int replacedCount;
};

const ConverterCase CONVERTER_CASES[] = {
    {"", "", 0},
    {std::string("\0a\0\xE9\x20\xAC\xD8\x3D\xDE\0", 10), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", 0},
    {std::string("\0a\xD8\0\0b", 6), "a?b", 1},
    {std::string("\xDC\0\xD8\0\0", 5), "???", 3},
};

} // namespace

TEST(TextConverter, ReplacesIllFormedSequencesOneByOne)
{
    const UTF8Encoding utf8;
    const UTF16Encoding utf16;
    for (const ConverterCase& row : CONVERTER_CASES)
    {
        std::string out("old text");
        EXPECT_EQ(TextConverter(utf16, utf8).convert(row.utf16, out), row.replacedCount) << row.utf8;
        EXPECT_EQ(out, row.utf8);
        if (row.replacedCount > 0)
            continue;
        EXPECT_EQ(TextConverter(utf8, utf16).convert(row.utf8, out), 0) << row.utf8;
        EXPECT_EQ(out, row.utf16) << row.utf8;
    }
}

TEST(TextConverter, DefaultCharacterCanBeChosen)
{
    const UTF8Encoding utf8;
    std::string out;
    EXPECT_EQ(TextConverter(utf8, utf8, 0xFFFD).convert("a\xC0\xFFz", out), 2);
    EXPECT_EQ(out, "a\xEF\xBF\xBD\xEF\xBF\xBDz");
    EXPECT_EQ(TextConverter(utf8, utf8, TextEncoding::ILL_FORMED).convert("a\xC0\xFFz", out), 2);
    EXPECT_EQ(out, "az");
}

} // namespace Vesk
