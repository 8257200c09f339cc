// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/FISException.h"

namespace Vesk::FastInfoset
{

VESK_IMPLEMENT_EXCEPTION(FISException, RuntimeException, "FastInfoset Exception");

} // namespace Vesk::FastInfoset
