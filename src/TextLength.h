// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_TEXTLENGTH_H
#define VESK_FASTINFOSET_TEXTLENGTH_H

#include "Vesk/Exception.h"
#include <limits>
#include <string>

namespace Vesk::FastInfoset
{

/// The length of a text as handlers take it. Throws RangeException for one of 2 GiB or more, which they cannot express.
inline int textLength(const std::string& text)
{
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        throw RangeException("text too long for a handler");
    return static_cast<int>(text.size());
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_TEXTLENGTH_H
