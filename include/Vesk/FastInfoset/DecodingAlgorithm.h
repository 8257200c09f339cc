// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_DECODINGALGORITHM_H
#define VESK_FASTINFOSET_DECODINGALGORITHM_H

#include "Vesk/FastInfoset/Encoding.h"

namespace Vesk::FastInfoset
{

/// The functions that decode values, by algorithm index: 1 to 10 are the built-in algorithms, all others are
/// InvalidDecoding's. All instances share an immutable table; creating and copying one costs nothing.
class VESK_FASTINFOSET_API DecodingAlgorithm
{
public:
    /// The function that decodes values of the algorithm with this index.
    Encoding::DecodeMethod decoding(unsigned int index) const;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_DECODINGALGORITHM_H
