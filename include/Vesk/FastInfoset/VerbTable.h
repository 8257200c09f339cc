// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_VERBTABLE_H
#define VESK_FASTINFOSET_VERBTABLE_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>
#include <string>

namespace Vesk::FastInfoset
{

/// The entries of a vocabulary table, in the order they were appended and numbered from 0.
///
/// Entries never move, so a reference to one stays good while the table grows. They lie in chunks, each twice as long
/// as the one before, so that the chunk and the place in it follow from the highest bit of the index.
///
/// Copying copies the entries.
template <class T>
class VerbTable
{
public:
    VerbTable() = default;
    VerbTable(const VerbTable& other);
    ~VerbTable() = default;
    VerbTable& operator=(const VerbTable&) = delete;

    /// Adds a copy of the value behind the last entry and returns it.
    /// If memory runs out the table is unchanged. Throws std::length_error after 2^32 - 16 entries.
    const T& append(const T& value);

    /// Drops the entries from newSize on; references to them become invalid. A larger newSize changes nothing.
    /// The cost follows the number of entries dropped. The memory of short strings in the first chunks is kept for
    /// later entries, all other memory is given back.
    void truncate(unsigned int newSize);

    /// The entry at this index. Requires: index < size().
    const T& operator[](unsigned int index) const;

    /// The entry at this index. Throws std::out_of_range "index out of range" if there is none.
    const T& at(unsigned int index) const;

    unsigned int size() const { return _size; }

    bool empty() const { return _size == 0; }

private:
    // The first chunk is part of the table and short, because most messages leave most of their ten tables almost
    // empty: such a table costs no allocation at all.
    static constexpr unsigned int FIRST_CHUNK_BITS = 4;
    static constexpr unsigned int FIRST_CHUNK_SIZE = 1u << FIRST_CHUNK_BITS;

    // Chunks 1 to 27, of 2^5 to 2^31 entries: with the first one 2^32 - 16 entries, all that 32 bits can number.
    static constexpr unsigned int LATER_CHUNKS = 27;

    // What truncate() keeps: at most 1008 entries of at most 256 octets each.
    static constexpr unsigned int KEPT_CHUNKS = 6;
    static constexpr std::size_t KEPT_OCTETS = 256;

    static unsigned int highestBit(unsigned int value);
    static unsigned int chunkOf(unsigned int index) { return highestBit(index + FIRST_CHUNK_SIZE) - FIRST_CHUNK_BITS; }
    static unsigned int chunkSize(unsigned int chunk) { return FIRST_CHUNK_SIZE << chunk; }
    static unsigned int chunkStart(unsigned int chunk) { return chunkSize(chunk) - FIRST_CHUNK_SIZE; }

    T* chunkData(unsigned int chunk) { return chunk == 0 ? _first.data() : _later[chunk - 1].get(); }

    template <class U>
    static void releaseLarge(U&)
    {
    }

    static void releaseLarge(std::string& text)
    {
        if (text.capacity() > KEPT_OCTETS)
            std::string().swap(text);
    }

    // All places of a chunk hold a T. Those beyond _size are spare: empty, or what truncate() left.
    std::array<T, FIRST_CHUNK_SIZE> _first{};
    std::array<std::unique_ptr<T[]>, LATER_CHUNKS> _later;
    unsigned int _size = 0;
};

template <class T>
VerbTable<T>::VerbTable(const VerbTable& other)
{
    for (unsigned int i = 0; i < other._size; ++i)
        append(other[i]);
}

template <class T>
const T& VerbTable<T>::append(const T& value)
{
    const unsigned int chunk = chunkOf(_size);
    if (chunk > LATER_CHUNKS)
        throw std::length_error("vocabulary table too long");
    if (chunk > 0 && !_later[chunk - 1])
        _later[chunk - 1] = std::make_unique<T[]>(chunkSize(chunk));

    T& entry = chunkData(chunk)[_size - chunkStart(chunk)];
    entry = value;
    ++_size;
    return entry;
}

template <class T>
void VerbTable<T>::truncate(unsigned int newSize)
{
    if (newSize >= _size)
        return;

    for (unsigned int chunk = chunkOf(newSize); chunk <= chunkOf(_size - 1); ++chunk)
    {
        const unsigned int start = chunkStart(chunk);
        if (chunk >= KEPT_CHUNKS && start >= newSize)
        {
            _later[chunk - 1].reset();
            continue;
        }
        const unsigned int begin = std::max(newSize, start) - start;
        const unsigned int end = std::min(_size - start, chunkSize(chunk));
        std::for_each(chunkData(chunk) + begin, chunkData(chunk) + end, [](T& entry) { releaseLarge(entry); });
    }
    _size = newSize;
}

template <class T>
inline const T& VerbTable<T>::operator[](unsigned int index) const
{
    if (index < FIRST_CHUNK_SIZE)
        return _first[index];
    const unsigned int chunk = chunkOf(index);
    return _later[chunk - 1][index - chunkStart(chunk)];
}

template <class T>
inline const T& VerbTable<T>::at(unsigned int index) const
{
    if (index >= _size)
        throw std::out_of_range("index out of range");
    return (*this)[index];
}

template <class T>
inline unsigned int VerbTable<T>::highestBit(unsigned int value)
{
    unsigned int bit = 0;
    for (unsigned int width = 16; width > 0; width /= 2)
    {
        if (value >> width != 0)
        {
            value >>= width;
            bit += width;
        }
    }
    return bit;
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_VERBTABLE_H
