// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/DecodingAlgorithm.h"
#include "Vesk/FastInfoset/BoolEncoding.h"
#include "Vesk/FastInfoset/CDataEncoding.h"
#include "Vesk/FastInfoset/DWordEncoding.h"
#include "Vesk/FastInfoset/DoubleEncoding.h"
#include "Vesk/FastInfoset/FloatEncoding.h"
#include "Vesk/FastInfoset/HexEncoding.h"
#include "Vesk/FastInfoset/IntEncoding.h"
#include "Vesk/FastInfoset/InvalidDecoding.h"
#include "Vesk/FastInfoset/LongEncoding.h"
#include "Vesk/FastInfoset/ShortEncoding.h"
#include "Vesk/FastInfoset/UUIDEncoding.h"

namespace Vesk::FastInfoset
{

namespace
{

// By algorithm index.
constexpr Encoding::DecodeMethod DECODINGS[] = {
    &InvalidDecoding::decode, &HexEncoding::decode,  &DWordEncoding::decode, &ShortEncoding::decode,
    &IntEncoding::decode,     &LongEncoding::decode, &BoolEncoding::decode,  &FloatEncoding::decode,
    &DoubleEncoding::decode,  &UUIDEncoding::decode, &CDataEncoding::decode};

} // namespace

Encoding::DecodeMethod DecodingAlgorithm::decoding(unsigned int index) const
{
    return index < sizeof(DECODINGS) / sizeof(DECODINGS[0]) ? DECODINGS[index] : &InvalidDecoding::decode;
}

} // namespace Vesk::FastInfoset
