// SPDX-License-Identifier: MIT
#include "Vesk/UUID.h"
#include "HexDigit.h"
#include "Vesk/Exception.h"

namespace Vesk
{

namespace
{

// A "-" stands in front of the digits of these octets.
constexpr bool startsGroup(std::size_t octet)
{
    return octet == 4 || octet == 6 || octet == 8 || octet == 10;
}

} // namespace

UUID::UUID(const std::string& text)
{
    if (!tryParse(text, *this))
        throw SyntaxException("Invalid UUID", text);
}

bool UUID::tryParse(std::string_view text, UUID& uuid)
{
    const bool grouped = text.size() == 36;
    if (!grouped && text.size() != 32)
        return false;
    Octets octets{};
    const char* digits = text.data();
    for (std::size_t i = 0; i < octets.size(); ++i, digits += 2)
    {
        if (grouped && startsGroup(i) && *digits++ != '-')
            return false;
        const int value = hexOctetValue(digits[0], digits[1]);
        if (value < 0)
            return false;
        octets[i] = static_cast<std::uint8_t>(value);
    }
    uuid._octets = octets;
    return true;
}

std::string UUID::toString() const
{
    static const char DIGITS[] = "0123456789abcdef";
    std::string text;
    text.reserve(36);
    for (std::size_t i = 0; i < _octets.size(); ++i)
    {
        if (startsGroup(i))
            text += '-';
        text += DIGITS[_octets[i] >> 4];
        text += DIGITS[_octets[i] & 15];
    }
    return text;
}

} // namespace Vesk
