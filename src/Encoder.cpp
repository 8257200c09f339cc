// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/Encoder.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/FISEncodingException.h"

namespace Vesk::FastInfoset
{

namespace
{

constexpr unsigned int MAX_INTEGER = 1u << 20; // the longest form holds 20 bits

inline void write(BitStreamWriter& stream, unsigned int value, int numOfBits)
{
    stream.write(static_cast<int>(value), numOfBits);
}

// Starting on the second bit of an octet, after the caller's bit:
//
//   ?1111111                                     0
//   ?0vvvvvv                             1 ..   64    v = value - 1
//   ?10vvvvv vvvvvvvv                   65 .. 8256    v = value - 65
//   ?110vvvv vvvvvvvv vvvvvvvv        8257 .. 2^20    v = value - 8257
void integerOnSecondBit(BitStreamWriter& stream, unsigned int value)
{
    if (value == 0)
        write(stream, 0x7F, 7);
    else if (value <= 64)
        write(stream, value - 1, 7);
    else if (value <= 8256)
        write(stream, 0x4000 + (value - 65), 15);
    else
        write(stream, 0x600000 + (value - 8257), 23);
}

// Starting on the third bit:
//
//   ??0vvvvv                                         1 ..     32    v = value - 1
//   ??100vvv vvvvvvvv                               33 ..   2080    v = value - 33
//   ??101vvv vvvvvvvv vvvvvvvv                    2081 .. 526368    v = value - 2081
//   ??110000 0000vvvv vvvvvvvv vvvvvvvv         526369 ..   2^20    v = value - 526369
void integerOnThirdBit(BitStreamWriter& stream, unsigned int value)
{
    if (value <= 32)
        write(stream, value - 1, 6);
    else if (value <= 2080)
        write(stream, 0x2000 + (value - 33), 14);
    else if (value <= 526368)
        write(stream, 0x280000 + (value - 2081), 22);
    else
        write(stream, 0x30000000 + (value - 526369), 30);
}

// Starting on the fourth bit:
//
//   ???0vvvv                                         1 ..     16    v = value - 1
//   ???100vv vvvvvvvv                               17 ..   1040    v = value - 17
//   ???101vv vvvvvvvv vvvvvvvv                    1041 .. 263184    v = value - 1041
//   ???11000 0000vvvv vvvvvvvv vvvvvvvv         263185 ..   2^20    v = value - 263185
void integerOnFourthBit(BitStreamWriter& stream, unsigned int value)
{
    if (value <= 16)
        write(stream, value - 1, 5);
    else if (value <= 1040)
        write(stream, 0x1000 + (value - 17), 13);
    else if (value <= 263184)
        write(stream, 0x140000 + (value - 1041), 21);
    else
        write(stream, 0x18000000 + (value - 263185), 29);
}

// A long form of a length: a prefix that says which, then 8 or 32 bits of what the shorter forms leave.
void longLength(BitStreamWriter& stream, unsigned int prefix, int prefixBits, unsigned long rest, int restBits)
{
    write(stream, prefix, prefixBits);
    stream.write(static_cast<long>(rest), restBits);
}

} // namespace

void Encoder::documentPreHeader(BitStreamWriter& stream, bool writeXMLDeclaration)
{
    if (writeXMLDeclaration)
        stream.write("<?xml encoding='finf'?>");
    write(stream, DOCUMENTSTART, 16);
    write(stream, 0x0001, 16);
    stream.write(false);
}

void Encoder::integer(BitStreamWriter& stream, unsigned int value)
{
    const int offset = stream.bitOffset();
    if (value > MAX_INTEGER)
        throw FISEncodingException("Cannot encode integer value: too large, must be smaller than 2^20");
    if (value == 0 && offset != 1)
        throw FISEncodingException("Value zero must start on the second bit of a byte");

    switch (offset)
    {
    case 0:
        throw FISEncodingException("Illegal bit position 0: Integers can never start there");
    case 1:
        integerOnSecondBit(stream, value);
        break;
    case 2:
        integerOnThirdBit(stream, value);
        break;
    case 3:
        integerOnFourthBit(stream, value);
        break;
    case 4:
    case 6:
        if (value > 256)
            throw FISEncodingException("Illegal bit position: Only Integers <= 256 can start at pos 4 or 6.");
        write(stream, value - 1, 8);
        break;
    default:
        throw FISEncodingException("Illegal bit position: No Integers are allowed to be written to pos 5 or 7.");
    }
}

void Encoder::pad0ThenInteger(BitStreamWriter& stream, unsigned int value)
{
    if (stream.bitOffset() != 0)
    {
        stream.write(false);
        integer(stream, value);
    }
    else if (value == 0)
    {
        write(stream, 0x7F, 8);
    }
    else if (value <= 64)
    {
        write(stream, value - 1, 8);
    }
    else if (value <= 8256)
    {
        write(stream, 0x4000 + (value - 65), 16);
    }
    else
    {
        // Not checked here, as callers hand in table indexes: a value above 2^20 would spill into the prefix.
        write(stream, 0x600000 + (value - 8257), 24);
    }
}

// By the offset, the first of these that fits, then the octets of the string on an octet boundary:
//
//   ?0nnnnnn                                          1 ..  64    n = length - 1
//   ?1000000 nnnnnnnn                                65 .. 320    n = length - 65
//   ?1100000 and four octets, n                     321 ..        n = length - 321
//
//   ????0nnn                                          1 ..   8    n = length - 1
//   ????1000 nnnnnnnn                                 9 .. 264    n = length - 9
//   ????1100 and four octets, n                     265 ..        n = length - 265
//
//   ??????0n                                          1 ..   2    n = length - 1
//   ??????10 nnnnnnnn                                 3 .. 258    n = length - 3
//   ??????11 and four octets, n                     259 ..        n = length - 259
void Encoder::nonEmptyStringLength(BitStreamWriter& stream, unsigned long octetCount)
{
    switch (stream.bitOffset())
    {
    case 1:
        if (octetCount <= 64)
            stream.write(static_cast<int>(octetCount - 1), 7);
        else if (octetCount <= 320)
            longLength(stream, 0x40, 7, octetCount - 65, 8);
        else
            longLength(stream, 0x60, 7, octetCount - 321, 32);
        break;
    case 4:
        if (octetCount <= 8)
            stream.write(static_cast<int>(octetCount - 1), 4);
        else if (octetCount <= 264)
            longLength(stream, 0x8, 4, octetCount - 9, 8);
        else
            longLength(stream, 0xC, 4, octetCount - 265, 32);
        break;
    case 6:
        if (octetCount <= 2)
            stream.write(static_cast<int>(octetCount - 1), 2);
        else if (octetCount <= 258)
            longLength(stream, 0x2, 2, octetCount - 3, 8);
        else
            longLength(stream, 0x3, 2, octetCount - 259, 32);
        break;
    default:
        throw FISEncodingException("illegal position for nonEmptyOctetString encoding");
    }
}

void Encoder::nonEmptyOctetString(BitStreamWriter& stream, const std::string& octets)
{
    nonEmptyOctetString(stream, octets.data(), octets.size());
}

void Encoder::nonEmptyOctetString(BitStreamWriter& stream, const char* octets, std::size_t octetCount)
{
    if (octetCount == 0)
        throw FISEncodingException("Encoder::nonEmptyOctetString cannot encode empty strings");
    nonEmptyStringLength(stream, octetCount);
    stream.write(octets, octetCount);
}

void Encoder::lengthOfSequence(BitStreamWriter& stream, unsigned int count)
{
    if (stream.bitOffset() != 0)
        throw FISEncodingException("Illegal startposition for a lengthOfSequence value");
    if (count == 0)
        throw FISEncodingException("Illegal value zero for lengthOfSequence");
    if (count > MAX_INTEGER)
        throw FISEncodingException("Illegal value for lengthOfSequence: larger than 2^20");

    if (count <= 128)
        write(stream, count - 1, 8);
    else
        // Sets bit 19 of the 24-bit field, not bit 23: existing documents hold this form, so it stays.
        write(stream, (count | 0x80000) - 129, 24);
}

} // namespace Vesk::FastInfoset
