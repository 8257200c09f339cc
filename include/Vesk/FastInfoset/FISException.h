// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_FISEXCEPTION_H
#define VESK_FASTINFOSET_FISEXCEPTION_H

#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/FastInfoset.h"

namespace Vesk::FastInfoset
{

/// A failure of the Fast Infoset library, at home where none of the derived classes fits: a document that is not Fast
/// Infoset, an algorithm that does not exist, a writer that is used in the wrong order.
VESK_DECLARE_EXCEPTION(VESK_FASTINFOSET_API, FISException, RuntimeException);

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_FISEXCEPTION_H
