// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_BITSTREAMWRITER_H
#define VESK_FASTINFOSET_BITSTREAMWRITER_H

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

    /// Fills the current octet with copies of the bit, then flushes the stream.
    void complete(bool bit);

    /// How many bits of the current octet have been written: 0 to 7.
    int bitOffset() const;

    /// Gathers finished octets and flushes from here on, until release(): an item of many small fields then reaches
    /// the stream in one call. Octets that are still held when the writer is destroyed are written then.
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
    void append(unsigned long value, int numOfBits);
    void checkUsable() const;
    void flushStream();
    void handOver();

    std::ostream& _stream;
    bool _paddingBit;
    bool _holding = false;
    bool _flushDue = false;
    bool _failed = false;
    int _bitCount = 0;         // pending bits of the unfinished octet, 0 to 7
    unsigned int _pending = 0; // those bits, right-aligned
    std::string _finished;     // octets not yet handed to the stream
};

inline int BitStreamWriter::bitOffset() const
{
    return _bitCount;
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_BITSTREAMWRITER_H
