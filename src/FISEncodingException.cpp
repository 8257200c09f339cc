// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/FISEncodingException.h"

namespace Vesk::FastInfoset
{

VESK_IMPLEMENT_EXCEPTION(FISEncodingException, FISException, "FastInfoset Encoding Exception");

} // namespace Vesk::FastInfoset
