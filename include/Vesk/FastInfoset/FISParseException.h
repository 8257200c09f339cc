// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_FISPARSEEXCEPTION_H
#define VESK_FASTINFOSET_FISPARSEEXCEPTION_H

#include "Vesk/FastInfoset/FISException.h"

namespace Vesk::FastInfoset
{

/// Input ends inside a structure, or cannot be found.
VESK_DECLARE_EXCEPTION(VESK_FASTINFOSET_API, FISParseException, FISException);

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_FISPARSEEXCEPTION_H
