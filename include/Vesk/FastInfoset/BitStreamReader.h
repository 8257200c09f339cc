// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_BITSTREAMREADER_H
#define VESK_FASTINFOSET_BITSTREAMREADER_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <cstddef>
#include <istream>
#include <memory>
#include <string>

namespace Vesk::FastInfoset
{

/// Delivers a document bit by bit, most significant bit of each octet first.
///
/// The source is a stream, taken in blocks of 1024 octets, or a block of memory. Neither is owned: it must outlive the
/// reader. Widths and positions are in bits unless a name says octets. One reader serves one document and one thread.
///
/// Every read and peek returns true if input held all the bits that were asked for. Otherwise it returns false, the
/// value is 0 and the position stays where it was; the caller decides what the end of input means at that place.
/// A stream that fails for any reason but its end makes the reader throw IOException.
class VESK_FASTINFOSET_API BitStreamReader
{
public:
    /// Reads from the stream. Nothing is taken from it before the first request.
    explicit BitStreamReader(std::istream& stream);

    /// Reads from the octetCount octets at data.
    BitStreamReader(const char* data, std::size_t octetCount);

    BitStreamReader(const BitStreamReader&) = delete;
    BitStreamReader& operator=(const BitStreamReader&) = delete;
    ~BitStreamReader();

    /// Reads one bit.
    bool read(bool& bit);

    /// Looks at the next numOfBits bits (1 to 8) without moving past them, right-aligned.
    bool peek(unsigned char& value, int numOfBits);

    /// Reads the next numOfBits bits (1 to the width of the type), right-aligned.
    bool read(unsigned short& value, int numOfBits);
    bool read(unsigned int& value, int numOfBits);
    bool read(unsigned long& value, int numOfBits);

    /// Replaces the contents of octets with the next octetCount octets, from any bit position.
    ///
    /// Memory is taken for octets that are there, at most 64 KiB ahead of them, whatever the count claims.
    /// At the end of input: throws FISParseException when the position is on an octet boundary of a stream, returns
    /// false otherwise.
    bool read(std::string& octets, unsigned long octetCount);

    /// Copies the next octetCount octets to target, from any bit position, and returns how many there were: fewer than
    /// asked for only at the end of input.
    unsigned long readOctets(char* target, unsigned long octetCount);

    /// Moves past the next octetCount octets and returns where they lie, good until the next read. Returns null, and does
    /// not move, if they do not all lie in the buffer. Requires: an octet boundary.
    const char* takeOctets(unsigned long octetCount);

    /// Moves past numOfBits bits without looking at them, at most to the end of input.
    void skip(unsigned long numOfBits);

    /// Moves to the next octet boundary, if the position is not on one already.
    void align();

    /// How many bits of the current octet have been consumed: 0 to 7.
    int bitOffset() const;

    /// \name Whole octets
    /// The structures of a document start in octets that they share with what is before them. Reading the octet at once
    /// and looking at its bits afterwards takes one check for all of them.
    /// @{

    /// Reads an octet. Requires: an octet boundary.
    bool readOctet(unsigned int& octet);

    /// Reads what is left of the current octet, right-aligned.
    /// Requires: a bit offset of 1 to 7, at which the rest of the octet is always there.
    unsigned int readRestOfOctet();

    /// Goes back by numOfBits bits (up to 8) of the octet that has just been read.
    void unread(unsigned int numOfBits);

    /// @}

    /// Octets of the document before the current one.
    unsigned long octetPosition() const;

    /// \name Refilling, which only the reader itself needs
    /// @{

    /// Replaces the whole buffer by the next block of the stream. Unread bits are lost.
    void refillBuffer();

    /// Moves the octets that hold the last remainingBits bits to the start of the buffer and fills the rest from the
    /// stream. A count below zero counts as zero. Returns the number of octets taken from the stream.
    int refillBufferIfLessThanImpl(int remainingBits);

    /// Reads up to octetCount octets from the stream; 0 at its end. Throws IOException if the stream has failed.
    long readFromStream(char* target, long octetCount);

