// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_OCTETBLOCKS_H
#define VESK_FASTINFOSET_OCTETBLOCKS_H

#include "Vesk/FastInfoset/BitStreamReader.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include <algorithm>
#include <cstddef>
#include <string>

namespace Vesk::FastInfoset
{

/// Octets of typed values are moved in blocks of this size: a whole number of values of every type, and little enough
/// to be taken before it is known whether a document holds what its length claims.
constexpr std::size_t OCTET_BLOCK_SIZE = 8192;

[[noreturn]] inline void throwEndOfValues(const char* valueName)
{
    throw FISParseException(std::string("Unexpected end of stream while decoding ") + valueName + " values");
}

/// Reads octetCount octets and calls take(octets, count) for one block after the other. All blocks but the last have
/// OCTET_BLOCK_SIZE octets. Input that ends too early throws FISParseException.
template <class Take>
void readOctetBlocks(BitStreamReader& reader, unsigned long octetCount, const char* valueName, Take take)
{
    char block[OCTET_BLOCK_SIZE];
    while (octetCount > 0)
    {
        const std::size_t blockOctets = std::min<std::size_t>(octetCount, OCTET_BLOCK_SIZE);
        if (reader.readOctets(block, blockOctets) < blockOctets)
            throwEndOfValues(valueName);
        take(static_cast<const char*>(block), blockOctets);
        octetCount -= blockOctets;
    }
}

/// Gathers octets and writes them in blocks.
class OctetBlockWriter
{
public:
    explicit OctetBlockWriter(BitStreamWriter& writer)
        : _writer(writer)
    {
    }

    /// The place for the next octetCount octets, which the caller fills before the next call.
    char* next(std::size_t octetCount)
    {
        if (OCTET_BLOCK_SIZE - _size < octetCount)
            flush();
        char* octets = _block + _size;
        _size += octetCount;
        return octets;
    }

    /// Writes what is left. To be called at the end.
    void flush()
    {
        _writer.write(_block, _size);
        _size = 0;
    }

private:
    BitStreamWriter& _writer;
    std::size_t _size = 0;
    char _block[OCTET_BLOCK_SIZE];
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_OCTETBLOCKS_H
