// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_ENCODEDSIZE_H
#define VESK_FASTINFOSET_ENCODEDSIZE_H

#include <algorithm>
#include <cstddef>
#include <limits>

namespace Vesk::FastInfoset
{

/// A number of octets as check functions return it. What an int cannot hold becomes the largest one, which never wins.
inline int encodedSize(std::size_t octetCount)
{
    return static_cast<int>(std::min<std::size_t>(octetCount, std::numeric_limits<int>::max()));
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_ENCODEDSIZE_H