    /// @}

private:
    static constexpr long BUFFER_OCTETS = 1024;

    unsigned long unreadOctets() const { return static_cast<unsigned long>(_end - _next); }
    unsigned long unreadBits() const { return unreadOctets() * 8 - _bitOffset; }
    bool require(int numOfBits) { return unreadBits() >= static_cast<unsigned long>(numOfBits) || refill(numOfBits); }
    bool refill(int numOfBits);
    bool readPiecewise(std::string& octets, unsigned long octetCount);
    void advance(unsigned long numOfBits);
    unsigned long takeBits(int numOfBits);
    unsigned long nextBlock(const char*& block, unsigned long octetCount);

    template <typename T>
    bool readBits(T& value, int numOfBits);

    // The position: an octet, and how many of its bits have been consumed. At the end it is a whole octet's boundary.
    const unsigned char* _next;
    const unsigned char* _end; // of the buffer
    unsigned int _bitOffset = 0;

    const unsigned char* _buffer; // the caller's block, or _streamBuffer
    std::istream* _stream;
    std::unique_ptr<char[]> _streamBuffer; // empty in the memory form
    unsigned long _octetsBeforeBuffer = 0; // octets of the document that have left the buffer
};

inline int BitStreamReader::bitOffset() const
{
    return static_cast<int>(_bitOffset);
}

inline unsigned long BitStreamReader::octetPosition() const
{
    return _octetsBeforeBuffer + static_cast<unsigned long>(_next - _buffer);
}

inline bool BitStreamReader::readOctet(unsigned int& octet)
{
    if (_next == _end && !refill(8))
        return false;
    octet = *_next++;
    return true;
}

inline bool BitStreamReader::read(std::string& octets, unsigned long octetCount)
{
    if (_bitOffset != 0 || octetCount > unreadOctets())
        return readPiecewise(octets, octetCount);
    octets.assign(reinterpret_cast<const char*>(_next), octetCount);
    _next += octetCount;
    return true;
}

inline unsigned int BitStreamReader::readRestOfOctet()
{
    const unsigned int rest = *_next & (0xFFu >> _bitOffset);
    align();
    return rest;
}

inline void BitStreamReader::align()
{
    if (_bitOffset != 0)
        ++_next;
    _bitOffset = 0;
}

// Requires: that many unread bits.
inline void BitStreamReader::advance(unsigned long numOfBits)
{
    const unsigned long bits = _bitOffset + numOfBits;
    _next += bits / 8;
    _bitOffset = bits % 8;
}

inline const char* BitStreamReader::takeOctets(unsigned long octetCount)
{
    if (octetCount > unreadOctets())
        return nullptr;
    const char* const octets = reinterpret_cast<const char*>(_next);
    _next += octetCount;
    return octets;
}

inline void BitStreamReader::unread(unsigned int numOfBits)
{
    --_next;
    advance(8 - numOfBits);
}

inline void BitStreamReader::skip(unsigned long numOfBits)
{
    while (numOfBits > unreadBits())
    {
        numOfBits -= unreadBits();
        advance(unreadBits());
        if (!refill(1))
            return;
    }
    advance(numOfBits);
}

inline bool BitStreamReader::read(bool& bit)
{
    if (!require(1))
    {
        bit = false;
        return false;
    }
    bit = (*_next & (0x80u >> _bitOffset)) != 0;
    advance(1);
    return true;
}

inline bool BitStreamReader::peek(unsigned char& value, int numOfBits)
{
    if (!require(numOfBits))
    {
        value = 0;
        return false;
    }
    // The octet in which the bits start, and the next one where they reach into it.
    const int end = bitOffset() + numOfBits;
    unsigned int bits = static_cast<unsigned int>(_next[0]) << 8;
    if (end > 8)
        bits |= _next[1];
    value = static_cast<unsigned char>((bits >> (16 - end)) & (0xFFu >> (8 - numOfBits)));
    return true;
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_BITSTREAMREADER_H
