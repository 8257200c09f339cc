// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_OCTETCODE_H
#define VESK_FASTINFOSET_OCTETCODE_H

#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/Encoder.h"

/// The codes of integers and string lengths together with the bits before them in the same octet.
///
/// The caller stands on an octet boundary and passes those bits as lead: an octet with zeros behind them. Most codes end
/// with that octet, which is what is written here at once; for all others the lead goes out as bits, and Encoder, where
/// the layouts are drawn, writes the rest.
namespace Vesk::FastInfoset::OctetCode
{

/// The leadBits bits (1 to 7) that stand before a code.
inline void writeLead(BitStreamWriter& stream, unsigned int lead, int leadBits)
{
    stream.write(static_cast<int>(lead >> (8 - leadBits)), leadBits);
}

/// An integer behind leadBits bits (1 to 3). Numbers up to 64, 32 or 16 share the octet, the next 2^13, 2^11 or 2^10
/// take another one.
inline void integer(BitStreamWriter& stream, unsigned int lead, int leadBits, unsigned int value)
{
    const unsigned int inOne = 128u >> leadBits;
    const unsigned int inTwo = leadBits == 1 ? 8192 : 8192u >> leadBits;
    // 0 is no small number here: it becomes the largest one.
    if (value - 1 < inOne)
    {
        stream.writeOctet(lead | (value - 1));
        return;
    }
    const unsigned int rest = value - 1 - inOne;
    if (value != 0 && rest < inTwo)
    {
        stream.writeOctet(lead | inOne | rest >> 8);
        stream.writeOctet(rest & 0xFF);
        return;
    }
    writeLead(stream, lead, leadBits);
    Encoder::integer(stream, value);
}

/// A string's length, at least 1, behind leadBits bits, and its octets. After 1, 4 and 6 bits lengths up to 64, 8 and 2
/// share the octet, the next 256 take another one.
inline void octetString(BitStreamWriter& stream, unsigned int lead, int leadBits, const char* octets,
                        std::size_t octetCount)
{
    const std::size_t inOne = 128u >> leadBits;
    const std::size_t rest = octetCount - 1 - inOne;
    if (octetCount - 1 < inOne)
    {
        stream.writeOctet(lead | static_cast<unsigned int>(octetCount - 1));
    }
    else if (octetCount != 0 && rest < 256)
    {
        stream.writeOctet(lead | static_cast<unsigned int>(inOne));
        stream.writeOctet(static_cast<unsigned int>(rest));
    }
    else
    {
        writeLead(stream, lead, leadBits);
        Encoder::nonEmptyOctetString(stream, octets, octetCount);
        return;
    }
    stream.write(octets, octetCount);
}

} // namespace Vesk::FastInfoset::OctetCode

#endif // VESK_FASTINFOSET_OCTETCODE_H
