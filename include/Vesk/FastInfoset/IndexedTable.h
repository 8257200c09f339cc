// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_INDEXEDTABLE_H
#define VESK_FASTINFOSET_INDEXEDTABLE_H

#include "Vesk/FastInfoset/VerbTable.h"
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Vesk::FastInfoset
{

/// Entries that can be found by value: what MapVocabulary and HashVocabulary are made of. Not for use by itself.
///
/// The slots are an open-addressing hash table with linear probing. They hold entry numbers and hashes, so growing them
/// touches no entry. A caller takes the hash of a value once and passes it to find and add. It is a keyed hash, so that a
/// crafted document cannot make its values collide.
template <class T>
class IndexedTable
{
public:
    /// The index of the value, or Vocabulary<T>::NOT_FOUND with found false.
    unsigned int find(const T& value, std::uint32_t hash, bool& found) const;

    /// Appends the value and returns its index. Requires: the value is absent.
    /// If memory runs out nothing is changed.
    unsigned int add(const T& value, std::uint32_t hash);

    /// Leaves the reserved entry 0 and nothing else. Costs what the entries dropped cost, and nothing if there is none.
    void reset();

    /// The entries in the order they were added.
    const VerbTable<T>& entries() const { return _entries; }

    /// Number of entries, a reserved entry 0 included.
    unsigned int size() const { return _entries.size(); }

private:
    struct Slot
    {
        std::uint32_t number = 0; // of the entry, counted from 1; 0 marks a free slot
        std::uint32_t hash = 0;
    };

    // Slots of a table that is almost empty need no allocation.
    static constexpr std::size_t FIRST_SLOTS = 16;

    // reset() keeps at most this many slots for the next document.
    static constexpr std::size_t KEPT_SLOTS = 4096;

    void grow();
    void clearSlots();
    static void occupy(Slot* slots, std::size_t slotCount, Slot slot);

    const Slot* slots() const { return _slots.empty() ? _firstSlots.data() : _slots.data(); }
    Slot* slots() { return _slots.empty() ? _firstSlots.data() : _slots.data(); }
    std::size_t slotCount() const { return _slots.empty() ? FIRST_SLOTS : _slots.size(); }

    VerbTable<T> _entries;
    std::array<Slot, FIRST_SLOTS> _firstSlots{}; // in use until _slots is
    std::vector<Slot> _slots;                    // a power of two, at most half of them in use
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_INDEXEDTABLE_H
