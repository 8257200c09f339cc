// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_RESTRICTEDALPHABET_H
#define VESK_FASTINFOSET_RESTRICTEDALPHABET_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <string>
#include <vector>

namespace Vesk::FastInfoset
{

/// An ordered set of characters (X.891 clause 8.2). Text made of them alone is sent as codes of a fixed number of bits,
/// a code being the position of the character in the set.
class VESK_FASTINFOSET_API RestrictedAlphabet
{
public:
    /// An alphabet without characters: it stands at the reserved table indexes, and no text can be in it.
    RestrictedAlphabet() = default;

    /// The alphabet of the characters of this text, in its order. An empty text fails a check.
    explicit RestrictedAlphabet(const std::string& utf8Characters);

    /// The characters as UTF-8 text.
    const std::string& characters() const { return _characters; }

    /// The Unicode code points of the characters, with TextEncoding::ILL_FORMED in place of octets that are not UTF-8,
    /// followed by one 0. Empty for the alphabet without characters.
    const std::vector<int>& codePoints() const { return _codePoints; }

    /// Width of a code in bits: floor(log2(N + 1)) for N characters. Every code of that width is a position in
    /// codePoints(). It equals the width of X.891 only when N + 1 is a power of two: the built-in alphabets of 14
    /// characters have 3 bits, so text in them reaches their first 8 characters.
    int bitsPerCharacter() const { return _bitsPerCharacter; }

private:
    std::string _characters;
    std::vector<int> _codePoints;
    int _bitsPerCharacter = 0;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_RESTRICTEDALPHABET_H
