// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/InvalidDecoding.h"
#include "Vesk/FastInfoset/FISException.h"

namespace Vesk::FastInfoset
{

AutoPtr<Encoding> InvalidDecoding::decode(BitStreamReader&)
{
    throw FISException("Invalid decoding defined");
}

} // namespace Vesk::FastInfoset
