// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_HEXENCODING_H
#define VESK_FASTINFOSET_HEXENCODING_H

#include "Vesk/FastInfoset/BinaryEncoding.h"

namespace Vesk
{
class HexBinaryDecoder;
class HexBinaryEncoder;
} // namespace Vesk

namespace Vesk::FastInfoset
{

/// Octets whose text is hexadecimal, encoding algorithm 1. Digits are printed in upper case.
class VESK_FASTINFOSET_API HexEncoding : public BinaryEncoding<HexEncoding, HexBinaryEncoder, HexBinaryDecoder>
{
public:
    /// The index of the algorithm.
    static constexpr int TYPE = 1;

    using BinaryEncoding::BinaryEncoding;

    int type() const override;

private:
    friend BinaryEncoding;

    static constexpr const char* EMPTY_MESSAGE = "Zero-length data for hex encoding";
    static constexpr const char* BAD_TEXT_MESSAGE = "Invalid hex-encoded data";
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_HEXENCODING_H
