// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/DWordEncoding.h"
#include "BinaryEncodingImpl.h"
#include "Vesk/Base64Decoder.h"
#include "Vesk/Base64Encoder.h"

namespace Vesk::FastInfoset
{

template class ContentEncoding<DWordEncoding>;
template class BinaryEncoding<DWordEncoding, Base64Encoder, Base64Decoder>;

int DWordEncoding::type() const
{
    return TYPE;
}

} // namespace Vesk::FastInfoset
