// SPDX-License-Identifier: MIT
#include "Vesk/UTF8Encoding.h"

namespace Vesk
{

namespace
{

// What a first octet announces. The second octet has a range of its own, which is what keeps out overlong forms (after
// E0, F0), surrogates (after ED) and everything beyond U+10FFFF (after F4).
//
//   00..7F                                  U+0000 .. U+007F
//   C2..DF 80..BF                           U+0080 .. U+07FF
//   E0..EF 80..BF 80..BF                    U+0800 .. U+FFFF     E0: A0..BF, ED: 80..9F
//   F0..F4 80..BF 80..BF 80..BF            U+10000 .. U+10FFFF   F0: 90..BF, F4: 80..8F
struct Lead
{
    int continuationCount; // -1: not a first octet
    int secondLow;
    int secondHigh;
};

Lead leadOf(int octet)
{
    if (octet < 0x80)
        return {0, 0, 0};
    if (octet < 0xC2 || octet > 0xF4)
        return {-1, 0, 0};
    if (octet < 0xE0)
        return {1, 0x80, 0xBF};
    if (octet < 0xF0)
        return {2, octet == 0xE0 ? 0xA0 : 0x80, octet == 0xED ? 0x9F : 0xBF};
    return {3, octet == 0xF0 ? 0x90 : 0x80, octet == 0xF4 ? 0x8F : 0xBF};
}

int octetAt(const char* position)
{
    return static_cast<unsigned char>(*position);
}

} // namespace

int UTF8Encoding::decode(const char*& begin, const char* end) const noexcept
{
    const int first = octetAt(begin++);
    const Lead lead = leadOf(first);
    if (lead.continuationCount <= 0)
        return lead.continuationCount == 0 ? first : ILL_FORMED;

    int low = lead.secondLow;
    int high = lead.secondHigh;
    int codePoint = first & (0x3F >> lead.continuationCount);
    for (int i = 0; i < lead.continuationCount; ++i)
    {
        if (begin == end || octetAt(begin) < low || octetAt(begin) > high)
            return ILL_FORMED;
        codePoint = codePoint << 6 | (octetAt(begin++) & 0x3F);
        low = 0x80;
        high = 0xBF;
    }
    return codePoint;
}

std::size_t UTF8Encoding::encode(int codePoint, char* target) const noexcept
{
    if (!isCharacter(codePoint))
        return 0;
    if (codePoint < 0x80)
    {
        target[0] = static_cast<char>(codePoint);
        return 1;
    }
    const auto continuation = [codePoint](int shift)
    {
        return static_cast<char>(0x80 | (codePoint >> shift & 0x3F));
    };
    if (codePoint < 0x800)
    {
        target[0] = static_cast<char>(0xC0 | codePoint >> 6);
        target[1] = continuation(0);
        return 2;
    }
    if (codePoint < 0x10000)
    {
        target[0] = static_cast<char>(0xE0 | codePoint >> 12);
        target[1] = continuation(6);
        target[2] = continuation(0);
        return 3;
    }
    target[0] = static_cast<char>(0xF0 | codePoint >> 18);
    target[1] = continuation(12);
    target[2] = continuation(6);
    target[3] = continuation(0);
    return 4;
}

} // namespace Vesk
