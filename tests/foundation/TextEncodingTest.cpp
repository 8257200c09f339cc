// SPDX-License-Identifier: MIT
#include "Vesk/TextIterator.h"
#include "Vesk/UTF16Encoding.h"
#include "Vesk/UTF8Encoding.h"
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace Vesk
{

namespace
{

constexpr int BAD = TextEncoding::ILL_FORMED;

struct EncodingCase
{
    std::string octets;
    std::vector<int> codePoints;
};

// A literal with zero octets in it.
template <std::size_t Size>
std::string octets(const char (&literal)[Size])
{
    return std::string(literal, Size - 1);
}

const EncodingCase UTF8_CASES[] = {
    {"", {}},
    {octets("a\0z"), {'a', 0, 'z'}},
    {"\x7F\xC2\x80\xDF\xBF", {0x7F, 0x80, 0x7FF}},
    {"\xE0\xA0\x80\xEF\xBF\xBF", {0x800, 0xFFFF}},
    {"\xED\x9F\xBF\xEE\x80\x80", {0xD7FF, 0xE000}},
    {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", {0x10000, 0x10FFFF}},
    // overlong
    {"\xC0\x80", {BAD, BAD}},
    {"\xC1\xBFz", {BAD, BAD, 'z'}},
    {"\xE0\x9F\xBF", {BAD, BAD, BAD}},
    {"\xF0\x8F\xBF\xBF", {BAD, BAD, BAD, BAD}},
    // surrogates, beyond U+10FFFF, no first octets
    {"\xED\xA0\x80z", {BAD, BAD, BAD, 'z'}},
    {"\xED\xBF\xBF", {BAD, BAD, BAD}},
    {"\xF4\x90\x80\x80", {BAD, BAD, BAD, BAD}},
    {"\xF5\x80\xFE\xFF", {BAD, BAD, BAD, BAD}},
    {"\x80"
     "a\xBF",
     {BAD, 'a', BAD}},
    // cut off by the end or by another character
    {"\xC3", {BAD}},
    {"\xE2\x82", {BAD}},
    {"\xF0\x9F\x98", {BAD}},
    {"\xE2\x82z", {BAD, 'z'}},
    {"\xF0\x9F\xC3\xA9", {BAD, 0xE9}},
    {"\xE2\xE2\x82\xAC", {BAD, 0x20AC}},
};

const EncodingCase UTF16_CASES[] = {
    {"", {}},
    {octets("\0a\x20\xAC\xFF\xFF"), {'a', 0x20AC, 0xFFFF}},
    {octets("\xFE\xFF\0a"), {0xFEFF, 'a'}},
    {octets("\xD7\xFF\xE0\0"), {0xD7FF, 0xE000}},
    {octets("\xD8\0\xDC\0\xDB\xFF\xDF\xFF"), {0x10000, 0x10FFFF}},
    // lone surrogates
    {octets("\xDC\0\0a"), {BAD, 'a'}},
    {octets("\xD8\0\0a"), {BAD, 'a'}},
    {octets("\xD8\0\xD8\0\xDC\0"), {BAD, 0x10000}},
    {octets("\xDC\0\xD8\0"), {BAD, BAD}},
    // cut off
    {"\x20", {BAD}},
    {octets("\0a\0"), {'a', BAD}},
    {octets("\xD8\0\xDC"), {BAD, BAD}},
};

std::vector<int> decoded(const std::string& text, const TextEncoding& encoding)
{
    std::vector<int> codePoints;
    const TextIterator end(text);
    for (TextIterator it(text, encoding); it != end; ++it)
        codePoints.push_back(*it);
    return codePoints;
}

std::string hexadecimal(const std::string& text)
{
    std::string digits;
    for (const char octet : text)
    {
        char two[4];
        std::snprintf(two, sizeof two, "%02X ", unsigned{static_cast<unsigned char>(octet)});
        digits += two;
    }
    return digits;
}

template <std::size_t Size>
void expectDecoded(const EncodingCase (&rows)[Size], const TextEncoding& encoding)
{
    for (const EncodingCase& row : rows)
        EXPECT_EQ(decoded(row.octets, encoding), row.codePoints) << hexadecimal(row.octets);
}

std::string encoded(int codePoint, const TextEncoding& encoding)
{
    char octetBuffer[TextEncoding::MAX_OCTETS];
    return std::string(octetBuffer, encoding.encode(codePoint, octetBuffer));
}

void expectAllCharactersReadBack(const TextEncoding& encoding)
{
    for (int codePoint = 0; codePoint <= 0x10FFFF; ++codePoint)
    {
        const std::string text = encoded(codePoint, encoding);
        if (codePoint >= 0xD800 && codePoint <= 0xDFFF)
        {
            ASSERT_EQ(text, "") << codePoint;
            continue;
        }
        const char* position = text.data();
        ASSERT_EQ(encoding.decode(position, text.data() + text.size()), codePoint);
        ASSERT_EQ(position, text.data() + text.size()) << codePoint;
    }
    EXPECT_EQ(encoded(0x110000, encoding), "");
    EXPECT_EQ(encoded(BAD, encoding), "");
}

} // namespace

TEST(UTF8Encoding, FindsIllFormedSequences)
{
    expectDecoded(UTF8_CASES, UTF8Encoding());
}

TEST(UTF8Encoding, AllCharactersReadBack)
{
    expectAllCharactersReadBack(UTF8Encoding());
    EXPECT_EQ(encoded(0x20AC, UTF8Encoding()), "\xE2\x82\xAC");
}

TEST(UTF8Encoding, NeverReadsBehindTheEnd)
{
    const UTF8Encoding utf8;
    for (const EncodingCase& row : UTF8_CASES)
    {
        // Every start of the text, in a heap block of exactly its size, so that a sanitizer sees a read beyond it.
        for (std::size_t size = 1; size <= row.octets.size(); ++size)
        {
            const std::unique_ptr<char[]> block(new char[size]);
            std::memcpy(block.get(), row.octets.data(), size);
            const char* position = block.get();
            while (position != block.get() + size)
            {
                const char* before = position;
                utf8.decode(position, block.get() + size);
                ASSERT_GT(position, before);
            }
        }
    }
}

TEST(UTF16Encoding, FindsIllFormedSequences)
{
    expectDecoded(UTF16_CASES, UTF16Encoding());
}

TEST(UTF16Encoding, AllCharactersReadBack)
{
    expectAllCharactersReadBack(UTF16Encoding());
    expectAllCharactersReadBack(UTF16Encoding(UTF16Encoding::LITTLE_ENDIAN_OCTETS));
}

TEST(UTF16Encoding, WritesEitherOctetOrder)
{
    EXPECT_EQ(encoded(0x1F600, UTF16Encoding()), octets("\xD8\x3D\xDE\0"));
    EXPECT_EQ(encoded(0x1F600, UTF16Encoding(UTF16Encoding::LITTLE_ENDIAN_OCTETS)), octets("\x3D\xD8\0\xDE"));
}

} // namespace Vesk
