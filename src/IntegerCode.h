// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_INTEGERCODE_H
#define VESK_FASTINFOSET_INTEGERCODE_H

#include "Vesk/FastInfoset/BitStreamReader.h"
#include "Vesk/FastInfoset/FISParseException.h"

/// The integer codes, one function for each bit of an octet on which they start. The layouts are drawn in Encoder.cpp.
///
/// Indexes are most of what a document consists of, so the forms of one octet are inline: at an offset other than 0 the
/// rest of the octet is always there and needs no check. What the longer forms have in common is readLong.
namespace Vesk::FastInfoset::IntegerCode
{

/// Reads the last numOfBits bits of an integer, whose leading bits are given in place, and adds what the shorter forms
/// leave.
inline unsigned int readLong(BitStreamReader& reader, unsigned int leadingBits, int numOfBits, unsigned int base)
{
    unsigned int bits = 0;
    if (!reader.read(bits, numOfBits))
        throw FISParseException("Unexpected end of stream while reading integer");
    return (leadingBits << numOfBits) + bits + base;
}

/// The 20-bit form that ends on the fourth octet: four bits that mean nothing, then the value.
inline unsigned int read20Bits(BitStreamReader& reader, unsigned int base)
{
    unsigned int bits = 0;
    if (!reader.read(bits, 24))
        throw FISParseException("Unexpected end of stream while reading integer");
    return (bits & 0xFFFFF) + base;
}

/// Requires: bit offset 1.
inline unsigned int onSecondBit(BitStreamReader& reader)
{
    const unsigned int group = reader.restOfOctet();
    reader.align();
    if (group < 64)
        return group + 1;
    if (group < 96)
        return readLong(reader, group & 31, 8, 65);
    if (group < 127)
        return readLong(reader, group & 15, 16, 8257);
    return 0;
}

/// Requires: bit offset 2.
inline unsigned int onThirdBit(BitStreamReader& reader)
{
    const unsigned int group = reader.restOfOctet();
    reader.align();
    if (group < 32)
        return group + 1;
    if (group < 40)
        return readLong(reader, group & 7, 8, 33);
    if (group < 48)
        return readLong(reader, group & 7, 16, 2081);
    return read20Bits(reader, 526369);
}

/// Requires: bit offset 3.
inline unsigned int onFourthBit(BitStreamReader& reader)
{
    const unsigned int group = reader.restOfOctet();
    reader.align();
    if (group < 16)
        return group + 1;
    if (group < 20)
        return readLong(reader, group & 3, 8, 17);
    if (group < 24)
        return readLong(reader, group & 3, 16, 1041);
    return read20Bits(reader, 263185);
}

/// The form of 8 bits, 1 to 256. Requires: bit offset 4 or 6.
inline unsigned int small(BitStreamReader& reader)
{
    return readLong(reader, 0, 8, 1);
}

} // namespace Vesk::FastInfoset::IntegerCode

#endif // VESK_FASTINFOSET_INTEGERCODE_H
