// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_BITSTREAMWRITER_H
#define VESK_FASTINFOSET_BITSTREAMWRITER_H

#include "Vesk/Bugcheck.h"
#include "Vesk/FastInfoset/FastInfoset.h"
#include <cstddef>
#include <ostream>
#include <string>

namespace Vesk::FastInfoset
{

/// Appends bits to an output stream, most significant bit of each octet first.
///
/// The stream is borrowed: it must outlive the writer and is never closed. Finished octets go to it at the end of each
/// operation, or all together when hold() asked for that; at most seven bits stay behind. Once the stream has failed,
/// every further operation that would reach it throws the same IOException and keeps nothing.
/// One writer serves one thread.
class VESK_FASTINFOSET_API BitStreamWriter
{
public:
    /// paddingBit fills the last octet when the writer is destroyed.
    BitStreamWriter(std::ostream& stream, bool paddingBit);

    BitStreamWriter(const BitStreamWriter&) = delete;
    BitStreamWriter& operator=(const BitStreamWriter&) = delete;

    /// Completes the last octet and flushes the stream. A failure there is reported, not thrown.
    virtual ~BitStreamWriter();

    /// Appends one bit.
    void write(bool bit);

    /// Appends numOfBits copies of the bit; none when numOfBits is 0 or negative.
    void writeBits(int numOfBits, bool bit);

    /// Appends the numOfBits low-order bits of the value, most significant first. A numOfBits below 1 or above the
    /// width of the type (8, 16, 32, 64) is a failed check (AssertionViolationException).
    void write(char value, int numOfBits);
    void write(short value, int numOfBits);
    void write(int value, int numOfBits);
    void write(long value, int numOfBits);

    /// Appends octets, from any bit position. Empty input and null pointers append nothing.
    void write(const std::string& octets);
    void write(const char* zeroTerminated);
    void write(const char* octets, std::size_t octetCount);

    /// Appends an octet, the low-order eight bits of the value. Requires: an octet boundary.
    void writeOctet(unsigned int octet);

    /// Fills the current octet with copies of the bit, then flushes the stream.
    void complete(bool bit);

    /// How many bits of the current octet have been written: 0 to 7.
    int bitOffset() const;

    /// Gathers finished octets (about 1 KiB at most) and flushes from here on, until release(): an item of many small
    /// fields then reaches the stream in one call. What is still held when the writer is destroyed is written then.
    void hold();

    /// Hands everything gathered since hold() to the stream, and flushes it if complete() was called meanwhile.
    void release();

    /// \name Steps of the other operations
    /// @{

    /// Hands all finished octets to the stream.
    void writeFullBytesImpl();

    /// Hands octets to the stream and checks its state.
    void writeToStream(const char* octets, long octetCount);

    /// @}

private:
    // What is held at most. Longer runs of octets go straight to the stream.
    static constexpr std::size_t HELD_OCTETS = 1024;

    void append(unsigned int value, int numOfBits);
    void handOver();
    void spill();
    void checkWidth(int numOfBits, int maximum, const char* condition, int line) const;
    [[noreturn]] void throwFailed() const;
    bool isPlainStream() const;
    template <class Operation>
    void operateBuffer(Operation operation);
    void giveToStream(const char* octets, std::streamsize octetCount);
    void flushStream();

    std::ostream& _stream;
    std::ios& _streamState; // the part of the stream that takes finding, being a virtual base
    bool _paddingBit;
    bool _holding = false;
    bool _flushDue = false;
    bool _failed = false;
    int _bitCount = 0;         // pending bits of the unfinished octet, 0 to 7
    unsigned int _pending = 0; // those bits, right-aligned
    std::size_t _finishedCount = 0;
    char _finished[HELD_OCTETS + 8]; // octets not yet handed over; one operation finishes eight behind the limit
};

inline int BitStreamWriter::bitOffset() const
{
    return _bitCount;
}

inline void BitStreamWriter::write(bool bit)
{
    append(bit ? 1 : 0, 1);
    handOver();
}

inline void BitStreamWriter::writeOctet(unsigned int octet)
{
    if (_failed)
        throwFailed();
    _finished[_finishedCount++] = static_cast<char>(octet);
    handOver();
}

inline void BitStreamWriter::hold()
{
    _holding = true;
}

inline void BitStreamWriter::write(int value, int numOfBits)
{
    checkWidth(numOfBits, 32, "checkInputParams(Utility::SIZEOFINT32INBIT, numOfBits)", 195);
    append(static_cast<unsigned int>(value), numOfBits);
    handOver();
}

// Appends the low numOfBits bits of the value (1 to 32).
inline void BitStreamWriter::append(unsigned int value, int numOfBits)
{
    if (_failed)
        throwFailed();
    // At most 7 pending bits and 32 new ones.
    int total = _bitCount + numOfBits;
    const unsigned long mask = (1ul << numOfBits) - 1;
    const unsigned long bits = (static_cast<unsigned long>(_pending) << numOfBits) | (value & mask);
    while (total >= 8)
    {
        total -= 8;
        _finished[_finishedCount++] = static_cast<char>(bits >> total);
    }
    _bitCount = total;
    _pending = static_cast<unsigned int>(bits & ((1ul << total) - 1));
}

// Ends every operation that appends.
inline void BitStreamWriter::handOver()
{
    if (!_holding || _finishedCount >= HELD_OCTETS)
        writeFullBytesImpl();
}

inline void BitStreamWriter::checkWidth(int numOfBits, int maximum, const char* condition, int line) const
{
    if (numOfBits < 1 || numOfBits > maximum)
        Bugcheck::assertion(condition, "src/BitStreamWriter", line);
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_BITSTREAMWRITER_H
