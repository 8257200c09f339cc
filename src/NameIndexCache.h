// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_NAMEINDEXCACHE_H
#define VESK_FASTINFOSET_NAMEINDEXCACHE_H

#include "RecentText.h"
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/QualifiedNameEntry.h"
#include "Vesk/FastInfoset/VerbTable.h"
#include <array>
#include <string>

namespace Vesk::FastInfoset
{

/// Remembers the indexes of names written lately: one comparison instead of four table lookups for nearly every name.
///
/// Each place holds one name and is simply taken over by the next one that falls on it, so names made to collide cost
/// no more than the lookups they would cost without it. The strings are compared with those of the tables.
class NameIndexCache
{
public:
    /// Starts anew. The tables are borrowed.
    void begin(const VerbTable<QualifiedNameEntry>& names, const DocumentVocabulary& vocabulary)
    {
        _entries = &names;
        _prefixes = &vocabulary.vocabulary(DocumentVocabulary::PREFIX).entries();
        _namespaceNames = &vocabulary.vocabulary(DocumentVocabulary::NAMESPACE_NAME).entries();
        _localNames = &vocabulary.vocabulary(DocumentVocabulary::LOCAL_NAME).entries();
        if (_isUsed)
            _indexes.fill(0);
        _isUsed = false;
    }

    /// The index of the name, or 0 if it is not remembered. key is that of the local name.
    unsigned int find(const std::string& prefix, const std::string& uri, const std::string& localName,
                      const RecentText& key) const
    {
        const std::size_t place = placeOf(prefix, key);
        const unsigned int index = _indexes[place];
        const Name& name = _names[place];
        if (index == 0 || !key.agrees(name.key) || *name.prefix != prefix || *name.uri != uri ||
            !(key.isWhole() || *name.localName == localName))
            return 0;
        return index;
    }

    void remember(const std::string& prefix, const RecentText& key, unsigned int index)
    {
        const QualifiedNameEntry& entry = (*_entries)[index];
        const std::size_t place = placeOf(prefix, key);
        _names[place] = {key, &(*_prefixes)[entry.prefix()], &(*_namespaceNames)[entry.namespaceName()],
                         &(*_localNames)[entry.localName()]};
        _indexes[place] = index;
        _isUsed = true;
    }

private:
    struct Name
    {
        RecentText key;
        const std::string* prefix;
        const std::string* uri;
        const std::string* localName;
    };

    static constexpr int PLACE_BITS = 8;
    static constexpr std::size_t PLACE_COUNT = 1u << PLACE_BITS;

    static std::size_t placeOf(const std::string& prefix, const RecentText& key)
    {
        return key.place(PLACE_BITS) ^ prefix.size() % PLACE_COUNT;
    }

    const VerbTable<QualifiedNameEntry>* _entries = nullptr;
    const VerbTable<std::string>* _prefixes = nullptr;
    const VerbTable<std::string>* _namespaceNames = nullptr;
    const VerbTable<std::string>* _localNames = nullptr;
    bool _isUsed = false;
    std::array<unsigned int, PLACE_COUNT> _indexes{}; // 0: nothing is remembered, whatever the name holds
    std::array<Name, PLACE_COUNT> _names;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_NAMEINDEXCACHE_H
