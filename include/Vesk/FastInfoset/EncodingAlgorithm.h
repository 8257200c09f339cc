// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_ENCODINGALGORITHM_H
#define VESK_FASTINFOSET_ENCODINGALGORITHM_H

#include "Vesk/FastInfoset/Encoding.h"

namespace Vesk::FastInfoset
{

/// The functions that check and encode text, by algorithm index: 1 to 10 are the built-in algorithms, all others are
/// InvalidEncoding's. All instances share immutable tables; creating and copying one costs nothing.
class VESK_FASTINFOSET_API EncodingAlgorithm
{
public:
    /// The first index that X.891 leaves to users. No algorithm can be registered there.
    static constexpr unsigned int USER_DEFINED = 32;

    /// The functions of the algorithm with this index that encode and check text.
    Encoding::EncodeMethod encoding(unsigned int index) const;
    Encoding::CheckMethod check(unsigned int index) const;

    /// The algorithm that encodes the text in the fewest octets, the first of several; 0 if there is none, which only
    /// happens to the empty text. Algorithm 10 (CDATA) competes with the text's length. The choice does not promise
    /// that the very text comes back: see HexEncoding, DWordEncoding and FloatEncoding.
    unsigned int findEncoding(const std::string& text) const;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_ENCODINGALGORITHM_H
