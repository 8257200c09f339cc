// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_STRINGINDEXCACHE_H
#define VESK_FASTINFOSET_STRINGINDEXCACHE_H

#include "RecentText.h"
#include "Vesk/FastInfoset/VerbTable.h"
#include <array>
#include <string>
#include <string_view>

namespace Vesk::FastInfoset
{

/// Remembers the indexes of strings written lately, in 2^PLACE_BITS places: a comparison instead of a lookup for those
/// that are written often.
template <int PLACE_BITS>
class StringIndexCache
{
public:
    /// Starts anew. The table is borrowed.
    void begin(const VerbTable<std::string>& strings)
    {
        _strings = &strings;
        if (_isUsed)
            _indexes.fill(0);
        _isUsed = false;
    }

    /// The index of the string, or 0 if it is not remembered. key is that of the text.
    unsigned int find(std::string_view text, const RecentText& key) const
    {
        const std::size_t place = key.place(PLACE_BITS);
        const unsigned int index = _indexes[place];
        if (index == 0 || !key.agrees(_keys[place]) || !(key.isWhole() || (*_strings)[index] == text))
            return 0;
        return index;
    }

    void remember(const RecentText& key, unsigned int index)
    {
        const std::size_t place = key.place(PLACE_BITS);
        _indexes[place] = index;
        _keys[place] = key;
        _isUsed = true;
    }

private:
    static constexpr std::size_t PLACE_COUNT = 1u << PLACE_BITS;

    const VerbTable<std::string>* _strings = nullptr;
    bool _isUsed = false;
    std::array<unsigned int, PLACE_COUNT> _indexes{}; // 0: nothing is remembered, whatever the key holds
    std::array<RecentText, PLACE_COUNT> _keys;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_STRINGINDEXCACHE_H
