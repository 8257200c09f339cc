// SPDX-License-Identifier: MIT
#ifndef VESK_UTF16ENCODING_H
#define VESK_UTF16ENCODING_H

#include "Vesk/TextEncoding.h"

namespace Vesk
{

/// UTF-16 as Unicode and RFC 2781 define it: 2 octets, or 4 for a surrogate pair. A byte order mark is a character like
/// any other.
class VESK_FOUNDATION_API UTF16Encoding : public TextEncoding
{
public:
    /// Which octet of two comes first.
    enum ByteOrder
    {
        BIG_ENDIAN_OCTETS,
        LITTLE_ENDIAN_OCTETS
    };

    /// Big-endian by default, as Fast Infoset has it.
    explicit UTF16Encoding(ByteOrder byteOrder = BIG_ENDIAN_OCTETS) noexcept
        : _byteOrder(byteOrder)
    {
    }

    int decode(const char*& begin, const char* end) const noexcept override;
    std::size_t encode(int codePoint, char* target) const noexcept override;

private:
    int unitAt(const char* position) const noexcept;
    void putUnit(int unit, char* target) const noexcept;

    ByteOrder _byteOrder;
};

} // namespace Vesk

#endif // VESK_UTF16ENCODING_H
