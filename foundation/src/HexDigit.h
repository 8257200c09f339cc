// SPDX-License-Identifier: MIT
#ifndef VESK_HEXDIGIT_H
#define VESK_HEXDIGIT_H

namespace Vesk
{

/// The value of a hexadecimal digit of either case, or -1.
inline int hexDigitValue(char digit) noexcept
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    const int letter = digit | 0x20; // lower case
    return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

/// The octet that two hexadecimal digits stand for, or -1.
inline int hexOctetValue(char high, char low) noexcept
{
    // -1 in either place makes the whole negative, and nothing else does.
    return (hexDigitValue(high) * 16) | hexDigitValue(low);
}

} // namespace Vesk

#endif // VESK_HEXDIGIT_H
