// SPDX-License-Identifier: MIT
#ifndef VESK_TEXTENCODING_H
#define VESK_TEXTENCODING_H

#include "Vesk/Foundation.h"
#include <cstddef>

namespace Vesk
{

/// A character encoding: how the code points of Unicode are laid out in octets. Encodings have no mutable state.
class VESK_FOUNDATION_API TextEncoding
{
public:
    /// No encoding needs more octets for a character.
    static constexpr std::size_t MAX_OCTETS = 4;
    /// Stands in for a code point where octets encode none.
    static constexpr int ILL_FORMED = -1;

    virtual ~TextEncoding() = default;

    /// Returns the code point that starts at begin and moves begin behind it. Requires: begin != end.
    ///
    /// An ill-formed sequence (overlong, a surrogate, beyond U+10FFFF, cut off) yields ILL_FORMED, and begin moves over as
    /// much of it as a well-formed sequence could have started with, at least one octet.
    virtual int decode(const char*& begin, const char* end) const noexcept = 0;

    /// Writes the octets of a code point to target, which has room for MAX_OCTETS, and returns their number: 0 for what is
    /// not a code point of a character (negative, a surrogate, beyond U+10FFFF).
    virtual std::size_t encode(int codePoint, char* target) const noexcept = 0;

protected:
    /// Whether the number is the code point of a character: no surrogate, and not beyond U+10FFFF.
    static constexpr bool isCharacter(int codePoint) noexcept
    {
        return codePoint >= 0 && codePoint <= 0x10FFFF && (codePoint < 0xD800 || codePoint > 0xDFFF);
    }
};

} // namespace Vesk

#endif // VESK_TEXTENCODING_H
