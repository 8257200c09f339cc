// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_ARRAYDELIVERY_H
#define VESK_FASTINFOSET_ARRAYDELIVERY_H

#include "OctetBlocks.h"
#include "Vesk/FastInfoset/FISArrayHandler.h"
#include <algorithm>
#include <cstddef>
#include <vector>

namespace Vesk::FastInfoset::ArrayDelivery
{

/// The most numbers that a handler gets in one array: what stays in the processor's cache.
template <typename Value>
constexpr std::size_t COUNT = OCTET_BLOCK_SIZE / sizeof(Value);

template <typename Value>
void deliver(const std::vector<Value>& values, FISArrayHandler& handler)
{
    for (std::size_t begin = 0; begin < values.size(); begin += COUNT<Value>)
        handler.encodedArray(values.data() + begin, std::min(COUNT<Value>, values.size() - begin));
}

} // namespace Vesk::FastInfoset::ArrayDelivery

#endif // VESK_FASTINFOSET_ARRAYDELIVERY_H
