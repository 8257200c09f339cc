// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/BoolEncoding.h"
#include "OctetBlocks.h"
#include "TypedEncodingImpl.h"
#include "Vesk/FastInfoset/Decoder.h"
#include "Vesk/FastInfoset/Encoder.h"

// Booleans b1 to bn, with u unused bits (0 to 7) at the end of the last octet:
//
//   uuuubbbb bbbbbbbb ... bbb00000      L = (4 + n + u) / 8 octets

namespace Vesk::FastInfoset
{

template class TypedEncoding<BoolEncoding, bool>;

namespace
{

constexpr std::size_t COUNT_BITS = 4;

} // namespace

const std::string BoolEncoding::VAL_TRUE("true");
const std::string BoolEncoding::VAL_FALSE("false");

BoolEncoding::BoolEncoding(const char* text)
    : TypedEncoding(std::string(text))
{
}

int BoolEncoding::type() const
{
    return TYPE;
}

bool BoolEncoding::parseValue(std::string_view token, bool& value)
{
    value = token == VAL_TRUE;
    return value || token == VAL_FALSE;
}

void BoolEncoding::appendValue(std::string& text, bool value)
{
    text += value ? VAL_TRUE : VAL_FALSE;
}

// Leaves out the count of unused bits, so it may be one less than what is written. It ranks the algorithm, no more.
std::size_t BoolEncoding::octetCount(std::size_t valueCount)
{
    return (valueCount + 7) / 8;
}

void BoolEncoding::readValues(BitStreamReader& reader, std::vector<bool>& values)
{
    static constexpr const char* VALUE_NAME = "boolean";

    unsigned long octetCount = 0;
    Decoder::nonEmptyStringLength(reader, octetCount);
    // Four bits can claim up to 15 unused ones. More than there are would leave a negative number of values: no input
    // is long enough for what that wraps to.
    unsigned char unusedBits = 0;
    if (!reader.peek(unusedBits, COUNT_BITS) || unusedBits > 8 * octetCount - COUNT_BITS)
        throwEndOfValues(VALUE_NAME);

    // Bits of values, counted from the start of the block. All octets are read, also those that are wholly unused.
    unsigned long begin = COUNT_BITS;
    unsigned long end = 8 * octetCount - unusedBits;
    readOctetBlocks(reader, octetCount, VALUE_NAME,
                    [&](const char* octets, std::size_t blockOctets)
                    {
                        const unsigned long blockEnd = std::min<unsigned long>(end, 8 * blockOctets);
                        for (unsigned long bit = begin; bit < blockEnd; ++bit)
                            values.push_back((octets[bit / 8] & (0x80 >> (bit % 8))) != 0);
                        begin = 0;
                        end -= blockEnd;
                    });
}

void BoolEncoding::writeValues(BitStreamWriter& writer, const std::vector<bool>& values)
{
    const std::size_t octetCount = (COUNT_BITS + values.size() + 7) / 8;
    Encoder::nonEmptyStringLength(writer, octetCount);

    OctetBlockWriter blocks(writer);
    std::size_t octet = 8 * octetCount - COUNT_BITS - values.size();
    std::size_t bitCount = COUNT_BITS;
    for (const bool value : values)
    {
        octet = (octet << 1) | (value ? 1 : 0);
        if (++bitCount % 8 == 0)
        {
            *blocks.next(1) = static_cast<char>(octet);
            octet = 0;
        }
    }
    if (bitCount % 8 != 0)
        *blocks.next(1) = static_cast<char>(octet << (8 - bitCount % 8));
    blocks.flush();
    // The stream is on an octet boundary already; it is flushed here as after every completed structure.
    writer.complete(false);
}

} // namespace Vesk::FastInfoset
