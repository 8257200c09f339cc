// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_INVALIDENCODING_H
#define VESK_FASTINFOSET_INVALIDENCODING_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <string>

namespace Vesk::FastInfoset
{

class BitStreamWriter;

/// Stands in EncodingAlgorithm for an algorithm that does not exist.
class VESK_FASTINFOSET_API InvalidEncoding
{
public:
    InvalidEncoding() = delete;

    /// Throws FISException "Invalid encoding defined".
    [[noreturn]] static void encode(BitStreamWriter& writer, const std::string& text);

    /// No text can be encoded: 0.
    static int check(const std::string& text);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_INVALIDENCODING_H
