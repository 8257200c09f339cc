// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/InvalidEncoding.h"
#include "Vesk/FastInfoset/FISException.h"

namespace Vesk::FastInfoset
{

void InvalidEncoding::encode(BitStreamWriter&, const std::string&)
{
    throw FISException("Invalid encoding defined");
}

int InvalidEncoding::check(const std::string&)
{
    return 0;
}

} // namespace Vesk::FastInfoset
