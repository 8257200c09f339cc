// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_BIGENDIAN_H
#define VESK_FASTINFOSET_BIGENDIAN_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

namespace Vesk::FastInfoset
{

/// The unsigned integer type that has as many bits as Value.
template <typename Value>
using BitsOf = std::conditional_t<sizeof(Value) == 2, std::uint16_t,
                                  std::conditional_t<sizeof(Value) == 4, std::uint32_t, std::uint64_t>>;

// Values are moved as bits, so that every NaN stays the one it was. Compilers make one access and one swap of either
// function; reading octet by octet in a loop takes GCC three times as many instructions for eight octets.

/// The bits that lie at octets, most significant first.
template <typename Bits, std::size_t... PLACES>
Bits joinOctets(const char* octets, std::index_sequence<PLACES...>)
{
    constexpr std::size_t LAST = sizeof(Bits) - 1;
    return static_cast<Bits>(((Bits(static_cast<unsigned char>(octets[PLACES])) << (8 * (LAST - PLACES))) | ...));
}

/// The number whose bits lie at octets, most significant first.
template <typename Value>
Value fromBigEndian(const char* octets)
{
    static_assert(sizeof(BitsOf<Value>) == sizeof(Value));
    const BitsOf<Value> bits = joinOctets<BitsOf<Value>>(octets, std::make_index_sequence<sizeof(Value)>());
    Value value;
    std::memcpy(&value, &bits, sizeof(Value));
    return value;
}

/// Puts the bits of the number to octets, most significant first.
template <typename Value>
void toBigEndian(const Value& value, char* octets)
{
    BitsOf<Value> bits;
    static_assert(sizeof(bits) == sizeof(Value));
    std::memcpy(&bits, &value, sizeof(Value));
    for (std::size_t i = 0; i < sizeof(Value); ++i)
        octets[i] = static_cast<char>(bits >> (8 * (sizeof(Value) - 1 - i)));
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_BIGENDIAN_H
