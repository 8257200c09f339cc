// SPDX-License-Identifier: MIT
#include "XMLCharacters.h"
#include "Vesk/XML/SAXException.h"
#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

namespace Vesk::XML
{
namespace
{
struct Character
{
    char32_t codePoint;
    std::size_t octetCount; // 0: the octets are not UTF-8
};

bool isContinuation(char octet)
{
    return (octet & 0xC0) == 0x80;
}

// 110xxxxx 10xxxxxx
// 1110xxxx 10xxxxxx 10xxxxxx
// 11110xxx 10xxxxxx 10xxxxxx 10xxxxxx
Character decode(std::string_view text)
{
    constexpr char32_t SMALLEST[] = {0, 0, 0x80, 0x800, 0x10000};
    const unsigned int lead = static_cast<unsigned char>(text[0]);
    const std::size_t count = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC0 || lead >= 0xF8 || text.size() < count)
        return {0, 0};
    char32_t codePoint = lead & (0x7Fu >> count);
    for (std::size_t i = 1; i < count; ++i)
    {
        if (!isContinuation(text[i]))
            return {0, 0};
        codePoint = codePoint << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
    }
    const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (codePoint < SMALLEST[count] || isSurrogate || codePoint > 0x10FFFF)
        return {0, 0};
    return {codePoint, count};
}

struct Range
{
    char32_t first;
    char32_t last;
};

constexpr Range NAME_START_RANGES[] = {
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D},
    {0x2070, 0x218F}, {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};
constexpr Range FURTHER_NAME_RANGES[] = {{0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template <std::size_t SIZE>
bool contains(const Range (&ranges)[SIZE], char32_t codePoint)
{
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [=](const Range& range) { return range.first <= codePoint && codePoint <= range.last; });
}

// What an octet is to a name; combined with "or" to learn about several at once.
enum NameClass : unsigned char
{
    STARTS_NAME = 0,
    CONTINUES_NAME = 1,
    BEYOND_ASCII = 2,
    NOT_IN_NAME = 4
};

constexpr std::array<unsigned char, 256> nameClasses()
{
    std::array<unsigned char, 256> classes = {};
    for (unsigned int c = 0; c < 256; ++c)
    {
        const bool isLetter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
        const bool isFurther = (c >= '0' && c <= '9') || c == '-' || c == '.';
        classes[c] = c >= 0x80 ? BEYOND_ASCII : isLetter ? STARTS_NAME : isFurther ? CONTINUES_NAME : NOT_IN_NAME;
    }
    return classes;
}

constexpr std::array<unsigned char, 256> NAME_CLASSES = nameClasses();

NameClass classOf(char32_t codePoint)
{
    if (contains(NAME_START_RANGES, codePoint))
        return STARTS_NAME;
    return contains(FURTHER_NAME_RANGES, codePoint) ? CONTINUES_NAME : NOT_IN_NAME;
}

// The same as isNCName for a name that is not empty and in which ASCII has been checked.
bool isNCNameBeyondASCII(std::string_view text)
{
    for (std::size_t i = 0; i < text.size();)
    {
        if (static_cast<unsigned char>(text[i]) < 0x80)
        {
            ++i;
            continue;
        }
        const Character character = decode(text.substr(i));
        if (character.octetCount == 0)
            return false;
        const NameClass nameClass = classOf(character.codePoint);
        if (nameClass == NOT_IN_NAME || (nameClass == CONTINUES_NAME && i == 0))
            return false;
        i += character.octetCount;
    }
    return true;
}
} // namespace

std::size_t XMLCharacters::octetsOfCharacter(std::string_view text)
{
    const Character character = decode(text);
    if (character.octetCount == 0)
        throw SAXException("Text is not well-formed UTF-8");
    if (character.codePoint == 0xFFFE || character.codePoint == 0xFFFF)
        throwNotAllowed(character.codePoint);
    return character.octetCount;
}

bool XMLCharacters::isNCName(std::string_view text)
{
    if (text.empty() || NAME_CLASSES[static_cast<unsigned char>(text[0])] == CONTINUES_NAME)
        return false;
    unsigned int classes = 0;
    for (const char c : text)
        classes |= NAME_CLASSES[static_cast<unsigned char>(c)];
    if (classes < BEYOND_ASCII)
        return true;
    return (classes & NOT_IN_NAME) == 0 && isNCNameBeyondASCII(text);
}

void XMLCharacters::throwNotAllowed(char32_t character)
{
    char text[16];
    std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned int>(character));
    throw SAXException("Character not allowed in XML", text);
}
} // namespace Vesk::XML
