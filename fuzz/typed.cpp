// SPDX-License-Identifier: MIT
//
// The first octet selects an encoding algorithm, the others are one encoded value. What decodes has to come back from
// its own octets, and from its text where the algorithm takes that text.
#include "Fuzz.h"
#include "TestStreams.h"
#include "Vesk/FastInfoset/BitStreamReader.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/DecodingAlgorithm.h"
#include "Vesk/FastInfoset/EncodingAlgorithm.h"
#include "Vesk/FastInfoset/NullEncoding.h"
#include <sstream>

using namespace Vesk;
using namespace Vesk::FastInfoset;

namespace
{

constexpr unsigned int ALGORITHMS = 12; // plain text, ten algorithms and an index that is none

// Where values start in a document.
constexpr unsigned int ATTRIBUTE_VALUE_OFFSET = 4;
constexpr unsigned int CHUNK_OFFSET = 6;

struct Algorithm
{
    Encoding::DecodeMethod decode;
    Encoding::CheckMethod check;
    Encoding::EncodeMethod encode;
};

Algorithm algorithmOf(unsigned int index)
{
    if (index == 0)
        return {NullEncoding::decode, NullEncoding::check, NullEncoding::encode};
    return {DecodingAlgorithm().decoding(index), EncodingAlgorithm().check(index), EncodingAlgorithm().encoding(index)};
}

template <typename Write>
std::string written(unsigned int bitOffset, Write write)
{
    std::ostringstream stream;
    BitStreamWriter writer(stream, false);
    writer.writeBits(static_cast<int>(bitOffset), false);
    write(writer);
    Fuzz::require(writer.bitOffset() == 0, "a value does not end on an octet boundary");
    return stream.str();
}

AutoPtr<Encoding> decoded(Encoding::DecodeMethod decode, const std::string& octets, unsigned int bitOffset)
{
    BitStreamReader reader(octets.data(), octets.size());
    reader.skip(bitOffset);
    AutoPtr<Encoding> value = decode(reader);
    Fuzz::require(reader.bitOffset() == 0, "the reader is not on an octet boundary behind a value");
    return value;
}

std::string textOf(const Encoding& value)
{
    std::string text;
    value.text(text);
    return text;
}

std::string octetsOf(const Encoding& value, unsigned int bitOffset)
{
    return written(bitOffset, [&](BitStreamWriter& writer) { value.write(writer); });
}

// Memory, and a stream that delivers octet by octet.
void compareForms(Encoding::DecodeMethod decode, const std::string& octets, unsigned int bitOffset)
{
    std::string fromMemory;
    const std::string memoryRefusal =
        Fuzz::refusalOf([&] { fromMemory = octetsOf(*decoded(decode, octets, bitOffset), bitOffset); });

    std::string fromStream;
    const std::string streamRefusal = Fuzz::refusalOf(
        [&]
        {
            BlockInputStream stream(octets, 1);
            BitStreamReader reader(stream);
            reader.skip(bitOffset);
            fromStream = octetsOf(*decode(reader), bitOffset);
        });
    Fuzz::requireEqual(fromStream, fromMemory, "stream and memory give different values");
    Fuzz::requireEqual(streamRefusal, memoryRefusal, "stream and memory are refused differently");
}

void checkValue(const Algorithm& algorithm, const AutoPtr<Encoding>& value, unsigned int bitOffset)
{
    const std::string text = textOf(*value);
    const std::string octets = octetsOf(*value, bitOffset);
    const AutoPtr<Encoding> again = decoded(algorithm.decode, octets, bitOffset);
    Fuzz::requireEqual(octetsOf(*again, bitOffset), octets, "other octets the second time");
    Fuzz::requireEqual(textOf(*again), text, "another text the second time");

    // Numbers that the text's form leaves out, the octets of NaN, need not come back from it.
    if (algorithm.check(text) > 0)
    {
        const auto encode = [&](BitStreamWriter& writer)
        {
            algorithm.encode(writer, text);
        };
        const std::string fromText = written(bitOffset, encode);
        Fuzz::requireEqual(textOf(*decoded(algorithm.decode, fromText, bitOffset)), text,
                           "the text does not come back");
        if (text.find("NaN") == std::string::npos)
            Fuzz::requireEqual(fromText, octets, "the text does not stand for the values");
    }

    Fuzz::require(value->merge(*again), "values of one kind do not merge");
    const std::string merged = octetsOf(*value, bitOffset);
    Fuzz::requireEqual(octetsOf(*decoded(algorithm.decode, merged, bitOffset), bitOffset), merged,
                       "merged values do not come back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1)
        return 0;
    const Algorithm algorithm = algorithmOf((data[0] & 0x7Fu) % ALGORITHMS);
    const unsigned int bitOffset = (data[0] & 0x80u) != 0 ? CHUNK_OFFSET : ATTRIBUTE_VALUE_OFFSET;
    const std::string octets = Fuzz::octetsOf(data + 1, size - 1);

    compareForms(algorithm.decode, octets, bitOffset);
    AutoPtr<Encoding> value;
    if (Fuzz::refusalOf([&] { value = decoded(algorithm.decode, octets, bitOffset); }).empty())
        checkValue(algorithm, value, bitOffset);

    // The octets as text.
    if (algorithm.check(octets) > 0)
    {
        Fuzz::refusalOf([&]
                        { written(bitOffset, [&](BitStreamWriter& writer) { algorithm.encode(writer, octets); }); });
    }
    return 0;
}
