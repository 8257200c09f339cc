// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_FISENCODINGEXCEPTION_H
#define VESK_FASTINFOSET_FISENCODINGEXCEPTION_H

#include "Vesk/FastInfoset/FISException.h"

namespace Vesk::FastInfoset
{

/// A code where it cannot start, a value that cannot be encoded, or octets that no value can have.
VESK_DECLARE_EXCEPTION(VESK_FASTINFOSET_API, FISEncodingException, FISException);

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_FISENCODINGEXCEPTION_H
