// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_PRIMITIVECODE_H
#define VESK_FASTINFOSET_PRIMITIVECODE_H

#include "Vesk/FastInfoset/BitStreamReader.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include <limits>

/// The codes of integers and string lengths, by the bit of an octet on which they start.
///
/// Each of them starts with a group: the bits from there to the end of the octet, right-aligned. The caller has read the
/// octet and passes the group, since it knows it from looking at the bits before; the functions read on behind the
/// octet. Most codes consist of their group alone, which is what is inline. The layouts are drawn in Encoder.cpp.
namespace Vesk::FastInfoset::PrimitiveCode
{

[[noreturn]] inline void throwEndOfInteger()
{
    throw FISParseException("Unexpected end of stream while reading integer");
}

[[noreturn]] inline void throwEndOfLength()
{
    throw FISParseException("Unexpected end of stream while parsing string length");
}

/// The reader moves to the end, as it does when the end comes up in a stream: there the octets before it are gone.
[[noreturn]] inline void throwEndOfString(BitStreamReader& reader)
{
    reader.skip(std::numeric_limits<unsigned long>::max());
    throw FISParseException("Unexpected end of stream while reading octet string");
}

/// The octet in which a structure starts. Throws FISParseException with the message if there is none.
inline unsigned int readOctet(BitStreamReader& reader, const char* endOfStreamMessage)
{
    unsigned int octet = 0;
    if (!reader.readOctet(octet))
        throw FISParseException(endOfStreamMessage);
    return octet;
}

/// Octets behind the group.
inline unsigned int readOctets(BitStreamReader& reader, int octetCount)
{
    unsigned int bits = 0;
    for (; octetCount > 0; --octetCount)
    {
        unsigned int octet = 0;
        if (!reader.readOctet(octet))
            throwEndOfInteger();
        bits = (bits << 8) | octet;
    }
    return bits;
}

/// The form that ends on the second octet: leading bits in the group, 8 bits more, plus what the shorter forms leave.
inline unsigned int readSecondOctet(BitStreamReader& reader, unsigned int leadingBits, unsigned int base)
{
    return (leadingBits << 8) + readOctets(reader, 1) + base;
}

/// The form that ends on the third octet.
inline unsigned int readThirdOctet(BitStreamReader& reader, unsigned int leadingBits, unsigned int base)
{
    return (leadingBits << 16) + readOctets(reader, 2) + base;
}

/// The form that ends on the fourth octet: four bits that mean nothing, then all 20 bits of the value.
inline unsigned int readFourthOctet(BitStreamReader& reader, unsigned int base)
{
    return (readOctets(reader, 3) & 0xFFFFF) + base;
}

/// The group has seven bits.
inline unsigned int integerOnSecondBit(BitStreamReader& reader, unsigned int group)
{
    if (group < 64)
        return group + 1;
    if (group < 96)
        return readSecondOctet(reader, group & 31, 65);
    if (group < 127)
        return readThirdOctet(reader, group & 15, 8257);
    return 0;
}

/// The group has six bits.
inline unsigned int integerOnThirdBit(BitStreamReader& reader, unsigned int group)
{
    if (group < 32)
        return group + 1;
    if (group < 40)
        return readSecondOctet(reader, group & 7, 33);
    if (group < 48)
        return readThirdOctet(reader, group & 7, 2081);
    return readFourthOctet(reader, 526369);
}

/// The group has five bits.
inline unsigned int integerOnFourthBit(BitStreamReader& reader, unsigned int group)
{
    if (group < 16)
        return group + 1;
    if (group < 20)
        return readSecondOctet(reader, group & 3, 17);
    if (group < 24)
        return readThirdOctet(reader, group & 3, 1041);
    return readFourthOctet(reader, 263185);
}

/// The 8-bit form, 1 to 256, which starts within an octet and ends in the next. Requires: bit offset 4 or 6.
inline unsigned int smallInteger(BitStreamReader& reader)
{
    unsigned int bits = 0;
    if (!reader.read(bits, 8))
        throwEndOfInteger();
    return bits + 1;
}

/// The length of a string whose group has numOfBits bits (7, 4 or 2). The spare bits of the 32-bit form are not looked
/// at.
inline unsigned long stringLength(BitStreamReader& reader, unsigned int group, int numOfBits)
{
    const unsigned int longForms = 1u << (numOfBits - 1);
    if (group < longForms)
        return group + 1;
    if (group == longForms)
    {
        unsigned int octet = 0;
        if (!reader.readOctet(octet))
            throwEndOfLength();
        return octet + longForms + 1;
    }
    unsigned long octetCount = 0;
    if (!reader.read(octetCount, 32))
        throwEndOfLength();
    return octetCount + longForms + 257;
}

} // namespace Vesk::FastInfoset::PrimitiveCode

#endif // VESK_FASTINFOSET_PRIMITIVECODE_H
