// SPDX-License-Identifier: MIT
#ifndef VESK_HEXDIGIT_H
#define VESK_HEXDIGIT_H

#include <array>
#include <cstdint>

namespace Vesk
{

/// The value of each character as a hexadecimal digit of either case, or -1. A table, because the branches of a comparison
/// are hard to predict on data.
inline constexpr std::array<std::int8_t, 256> HEX_DIGIT_VALUES = []
{
    std::array<std::int8_t, 256> values{};
    for (std::int8_t& value : values)
        value = -1;
    for (std::int8_t i = 0; i < 10; ++i)
        values['0' + static_cast<std::size_t>(i)] = i;
    for (std::int8_t i = 10; i < 16; ++i)
    {
        values['A' - 10 + static_cast<std::size_t>(i)] = i;
        values['a' - 10 + static_cast<std::size_t>(i)] = i;
    }
    return values;
}();

inline int hexDigitValue(char digit) noexcept
{
    return HEX_DIGIT_VALUES[static_cast<unsigned char>(digit)];
}

/// The octet that two hexadecimal digits stand for, or -1 or less.
inline int hexOctetValue(char high, char low) noexcept
{
    // A -1 in either place makes the whole negative, and nothing else does.
    return (hexDigitValue(high) * 16) | hexDigitValue(low);
}

} // namespace Vesk

#endif // VESK_HEXDIGIT_H
