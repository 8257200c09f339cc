// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/BitStreamReader.h"
#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include <algorithm>
#include <cstring>

namespace Vesk::FastInfoset
{

namespace
{

// The most memory that is taken on the word of a length alone.
constexpr unsigned long RESERVE_LIMIT = 64 * 1024;

} // namespace

BitStreamReader::BitStreamReader(std::istream& stream)
    : _next(nullptr),
      _end(nullptr),
      _buffer(nullptr),
      _stream(&stream),
      _streamBuffer(new char[BUFFER_OCTETS])
{
    _buffer = _next = _end = reinterpret_cast<const unsigned char*>(_streamBuffer.get());
}

BitStreamReader::BitStreamReader(const char* data, std::size_t octetCount)
    : _next(reinterpret_cast<const unsigned char*>(data)),
      _end(_next + octetCount),
      _buffer(_next),
      _stream(nullptr)
{
}

BitStreamReader::~BitStreamReader() = default;

bool BitStreamReader::read(unsigned short& value, int numOfBits)
{
    return readBits(value, numOfBits);
}

bool BitStreamReader::read(unsigned int& value, int numOfBits)
{
    return readBits(value, numOfBits);
}

bool BitStreamReader::read(unsigned long& value, int numOfBits)
{
    return readBits(value, numOfBits);
}

template <typename T>
bool BitStreamReader::readBits(T& value, int numOfBits)
{
    value = 0;
    if (!require(numOfBits))
        return false;
    if (numOfBits > 32)
    {
        const unsigned long high = takeBits(numOfBits - 32);
        value = static_cast<T>((high << 32) | takeBits(32));
    }
    else
    {
        value = static_cast<T>(takeBits(numOfBits));
    }
    return true;
}

// Requires: numOfBits of at most 32, all of them in the buffer.
unsigned long BitStreamReader::takeBits(int numOfBits)
{
    // At most 7 bits before the wanted ones and 32 wanted ones: five octets, which a long holds.
    const unsigned char* octet = _next;
    unsigned long bits = *octet & (0xFFu >> _bitOffset);
    int count = 8 - bitOffset();
    for (; count < numOfBits; count += 8)
        bits = (bits << 8) | *++octet;
    advance(static_cast<unsigned long>(numOfBits));
    return bits >> (count - numOfBits);
}

// Octets that the buffer does not hold as they are: between octet boundaries, or beyond its end.
bool BitStreamReader::readPiecewise(std::string& octets, unsigned long octetCount)
{
    octets.clear();
    if (!_stream && octetCount > unreadBits() / 8)
        return false;
    if (_bitOffset != 0)
    {
        unsigned char octet = 0;
        for (; octetCount > 0 && peek(octet, 8); --octetCount)
        {
            ++_next;
            octets += static_cast<char>(octet);
        }
        return octetCount == 0;
    }

    octets.reserve(std::min(octetCount, RESERVE_LIMIT));
    while (octetCount > 0)
    {
        const char* block = nullptr;
        const unsigned long blockOctets = nextBlock(block, octetCount);
        if (blockOctets == 0)
            throw FISParseException("Unexpected end of stream while parsing octet string");
        octets.append(block, blockOctets);
        octetCount -= blockOctets;
    }
    return true;
}

unsigned long BitStreamReader::readOctets(char* target, unsigned long octetCount)
{
    unsigned long copied = 0;
    if (_bitOffset != 0)
    {
        unsigned char octet = 0;
        for (; copied < octetCount && peek(octet, 8); ++copied)
        {
            ++_next;
            target[copied] = static_cast<char>(octet);
        }
        return copied;
    }
    while (copied < octetCount)
    {
        const char* block = nullptr;
        const unsigned long blockOctets = nextBlock(block, octetCount - copied);
        if (blockOctets == 0)
            break;
        std::memcpy(target + copied, block, blockOctets);
        copied += blockOctets;
    }
    return copied;
}

// Moves past as many of the next octetCount octets as lie in the buffer, refilled if there are none, and tells where
// they are. Returns 0 at the end of input. Requires: an octet boundary.
unsigned long BitStreamReader::nextBlock(const char*& block, unsigned long octetCount)
{
    if (_next == _end && !refill(8))
        return 0;
    const unsigned long blockOctets = std::min(octetCount, unreadOctets());
    block = reinterpret_cast<const char*>(_next);
    _next += blockOctets;
    return blockOctets;
}

// Called when fewer than numOfBits bits (at most 64) are left; tells whether there are enough now.
bool BitStreamReader::refill(int numOfBits)
{
    if (!_stream)
        return false;
    if (unreadBits() == 0)
        refillBuffer();
    else
        refillBufferIfLessThanImpl(static_cast<int>(unreadBits()));
    return unreadBits() >= static_cast<unsigned long>(numOfBits);
}

void BitStreamReader::refillBuffer()
{
    if (!_stream)
        return;
    _next = _end;
    _bitOffset = 0;
    refillBufferIfLessThanImpl(0);
}

int BitStreamReader::refillBufferIfLessThanImpl(int remainingBits)
{
    if (!_stream)
        return 0;
    const unsigned long size = static_cast<unsigned long>(_end - _buffer);
    const unsigned long remaining = remainingBits > 0 ? static_cast<unsigned long>(remainingBits) : 0;
    const unsigned long keep = std::min((remaining + 7) / 8, size);
    const unsigned long leaving = size - keep;
    std::memmove(_streamBuffer.get(), _streamBuffer.get() + leaving, keep);
    _octetsBeforeBuffer += leaving;
    _next = _buffer;
    _end = _buffer + keep;

    const long octetsRead = readFromStream(_streamBuffer.get() + keep, BUFFER_OCTETS - static_cast<long>(keep));
    _end += octetsRead;
    if (_next == _end) // when nothing was kept and nothing came
        _bitOffset = 0;
    return static_cast<int>(octetsRead);
}

long BitStreamReader::readFromStream(char* target, long octetCount)
{
    if (!_stream)
        return 0;
    _stream->read(target, octetCount);
    const long octetsRead = static_cast<long>(_stream->gcount());
    if (octetsRead == 0 && !_stream->good() && !_stream->eof())
        throw IOException("error reading stream while parsing Fast Infoset document");
    return octetsRead;
}

} // namespace Vesk::FastInfoset
