// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/Vocabulary.h"
#include "Vesk/Bugcheck.h"
#include "Vesk/FastInfoset/HashVocabulary.h"
#include "Vesk/FastInfoset/MapVocabulary.h"
#include "Vesk/FastInfoset/VectorVocabulary.h"
#include "Vesk/Hash.h"
#include "VocabularyEntry.h"
#include <algorithm>
#include <memory>
#include <type_traits>
#include <utility>

namespace Vesk::FastInfoset
{

namespace
{

std::uint32_t hashOf(const std::string& value)
{
    return hash(value);
}

std::uint32_t hashOf(const QualifiedNameEntry& value)
{
    return hash(value.prefix(), value.namespaceName(), value.localName());
}

/// Fills an empty table with the difference of two others and hands it over.
template <class Table, class T>
Table* difference(std::unique_ptr<Table> result, const VerbTable<T>& entries, const Vocabulary<T>& other)
{
    for (unsigned int i = 0; i < entries.size(); ++i)
    {
        bool found = false;
        other.exists(entries[i], found);
        if (!found)
            result->index(entries[i], found);
    }
    return result.release();
}

} // namespace

// VectorVocabulary

template <class T>
VectorVocabulary<T>::VectorVocabulary() = default;

template <class T>
unsigned int VectorVocabulary<T>::index(const T& value, bool& found)
{
    found = false;
    return _entries.append(value);
}

template <class T>
unsigned int VectorVocabulary<T>::exists(const T& value, bool& found) const
{
    for (unsigned int i = 0; i < _entries.size(); ++i)
    {
        if (same(_entries[i], value))
        {
            found = true;
            return i;
        }
    }
    found = false;
    return Vocabulary<T>::NOT_FOUND;
}

template <class T>
const T& VectorVocabulary<T>::value(unsigned int idx) const
{
    return _entries.at(idx);
}

template <class T>
unsigned int VectorVocabulary<T>::size() const
{
    return _entries.size();
}

template <class T>
bool VectorVocabulary<T>::empty() const
{
    return _entries.empty();
}

template <class T>
VectorVocabulary<T>* VectorVocabulary<T>::subtract(const Vocabulary<T>& other) const
{
    return difference(std::make_unique<VectorVocabulary>(), _entries, other);
}

template <class T>
VectorVocabulary<T>* VectorVocabulary<T>::clone() const
{
    return new VectorVocabulary(*this);
}

template <class T>
const VerbTable<T>& VectorVocabulary<T>::entries() const
{
    return _entries;
}

template <class T>
void VectorVocabulary<T>::reset()
{
    if (holdsOnlyReservedEntry(_entries))
        return;
    _entries.truncate(0);
    _entries.append(T());
}

// IndexedTable

template <class T>
unsigned int IndexedTable<T>::find(const T& value, std::uint32_t hash, bool& found) const
{
    const Slot* const first = slots();
    const std::size_t mask = slotCount() - 1;
    for (std::size_t i = hash & mask; first[i].number != 0; i = (i + 1) & mask)
    {
        const unsigned int index = first[i].number - 1;
        found = first[i].hash == hash && same(_entries[index], value);
        if (found)
            return index;
    }
    found = false;
    return Vocabulary<T>::NOT_FOUND;
}

template <class T>
unsigned int IndexedTable<T>::add(const T& value, std::uint32_t hash)
{
    // Whatever can fail comes first. At least half of the slots stay free, which keeps the probes of find short.
    if (2 * (size() + std::size_t(1)) > slotCount())
        grow();
    const unsigned int index = _entries.append(value);
    occupy(slots(), slotCount(), Slot{index + 1, hash});
    return index;
}

template <class T>
void IndexedTable<T>::reset()
{
    if (holdsOnlyReservedEntry(_entries))
        return;
    clearSlots();
    _entries.truncate(0);
    static const T RESERVED_ENTRY{};
    static const std::uint32_t RESERVED_HASH = hashOf(RESERVED_ENTRY);
    add(RESERVED_ENTRY, RESERVED_HASH);
}

template <class T>
void IndexedTable<T>::clearSlots()
{
    // A large document's slots must not make every small document after it pay for clearing them.
    if (_slots.size() <= KEPT_SLOTS && _slots.size() <= FIRST_SLOTS * std::size_t(size()))
        std::fill(_slots.begin(), _slots.end(), Slot());
    else
        std::vector<Slot>().swap(_slots);
    _firstSlots.fill(Slot());
}

template <class T>
void IndexedTable<T>::grow()
{
    const std::size_t newCount = 2 * slotCount();
    std::vector<Slot> grown(newCount);
    for (const Slot *slot = slots(), *end = slot + slotCount(); slot != end; ++slot)
    {
        if (slot->number != 0)
            occupy(grown.data(), newCount, *slot);
    }
    _slots.swap(grown);
}

template <class T>
void IndexedTable<T>::occupy(Slot* slots, std::size_t slotCount, Slot slot)
{
    const std::size_t mask = slotCount - 1;
    std::size_t i = slot.hash & mask;
    while (slots[i].number != 0)
        i = (i + 1) & mask;
    slots[i] = slot;
}

// MapVocabulary

template <class T>
MapVocabulary<T>::MapVocabulary() = default;

template <class T>
unsigned int MapVocabulary<T>::index(const T& value, bool& found)
{
    const std::uint32_t hash = hashOf(value);
    const unsigned int index = _index.find(value, hash, found);
    return found ? index : _index.add(value, hash);
}

template <class T>
unsigned int MapVocabulary<T>::exists(const T& value, bool& found) const
{
    return _index.find(value, hashOf(value), found);
}

template <class T>
const T& MapVocabulary<T>::value(unsigned int idx) const
{
    return _index.entries().at(idx);
}

template <class T>
unsigned int MapVocabulary<T>::size() const
{
    return _index.size();
}

template <class T>
bool MapVocabulary<T>::empty() const
{
    return _index.size() == 0;
}

template <class T>
MapVocabulary<T>* MapVocabulary<T>::subtract(const Vocabulary<T>& other) const
{
    return difference(std::make_unique<MapVocabulary>(), _index.entries(), other);
}

template <class T>
MapVocabulary<T>* MapVocabulary<T>::clone() const
{
    return new MapVocabulary(*this);
}

template <class T>
const VerbTable<T>& MapVocabulary<T>::entries() const
{
    return _index.entries();
}

template <class T>
void MapVocabulary<T>::reset()
{
    _index.reset();
}

// HashVocabulary

template <class T>
HashVocabulary<T>::HashVocabulary(unsigned int tableSize)
    : HashVocabulary(tableSize, NO_ENTRY)
{
    if constexpr (std::is_same_v<T, std::string>)
        reset();
}

template <class T>
HashVocabulary<T>::HashVocabulary(unsigned int tableSize, NoEntry)
    : _tableSize(tableSize)
{
    if (tableSize == 0) // no room for the reserved entry
        Bugcheck::assertion("tableSize > 0", "src/Vocabulary", __LINE__);
}

template <class T>
unsigned int HashVocabulary<T>::index(const T& value, bool& found)
{
    const std::uint32_t hash = hashOf(value);
    const unsigned int index = _index.find(value, hash, found);
    if (found)
        return index;
    if (_index.size() >= _tableSize)
        throw PoolOverflowException("Vocabulary hash table full");
    return _index.add(value, hash);
}

template <class T>
unsigned int HashVocabulary<T>::exists(const T& value, bool& found) const
{
    return _index.find(value, hashOf(value), found);
}

template <class T>
const T& HashVocabulary<T>::value(unsigned int idx) const
{
    if (idx >= _index.size())
        Bugcheck::assertion("this->_index.size() > idx", "include/Vesk/FastInfoset/HashVocabulary", 81);
    return _index.entries()[idx];
}

template <class T>
unsigned int HashVocabulary<T>::size() const
{
    return _index.size();
}

template <class T>
bool HashVocabulary<T>::empty() const
{
    return _index.size() == 0;
}

template <class T>
HashVocabulary<T>* HashVocabulary<T>::subtract(const Vocabulary<T>& other) const
{
    std::unique_ptr<HashVocabulary> result(new HashVocabulary(_tableSize, NO_ENTRY));
    return difference(std::move(result), _index.entries(), other);
}

template <class T>
HashVocabulary<T>* HashVocabulary<T>::clone() const
{
    return new HashVocabulary(*this);
}

template <class T>
const VerbTable<T>& HashVocabulary<T>::entries() const
{
    return _index.entries();
}

template <class T>
void HashVocabulary<T>::reset()
{
    _index.reset();
}

template <class T>
unsigned int HashVocabulary<T>::tableSize() const
{
    return _tableSize;
}

template class Vocabulary<std::string>;
template class Vocabulary<QualifiedNameEntry>;
template class VectorVocabulary<std::string>;
template class VectorVocabulary<QualifiedNameEntry>;
template class MapVocabulary<std::string>;
template class MapVocabulary<QualifiedNameEntry>;
template class HashVocabulary<std::string>;
template class HashVocabulary<QualifiedNameEntry>;

} // namespace Vesk::FastInfoset
