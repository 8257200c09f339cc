// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_RECENTPLACE_H
#define VESK_FASTINFOSET_RECENTPLACE_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace Vesk::FastInfoset
{

/// Picks one of 2^placeBits places for a text in a cache whose places are simply taken over.
///
/// Looks at the length, the first and the last octets only, which tells most texts of a document apart. Texts made to
/// collide cost their writer the cache, nothing else.
inline std::size_t recentPlace(std::string_view text, int placeBits)
{
    const std::size_t size = text.size();
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    if (size >= 8)
    {
        std::memcpy(&first, text.data(), 8);
        std::memcpy(&last, text.data() + size - 8, 8);
    }
    else if (size >= 4)
    {
        std::uint32_t half = 0;
        std::memcpy(&half, text.data(), 4);
        first = half;
        std::memcpy(&half, text.data() + size - 4, 4);
        last = half;
    }
    else if (size > 0)
    {
        first = static_cast<unsigned char>(text[0]);
        last = static_cast<std::uint64_t>(static_cast<unsigned char>(text[size / 2])) << 8 |
               static_cast<unsigned char>(text[size - 1]);
    }
    const std::uint64_t mixed = (first * 0x9E3779B97F4A7C15u ^ last ^ size) * 0xD6E8FEB86659FD93u;
    return static_cast<std::size_t>(mixed >> (64 - placeBits));
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_RECENTPLACE_H
