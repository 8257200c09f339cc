// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_RELEASELARGE_H
#define VESK_FASTINFOSET_RELEASELARGE_H

#include <cstddef>

namespace Vesk::FastInfoset
{

/// Empties a string or vector that has more room than is kept from one document to the next. What one large document, or
/// a few small ones that each fill another buffer, have taken would stay with a reused parser otherwise.
template <class Container>
void releaseLarge(Container& container, std::size_t keptCapacity)
{
    if (container.capacity() > keptCapacity)
        Container().swap(container);
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_RELEASELARGE_H
