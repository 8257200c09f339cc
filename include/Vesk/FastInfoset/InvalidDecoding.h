// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_INVALIDDECODING_H
#define VESK_FASTINFOSET_INVALIDDECODING_H

#include "Vesk/FastInfoset/Encoding.h"

namespace Vesk::FastInfoset
{

/// Stands in DecodingAlgorithm for an algorithm that does not exist.
class VESK_FASTINFOSET_API InvalidDecoding
{
public:
    InvalidDecoding() = delete;

    /// Throws FISException "Invalid decoding defined".
    [[noreturn]] static AutoPtr<Encoding> decode(BitStreamReader& reader);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_INVALIDDECODING_H
