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

/// An integer behind leadBits bits (1 to 3), which leave room for numbers up to 64, 32 or 16.
inline void integer(BitStreamWriter& stream, unsigned int lead, int leadBits, unsigned int value)
{
    // 0 is no small number here: it becomes the largest one.
    if (value - 1 < 128u >> leadBits)
    {
        stream.writeOctet(lead | (value - 1));
        return;
    }
    writeLead(stream, lead, leadBits);
    Encoder::integer(stream, value);
}

/// A string's length, at least 1, behind leadBits bits, and its octets. After 1, 4 and 6 bits lengths up to 64, 8 and 2
/// share the octet.
inline void octetString(BitStreamWriter& stream, unsigned int lead, int leadBits, const char* octets,
                        std::size_t octetCount)
{
    if (octetCount - 1 < 128u >> leadBits)
    {
        stream.writeOctet(lead | static_cast<unsigned int>(octetCount - 1));
        stream.write(octets, octetCount);
        return;
    }
    writeLead(stream, lead, leadBits);
    Encoder::nonEmptyOctetString(stream, octets, octetCount);
}

} // namespace Vesk::FastInfoset::OctetCode

#endif // VESK_FASTINFOSET_OCTETCODE_H
