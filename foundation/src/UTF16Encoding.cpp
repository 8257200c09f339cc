// SPDX-License-Identifier: MIT
#include "Vesk/UTF16Encoding.h"

namespace Vesk
{

namespace
{

constexpr bool isHighSurrogate(int unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool isLowSurrogate(int unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

} // namespace

int UTF16Encoding::decode(const char*& begin, const char* end) const noexcept
{
    if (end - begin < 2)
    {
        begin = end;
        return ILL_FORMED;
    }
    const int unit = unitAt(begin);
    begin += 2;
    if (isLowSurrogate(unit))
        return ILL_FORMED;
    if (!isHighSurrogate(unit))
        return unit;
    if (end - begin < 2 || !isLowSurrogate(unitAt(begin)))
        return ILL_FORMED;
    const int low = unitAt(begin);
    begin += 2;
    return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

std::size_t UTF16Encoding::encode(int codePoint, char* target) const noexcept
{
    if (!isCharacter(codePoint))
        return 0;
    if (codePoint < 0x10000)
    {
        putUnit(codePoint, target);
        return 2;
    }
    putUnit(0xD800 + ((codePoint - 0x10000) >> 10), target);
    putUnit(0xDC00 + ((codePoint - 0x10000) & 0x3FF), target + 2);
    return 4;
}

int UTF16Encoding::unitAt(const char* position) const noexcept
{
    const int first = static_cast<unsigned char>(position[0]);
    const int second = static_cast<unsigned char>(position[1]);
    return _byteOrder == BIG_ENDIAN_OCTETS ? first << 8 | second : second << 8 | first;
}

void UTF16Encoding::putUnit(int unit, char* target) const noexcept
{
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    target[0] = _byteOrder == BIG_ENDIAN_OCTETS ? high : low;
    target[1] = _byteOrder == BIG_ENDIAN_OCTETS ? low : high;
}

} // namespace Vesk
