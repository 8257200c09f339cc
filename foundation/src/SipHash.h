// SPDX-License-Identifier: MIT
#ifndef VESK_SIPHASH_H
#define VESK_SIPHASH_H

#include <cstddef>
#include <cstdint>

namespace Vesk
{

/// The keyed hash function of J.-P. Aumasson and D. J. Bernstein, with C rounds for each 64-bit word of the message and D
/// rounds at the end. A message is words, then its last 0 to 7 octets with its length modulo 256 on top of them.
template <int C, int D>
class SipHash
{
public:
    /// The state before the first word. Copied for each message.
    SipHash(std::uint64_t key0, std::uint64_t key1) noexcept
        : _v0(key0 ^ 0x736F6D6570736575),
          _v1(key1 ^ 0x646F72616E646F6D),
          _v2(key0 ^ 0x6C7967656E657261),
          _v3(key1 ^ 0x7465646279746573)
    {
    }

    std::uint64_t operator()(const char* data, std::size_t octetCount) const noexcept
    {
        SipHash state(*this);
        std::size_t rest = octetCount;
        for (; rest >= 8; rest -= 8, data += 8)
            state.add(load64(data));
        return state.finish(lastWord(data, rest, octetCount));
    }

    std::uint64_t operator()(std::uint32_t first, std::uint32_t second, std::uint32_t third) const noexcept
    {
        SipHash state(*this);
        state.add(first | std::uint64_t(second) << 32);
        return state.finish(third | std::uint64_t(12) << 56);
    }

private:
    static std::uint64_t octet(const char* data) noexcept { return static_cast<unsigned char>(*data); }
    // The two loads are one machine instruction each where the octet order is right.
    static std::uint64_t load32(const char* data) noexcept
    {
        return octet(data) | octet(data + 1) << 8 | octet(data + 2) << 16 | octet(data + 3) << 24;
    }
    static std::uint64_t load64(const char* data) noexcept
    {
        return octet(data) | octet(data + 1) << 8 | octet(data + 2) << 16 | octet(data + 3) << 24 |
               octet(data + 4) << 32 | octet(data + 5) << 40 | octet(data + 6) << 48 | octet(data + 7) << 56;
    }

    // Octet by octet would cost more than the rounds on the short strings that most keys are, so the tail is put together
    // from loads that overlap.
    static std::uint64_t lastWord(const char* tail, std::size_t rest, std::size_t octetCount) noexcept
    {
        const std::uint64_t length = std::uint64_t(octetCount) << 56;
        if (octetCount >= 8)
            return length | load64(tail + rest - 8) >> 8 >> (56 - 8 * rest); // two shifts: rest 0 shifts 64 bits out
        if (rest >= 4)
            return length | load32(tail) | load32(tail + rest - 4) << (8 * (rest - 4));
        if (rest == 0)
            return length;
        return length | octet(tail) | octet(tail + rest / 2) << (8 * (rest / 2)) |
               octet(tail + rest - 1) << (8 * (rest - 1));
    }

    void add(std::uint64_t word) noexcept
    {
        _v3 ^= word;
        for (int i = 0; i < C; ++i)
            round();
        _v0 ^= word;
    }

    std::uint64_t finish(std::uint64_t last) noexcept
    {
        add(last);
        _v2 ^= 0xFF;
        for (int i = 0; i < D; ++i)
            round();
        return _v0 ^ _v1 ^ _v2 ^ _v3;
    }

    static std::uint64_t rotated(std::uint64_t value, int bits) noexcept
    {
        return value << bits | value >> (64 - bits);
    }

    void round() noexcept
    {
        _v0 += _v1;
        _v2 += _v3;
        _v1 = rotated(_v1, 13) ^ _v0;
        _v3 = rotated(_v3, 16) ^ _v2;
        _v0 = rotated(_v0, 32);
        _v2 += _v1;
        _v0 += _v3;
        _v1 = rotated(_v1, 17) ^ _v2;
        _v3 = rotated(_v3, 21) ^ _v0;
        _v2 = rotated(_v2, 32);
    }

    std::uint64_t _v0;
    std::uint64_t _v1;
    std::uint64_t _v2;
    std::uint64_t _v3;
};

} // namespace Vesk

#endif // VESK_SIPHASH_H
