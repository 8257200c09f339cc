// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_VERBTABLE_H
#define VESK_FASTINFOSET_VERBTABLE_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
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
    /// An empty table. A copy has copies of the entries.
    VerbTable()
    {
        _chunks[0] = _firstChunk.data();
        seekSpare();
    }
    VerbTable(const VerbTable& other);
    ~VerbTable() { releaseChunks(1); }
    VerbTable& operator=(const VerbTable&) = delete;

    /// Adds a copy of the value behind the last entry and returns its index. If memory runs out the table is unchanged.
    /// Throws std::length_error after 2^32 - 8 entries.
    unsigned int append(const T& value);

    /// The place behind the last entry, with whatever an earlier entry has left there. Filling it and calling addSpare
    /// saves the copy that append makes. It stays no entry until then. Throws what append throws.
    T& spare();

    /// Makes the place that spare() has handed out an entry, and returns its index.
    unsigned int addSpare()
    {
        ++_spare;
        return _size++;
    }

    /// Drops the entries from newSize on; references to them become invalid. A larger newSize changes nothing.
    /// The cost follows the number of entries dropped. The memory of short strings in the first chunks is kept for
    /// later entries, all other memory is given back.
    void truncate(unsigned int newSize);

    /// The entry at this index. Requires: index < size().
    const T& operator[](unsigned int index) const { return *place(index); }
    T& operator[](unsigned int index) { return *place(index); }

    /// The entry at this index. Throws std::out_of_range "index out of range" if there is none.
    const T& at(unsigned int index) const;

    /// Number of entries.
    unsigned int size() const { return _size; }

    /// Whether there is no entry.
    bool empty() const { return _size == 0; }

private:
    // The first chunk is part of the table and short, because most messages leave most of their ten tables almost
    // empty: such a table costs no allocation of its own.
    static constexpr unsigned int FIRST_CHUNK_BITS = 3;
    static constexpr unsigned int FIRST_CHUNK_SIZE = 1u << FIRST_CHUNK_BITS;

    // Chunks of 2^3 to 2^31 entries: 2^32 - 8 entries, all that 32 bits can number.
    static constexpr unsigned int MAX_CHUNKS = 29;

    // What truncate() keeps: at most 1016 entries of at most 256 octets each.
    static constexpr unsigned int KEPT_CHUNKS = 7;
    static constexpr std::size_t KEPT_OCTETS = 256;

    static unsigned int highestBit(unsigned int value);
    static unsigned int chunkOf(unsigned int index) { return highestBit(index + FIRST_CHUNK_SIZE) - FIRST_CHUNK_BITS; }
    static unsigned int chunkSize(unsigned int chunk) { return FIRST_CHUNK_SIZE << chunk; }
    static unsigned int chunkStart(unsigned int chunk) { return chunkSize(chunk) - FIRST_CHUNK_SIZE; }

    T* place(unsigned int index) const;
    void seekSpare();
    void addChunk();
    void releaseChunks(unsigned int from);

    static void releaseLarge(std::string& text);
    template <class U>
    static void releaseLarge(U&)
    {
    }

    // Every place of a chunk holds a T. Those from _size on are spare: empty, or what truncate() left there.
    std::array<T, FIRST_CHUNK_SIZE> _firstChunk{};
    std::array<T*, MAX_CHUNKS> _chunks{}; // the first is _firstChunk, so that no access has to ask; owns the others
    unsigned int _size = 0;
    T* _spare = nullptr;    // the place behind the last entry, or _chunkEnd
    T* _chunkEnd = nullptr; // of the chunk in which it lies, or null if there is no such chunk
};

// The default constructor has run to its end, so the destructor cleans up if appending fails.
template <class T>
VerbTable<T>::VerbTable(const VerbTable& other)
    : VerbTable()
{
    for (unsigned int i = 0; i < other._size; ++i)
        append(other[i]);
}

template <class T>
inline unsigned int VerbTable<T>::append(const T& value)
{
    spare() = value;
    return addSpare();
}

template <class T>
inline T& VerbTable<T>::spare()
{
    if (_spare == _chunkEnd)
        addChunk();
    return *_spare;
}

// The chunk in which the last entry lies is full, or there is none.
template <class T>
void VerbTable<T>::addChunk()
{
    const unsigned int chunk = chunkOf(_size);
    if (chunk >= MAX_CHUNKS)
        throw std::length_error("vocabulary table too long");
    if (_chunks[chunk] == nullptr)
        _chunks[chunk] = new T[chunkSize(chunk)]();
    seekSpare();
}

template <class T>
void VerbTable<T>::seekSpare()
{
    const unsigned int chunk = chunkOf(_size);
    T* const entries = _chunks[chunk];
    _spare = entries == nullptr ? nullptr : entries + (_size - chunkStart(chunk));
    _chunkEnd = entries == nullptr ? nullptr : entries + chunkSize(chunk);
}

template <class T>
void VerbTable<T>::truncate(unsigned int newSize)
{
    if (_spare != _chunkEnd)
        releaseLarge(*_spare); // filled, but never added
    if (newSize >= _size)
        return;
    releaseChunks(std::max(chunkOf(newSize) + 1, KEPT_CHUNKS));
    for (unsigned int chunk = chunkOf(newSize); chunk < MAX_CHUNKS && _chunks[chunk] != nullptr; ++chunk)
    {
        const unsigned int start = chunkStart(chunk);
        if (start >= _size)
            break; // spare since an earlier truncate()
        T* const entries = _chunks[chunk];
        for (unsigned int i = std::max(newSize, start) - start; i < std::min(_size - start, chunkSize(chunk)); ++i)
            releaseLarge(entries[i]);
    }
    _size = newSize;
    seekSpare();
}

template <class T>
inline const T& VerbTable<T>::at(unsigned int index) const
{
    if (index >= _size)
        throw std::out_of_range("index out of range");
    return (*this)[index];
}

// The exponent of a floating-point number is the position of the highest bit. Reading it takes three instructions and no
// branch, which makes entry access more than twice as fast as halving the range step by step.
template <class T>
inline unsigned int VerbTable<T>::highestBit(unsigned int value)
{
    static_assert(std::numeric_limits<double>::is_iec559 && sizeof(double) == sizeof(std::uint64_t));
    constexpr int MANTISSA_BITS = 52;
    constexpr unsigned int EXPONENT_BIAS = 1023;
    const double number = value;
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return static_cast<unsigned int>(bits >> MANTISSA_BITS) - EXPONENT_BIAS;
}

template <class T>
inline T* VerbTable<T>::place(unsigned int index) const
{
    const unsigned int chunk = chunkOf(index);
    return _chunks[chunk] + (index - chunkStart(chunk));
}

template <class T>
void VerbTable<T>::releaseChunks(unsigned int from)
{
    // Chunks are allocated in order and released from the end, so the first missing one is the end.
    for (unsigned int chunk = from; chunk < MAX_CHUNKS && _chunks[chunk] != nullptr; ++chunk)
    {
        delete[] _chunks[chunk];
        _chunks[chunk] = nullptr;
    }
}

template <class T>
void VerbTable<T>::releaseLarge(std::string& text)
{
    if (text.capacity() > KEPT_OCTETS)
        std::string().swap(text);
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_VERBTABLE_H
