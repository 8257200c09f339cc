// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/HexEncoding.h"
#include "BinaryEncodingImpl.h"
#include "Vesk/HexBinaryDecoder.h"
#include "Vesk/HexBinaryEncoder.h"

namespace Vesk::FastInfoset
{

template class ContentEncoding<HexEncoding>;
template class BinaryEncoding<HexEncoding, HexBinaryEncoder, HexBinaryDecoder>;

int HexEncoding::type() const
{
    return TYPE;
}

} // namespace Vesk::FastInfoset
