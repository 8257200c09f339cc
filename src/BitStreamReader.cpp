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
    : _stream(&stream),
      _size(0),
      _position(0),
      _buffer(nullptr),
      _streamBuffer(new char[BUFFER_OCTETS]),
      _octetsBeforeBuffer(0)
{
    _buffer = reinterpret_cast<const unsigned char*>(_streamBuffer.get());
}

BitStreamReader::BitStreamReader(const char* data, std::size_t octetCount)
    : _stream(nullptr),
      _size(octetCount * 8),
      _position(0),
      _buffer(reinterpret_cast<const unsigned char*>(data)),
      _octetsBeforeBuffer(0)
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
    const unsigned char* octet = _buffer + (_position >> 3);
    unsigned long bits = *octet & (0xFFu >> (_position & 7));
    int count = 8 - bitOffset();
    for (; count < numOfBits; count += 8)
        bits = (bits << 8) | *++octet;
    _position += static_cast<unsigned long>(numOfBits);
    return bits >> (count - numOfBits);
}

bool BitStreamReader::read(std::string& octets, unsigned long octetCount)
{
    if (bitOffset() == 0 && octetCount <= unreadBits() / 8)
    {
        octets.assign(reinterpret_cast<const char*>(_buffer + (_position >> 3)), octetCount);
        _position += octetCount * 8;
        return true;
    }

    octets.clear();
    if (!_stream && octetCount > unreadBits() / 8)
        return false;
    if (bitOffset() != 0)
    {
        unsigned char octet = 0;
        for (; octetCount > 0 && peek(octet, 8); --octetCount)
        {
            _position += 8;
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
    if (bitOffset() != 0)
    {
        unsigned char octet = 0;
        for (; copied < octetCount && peek(octet, 8); ++copied)
        {
            _position += 8;
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
    if (unreadBits() == 0 && !refill(8))
        return 0;
    const unsigned long blockOctets = std::min(octetCount, unreadBits() / 8);
    block = reinterpret_cast<const char*>(_buffer + (_position >> 3));
    _position += blockOctets * 8;
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
    _position = _size;
    refillBufferIfLessThanImpl(0);
}

int BitStreamReader::refillBufferIfLessThanImpl(int remainingBits)
{
    if (!_stream)
        return 0;
    const unsigned long remaining = remainingBits > 0 ? static_cast<unsigned long>(remainingBits) : 0;
    const unsigned long keep = (std::min(remaining, _size) + 7) / 8;
    const unsigned long leaving = _size / 8 - keep;
    std::memmove(_streamBuffer.get(), _streamBuffer.get() + leaving, keep);
    _octetsBeforeBuffer += leaving;
    _position &= 7;
    _size = keep * 8;

    const long octetsRead = readFromStream(_streamBuffer.get() + keep, BUFFER_OCTETS - static_cast<long>(keep));
    _size += static_cast<unsigned long>(octetsRead) * 8;
    _position = std::min(_position, _size); // when nothing was kept and nothing came
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
