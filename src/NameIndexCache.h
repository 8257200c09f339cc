// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_NAMEINDEXCACHE_H
#define VESK_FASTINFOSET_NAMEINDEXCACHE_H

#include "RecentPlace.h"
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/QualifiedNameEntry.h"
#include "Vesk/FastInfoset/VerbTable.h"
#include <array>
#include <string>

namespace Vesk::FastInfoset
{

/// Remembers the indexes of names written lately: one comparison instead of four table lookups for nearly every name.
///
/// Each place holds one index and is simply taken over by the next name that falls on it, so names made to collide cost
/// no more than the lookups they would cost without it. The strings are compared with those of the tables.
class NameIndexCache
{
public:
    /// Starts anew. The tables are borrowed.
    void begin(const VerbTable<QualifiedNameEntry>& names, const DocumentVocabulary& vocabulary)
    {
        _names = &names;
        _prefixes = &vocabulary.vocabulary(DocumentVocabulary::PREFIX).entries();
        _namespaceNames = &vocabulary.vocabulary(DocumentVocabulary::NAMESPACE_NAME).entries();
        _localNames = &vocabulary.vocabulary(DocumentVocabulary::LOCAL_NAME).entries();
        _indexes.fill(0);
    }

    /// The index of the name, or 0 if it is not remembered.
    unsigned int find(const std::string& prefix, const std::string& uri, const std::string& localName) const
    {
        const unsigned int index = _indexes[place(prefix, localName)];
        if (index == 0)
            return 0;
        const QualifiedNameEntry& entry = (*_names)[index];
        const bool same = (*_localNames)[entry.localName()] == localName && (*_prefixes)[entry.prefix()] == prefix &&
                          (*_namespaceNames)[entry.namespaceName()] == uri;
        return same ? index : 0;
    }

    void remember(const std::string& prefix, const std::string& localName, unsigned int index)
    {
        _indexes[place(prefix, localName)] = index;
    }

private:
    static constexpr int PLACE_BITS = 8;
    static constexpr std::size_t PLACE_COUNT = 1u << PLACE_BITS;

    static std::size_t place(const std::string& prefix, const std::string& localName)
    {
        return recentPlace(localName, PLACE_BITS) ^ prefix.size() % PLACE_COUNT;
    }

    const VerbTable<QualifiedNameEntry>* _names = nullptr;
    const VerbTable<std::string>* _prefixes = nullptr;
    const VerbTable<std::string>* _namespaceNames = nullptr;
    const VerbTable<std::string>* _localNames = nullptr;
    std::array<unsigned int, PLACE_COUNT> _indexes{};
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_NAMEINDEXCACHE_H
