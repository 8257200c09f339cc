// SPDX-License-Identifier: MIT
#include "Quoted.h"
#include "Vesk/UTF8Encoding.h"
#include <string_view>

namespace Vesk::Tool
{

namespace
{

constexpr std::size_t BLOCK_OCTETS = 4096; // written at a time, so that long texts are not held twice

const char REPLACEMENT_CHARACTER[] = "\xEF\xBF\xBD";

std::string hexadecimal(unsigned int value, int digits)
{
    std::string text;
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text += "0123456789abcdef"[(value >> shift) & 0xF];
    return text;
}

// Controls of the terminal, invisible line ends, and what changes the direction of the characters around it.
bool isControl(int codePoint)
{
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0) || codePoint == 0x2028 || codePoint == 0x2029 ||
           (codePoint >= 0x200B && codePoint <= 0x200F) || (codePoint >= 0x202A && codePoint <= 0x202E) ||
           (codePoint >= 0x2066 && codePoint <= 0x2069) || codePoint == 0xFEFF;
}

std::string escaped(int codePoint)
{
    switch (codePoint)
    {
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return "\\u{" + hexadecimal(static_cast<unsigned int>(codePoint), codePoint < 0x100 ? 2 : 4) + "}";
    }
}

// Calls append(codePoint, octets) for each character; the code point is negative for an octet that is no UTF-8. Ends when
// append returns false.
template <typename Append>
void forEachCharacter(const std::string& text, Append append)
{
    const UTF8Encoding utf8;
    const char* const end = text.data() + text.size();
    for (const char* next = text.data(); next != end;)
    {
        const char* const begin = next;
        const int codePoint = utf8.decode(next, end);
        if (!append(codePoint, std::string_view(begin, static_cast<std::size_t>(next - begin))))
            return;
    }
}

std::string shown(const std::string& text, std::size_t maxCharacters, bool isQuoted)
{
    std::string result;
    std::size_t characters = 0;
    forEachCharacter(text,
                     [&](int codePoint, std::string_view octets)
                     {
                         if (characters++ == maxCharacters)
                         {
                             result += isQuoted ? "\"..." : "...";
                             return false;
                         }
                         if (codePoint < 0)
                         {
                             for (const char octet : octets)
                                 result += "\\x" + hexadecimal(static_cast<unsigned char>(octet), 2);
                         }
                         else if (isControl(codePoint))
                         {
                             result += escaped(codePoint);
                         }
                         else
                         {
                             if (isQuoted && (codePoint == '\\' || codePoint == '"'))
                                 result += '\\';
                             result += octets;
                         }
                         return true;
                     });
    return isQuoted && characters <= maxCharacters ? result + '"' : result;
}

} // namespace

std::string shown(const std::string& text, std::size_t maxCharacters)
{
    return shown(text, maxCharacters, false);
}

std::string quoted(const std::string& text, std::size_t maxCharacters)
{
    return '"' + shown(text, maxCharacters, true);
}

void writeJSON(std::ostream& output, const std::string& text)
{
    std::string block = "\"";
    forEachCharacter(text,
                     [&](int codePoint, std::string_view octets)
                     {
                         if (codePoint < 0)
                             block += REPLACEMENT_CHARACTER;
                         else if (isControl(codePoint))
                             block += "\\u" + hexadecimal(static_cast<unsigned int>(codePoint), 4);
                         else if (codePoint == '"' || codePoint == '\\')
                             (block += '\\') += octets;
                         else
                             block += octets;
                         if (block.size() >= BLOCK_OCTETS)
                         {
                             output << block;
                             block.clear();
                         }
                         return true;
                     });
    output << block << '"';
}

} // namespace Vesk::Tool
