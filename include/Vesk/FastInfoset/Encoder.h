// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_ENCODER_H
#define VESK_FASTINFOSET_ENCODER_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <cstddef>
#include <string>

namespace Vesk::FastInfoset
{

class BitStreamWriter;

/// Writes the primitive codes of a document. Most of them take their form from the bit offset at which they start, that
/// is, how many bits of the current octet have been written. Decoder reads what is written here.
///
/// Everything a function cannot write at the present offset, or at all, throws FISEncodingException before anything is
/// written.
class VESK_FASTINFOSET_API Encoder
{
public:
    /// "<?", the start of a leading XML declaration (X.891 12.3).
    static constexpr unsigned short XMLDECLARATION = 0x3C3F;
    /// The identification octets E0 00 (X.891 12.6).
    static constexpr unsigned short DOCUMENTSTART = 0xE000;

    /// Writes identification, version and the padding bit of the header, after the XML declaration
    /// "<?xml encoding='finf'?>" if that is asked for. Leaves bit offset 1.
    static void documentPreHeader(BitStreamWriter& stream, bool writeXMLDeclaration);

    /// Writes an integer, 1 to 2^20 (X.891 C.25, C.27, C.28); at offsets 4 and 6, 1 to 256 (X.891 C.29).
    /// At offset 1 also 0, as 1111111. Offsets 0, 5 and 7 are illegal.
    static void integer(BitStreamWriter& stream, unsigned int value);

    /// Writes a 0 bit and an integer. On an octet boundary the value (0 to 2^20) is not checked.
    static void pad0ThenInteger(BitStreamWriter& stream, unsigned int value);

    /// Writes the length, in octets and at least 1, of a string; at offset 1, 4 or 6 (X.891 C.22 to C.24).
    /// Every form ends on an octet boundary, so the octets of the string are never shifted.
    /// The widest form holds 32 bits; what a longer length has above them is lost.
    static void nonEmptyStringLength(BitStreamWriter& stream, unsigned long octetCount);

    /// Writes the length of a string of at least one octet and its octets; at offset 1, 4 or 6.
    static void nonEmptyOctetString(BitStreamWriter& stream, const std::string& octets);
    static void nonEmptyOctetString(BitStreamWriter& stream, const char* octets, std::size_t octetCount);

    /// Writes the number of items of a sequence, 1 to 2^20, on an octet boundary (X.891 C.21).
    /// Counts above 128 take a form that Decoder reads as another count: 24 bits of (count | 0x80000) - 129. Initial
    /// vocabularies with more than 128 entries in one table can therefore not be exchanged.
    static void lengthOfSequence(BitStreamWriter& stream, unsigned int count);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_ENCODER_H
