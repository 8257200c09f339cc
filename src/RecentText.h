// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_RECENTTEXT_H
#define VESK_FASTINFOSET_RECENTTEXT_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace Vesk::FastInfoset
{

/// What a cache of texts written lately looks at: the length, the first and the last octets. They tell most texts of a
/// document apart, and are all there is to texts of up to 16 octets.
///
/// Texts made to collide cost their writer the cache, nothing else.
class RecentText
{
public:
    /// Of no text at all, with nothing set, so that making an array costs nothing.
    RecentText() = default;

    explicit RecentText(std::string_view text)
        : _first(0),
          _last(0),
          _size(text.size())
    {
        const char* const data = text.data();
        if (_size >= 8)
        {
            std::memcpy(&_first, data, 8);
            std::memcpy(&_last, data + _size - 8, 8);
        }
        else if (_size >= 4)
        {
            _first = load32(data);
            _last = load32(data + _size - 4);
        }
        else if (_size > 0)
        {
            _first = static_cast<unsigned char>(data[0]);
            _last = static_cast<std::uint64_t>(static_cast<unsigned char>(data[_size / 2])) << 8 |
                    static_cast<unsigned char>(data[_size - 1]);
        }
    }

    /// One of 2^placeBits places in a cache whose places are simply taken over.
    std::size_t place(int placeBits) const
    {
        const std::uint64_t mixed = (_first * 0x9E3779B97F4A7C15u ^ _last ^ _size) * 0xD6E8FEB86659FD93u;
        return static_cast<std::size_t>(mixed >> (64 - placeBits));
    }

    /// True if the texts agree as far as they are looked at.
    bool agrees(const RecentText& other) const
    {
        return _first == other._first && _last == other._last && _size == other._size;
    }

    /// True if texts that agree are equal.
    bool isWhole() const { return _size <= 16; }

private:
    static std::uint64_t load32(const char* data)
    {
        std::uint32_t word = 0;
        std::memcpy(&word, data, 4);
        return word;
    }

    std::uint64_t _first;
    std::uint64_t _last;
    std::size_t _size;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_RECENTTEXT_H
