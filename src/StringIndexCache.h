// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_STRINGINDEXCACHE_H
#define VESK_FASTINFOSET_STRINGINDEXCACHE_H

#include "RecentPlace.h"
#include "Vesk/FastInfoset/VerbTable.h"
#include <array>
#include <string>
#include <string_view>

namespace Vesk::FastInfoset
{

/// Remembers the indexes of strings written lately: a comparison instead of a lookup for those that are written often.
class StringIndexCache
{
public:
    /// Starts anew. The table is borrowed.
    void begin(const VerbTable<std::string>& strings)
    {
        _strings = &strings;
        _indexes.fill(0);
    }

    /// The index of the string, or 0 if it is not remembered.
    unsigned int find(std::string_view text) const
    {
        const unsigned int index = _indexes[recentPlace(text, PLACE_BITS)];
        return index != 0 && (*_strings)[index] == text ? index : 0;
    }

    void remember(std::string_view text, unsigned int index) { _indexes[recentPlace(text, PLACE_BITS)] = index; }

private:
    static constexpr int PLACE_BITS = 9;

    const VerbTable<std::string>* _strings = nullptr;
    std::array<unsigned int, 1u << PLACE_BITS> _indexes{};
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_STRINGINDEXCACHE_H
