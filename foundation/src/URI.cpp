// SPDX-License-Identifier: MIT
#include "Vesk/URI.h"
#include "HexDigit.h"
#include "LowerCase.h"
#include "Vesk/Exception.h"
#include <string_view>

namespace Vesk
{

namespace
{

constexpr bool isLetter(char character)
{
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

constexpr bool isSchemeCharacter(char character)
{
    return isLetter(character) || (character >= '0' && character <= '9') || character == '+' || character == '-' ||
           character == '.';
}

// 0 if the text does not begin with a scheme. One letter and a colon is a drive.
std::size_t schemeLength(std::string_view text)
{
    if (text.empty() || !isLetter(text[0]))
        return 0;
    std::size_t length = 1;
    while (length < text.size() && isSchemeCharacter(text[length]))
        ++length;
    return length >= 2 && length < text.size() && text[length] == ':' ? length : 0;
}

std::string percentDecoded(std::string_view encoded, const std::string& uri)
{
    std::string decoded;
    decoded.reserve(encoded.size());
    for (std::size_t i = 0; i < encoded.size(); ++i)
    {
        if (encoded[i] != '%')
        {
            decoded += encoded[i];
            continue;
        }
        const int octet = encoded.size() - i > 2 ? hexOctetValue(encoded[i + 1], encoded[i + 2]) : -1;
        if (octet < 0)
            throw SyntaxException("Invalid percent-encoding in URI", uri);
        decoded += static_cast<char>(octet);
        i += 2;
    }
    return decoded;
}

} // namespace

URI::URI(const std::string& text)
    : _text(text)
{
    const std::size_t length = schemeLength(text);
    if (length == 0)
    {
        _path = text;
        return;
    }
    _scheme = asciiLowerCase(text.substr(0, length));
    std::string_view rest = std::string_view(_text).substr(length + 1);
    rest = rest.substr(0, rest.find_first_of("?#"));
    if (rest.substr(0, 2) == "//")
    {
        rest.remove_prefix(2);
        _authority = rest.substr(0, rest.find('/'));
        rest.remove_prefix(_authority.size());
    }
    _path = percentDecoded(rest, text);
}

} // namespace Vesk
