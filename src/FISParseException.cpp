// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/FISParseException.h"

namespace Vesk::FastInfoset
{

VESK_IMPLEMENT_EXCEPTION(FISParseException, FISException, "FastInfoset Parse Exception");

} // namespace Vesk::FastInfoset
