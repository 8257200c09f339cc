// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_UTILITY_H
#define VESK_FASTINFOSET_UTILITY_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <istream>
#include <ostream>

namespace Vesk::FastInfoset
{

/// Bit masks, the widths that the bit writer checks against, and the two conversions with their usual options.
class VESK_FASTINFOSET_API Utility
{
public:
    /// The widths of integers in bits.
    static constexpr int SIZEOFCHARINBIT = 8;
    static constexpr int SIZEOFINT16INBIT = 16;
    static constexpr int SIZEOFINT32INBIT = 32;
    static constexpr int SIZEOFINT64INBIT = 64;

    /// The mask of bit i, counted from the least significant.
    static constexpr unsigned char pow2[8] = {1, 2, 4, 8, 16, 32, 64, 128};
    /// The mask of bit i, counted from the most significant.
    static constexpr unsigned char revertedPow2[8] = {128, 64, 32, 16, 8, 4, 2, 1};
    /// The i low-order bits.
    static constexpr unsigned char lowBitMask[9] = {0x00, 0x01, 0x03, 0x07, 0x0F, 0x1F, 0x3F, 0x7F, 0xFF};
    /// The i high-order bits.
    static constexpr unsigned char highBitMask[9] = {0x00, 0x80, 0xC0, 0xE0, 0xF0, 0xF8, 0xFC, 0xFE, 0xFF};

    /// XML text to Fast Infoset: Converter::convertToFIS without options.
    static void convertToFIS(std::istream& xml, std::ostream& fis, int maxIndexedLength);

    /// Fast Infoset to XML text with an XML declaration: Converter::convertToXML with option 1.
    static void convertToXML(std::istream& fis, std::ostream& xml);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_UTILITY_H
