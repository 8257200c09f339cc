// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_DWORDENCODING_H
#define VESK_FASTINFOSET_DWORDENCODING_H

#include "Vesk/FastInfoset/BinaryEncoding.h"

namespace Vesk
{
class Base64Decoder;
class Base64Encoder;
} // namespace Vesk

namespace Vesk::FastInfoset
{

/// Octets whose text is base64, encoding algorithm 2.
class VESK_FASTINFOSET_API DWordEncoding : public BinaryEncoding<DWordEncoding, Base64Encoder, Base64Decoder>
{
public:
    /// The index of the algorithm.
    static constexpr int TYPE = 2;

    using BinaryEncoding::BinaryEncoding;

    int type() const override;

private:
    friend BinaryEncoding;

    static constexpr const char* EMPTY_MESSAGE = "Zero-length data for dword encoding";
    static constexpr const char* BAD_TEXT_MESSAGE = "Invalid base64-encoded data";
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_DWORDENCODING_H
