// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/BitStreamReader.h"
#include "ExceptionMatcher.h"
#include "Octets.h"
#include "TestStreams.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include <bitset>
#include <functional>
#include <memory>
#include <random>
#include <sstream>
#include <vector>

namespace Vesk::FastInfoset
{

namespace
{

constexpr unsigned long BLOCK_BITS = 1024 * 8;

const char STREAM_FAILED[] = "error reading stream while parsing Fast Infoset document";
const char STRING_CUT_OFF[] = "Unexpected end of stream while parsing octet string";

std::string randomOctets(std::size_t count)
{
    std::mt19937 random(42);
    std::string octets(count, '\0');
    for (char& octet : octets)
        octet = static_cast<char>(random());
    return octets;
}

/// What a reader should deliver: the document as a string of bits and a position in it.
class Model
{
public:
    explicit Model(const std::string& octets)
    {
        for (const char octet : octets)
            _bits += std::bitset<8>(static_cast<unsigned char>(octet)).to_string();
    }

    std::size_t rest() const { return _bits.size() - position; }

    unsigned long bits(std::size_t count) const { return std::stoull("0" + _bits.substr(position, count), nullptr, 2); }

    std::string octets(std::size_t count) const
    {
        std::string result;
        appendBits(result, _bits.substr(position, 8 * count));
        return result;
    }

    std::size_t position = 0;

private:
    std::string _bits;
};

/// A document in memory that ends where its memory ends, or in a stream that delivers blocks of some size.
struct Source
{
    Source(const std::string& octets, std::size_t blockSize)
        : memory(octets),
          stream(octets, blockSize),
          isStream(blockSize != 0),
          reader(isStream ? std::make_unique<BitStreamReader>(stream)
                          : std::make_unique<BitStreamReader>(memory.data(), memory.size()))
    {
    }

    ExactBlock memory;
    BlockInputStream stream;
    bool isStream;
    std::unique_ptr<BitStreamReader> reader;
};

const std::size_t MEMORY = 0;
const std::size_t BLOCK_SIZES[] = {MEMORY, 1, 2, 3, 5, 1023, 1024};

/// Reads width bits and compares with the model, which moves on if they are all there.
template <typename T>
void expectRead(BitStreamReader& reader, Model& model, int width)
{
    const bool complete = model.rest() >= static_cast<std::size_t>(width);
    T value = 1;
    EXPECT_EQ(reader.read(value, width), complete);
    EXPECT_EQ(value, complete ? model.bits(static_cast<std::size_t>(width)) : 0);
    if (complete)
        model.position += static_cast<std::size_t>(width);
}

void expectPeek(BitStreamReader& reader, const Model& model, int width)
{
    const bool complete = model.rest() >= static_cast<std::size_t>(width);
    unsigned char value = 1;
    EXPECT_EQ(reader.peek(value, width), complete);
    EXPECT_EQ(value, complete ? model.bits(static_cast<std::size_t>(width)) : 0);
}

void expectPosition(const BitStreamReader& reader, const Model& model)
{
    EXPECT_EQ(reader.bitOffset(), static_cast<int>(model.position % 8));
    EXPECT_EQ(reader.octetPosition(), model.position / 8);
}

/// Every width at the model's position, each from a reader of its own.
void expectAllWidths(const std::string& octets, std::size_t blockSize, std::size_t position)
{
    for (int width = 1; width <= 64; ++width)
    {
        SCOPED_TRACE(testing::Message() << width << " bits at " << position << ", blocks of " << blockSize);
        const auto from = [&](auto read)
        {
            Source source(octets, blockSize);
            Model model(octets);
            source.reader->skip(position);
            model.position = position;
            read(*source.reader, model);
            expectPosition(*source.reader, model);
        };
        if (width == 1)
        {
            from(
                [](BitStreamReader& reader, Model& model)
                {
                    bool bit = true;
                    EXPECT_EQ(reader.read(bit), model.rest() > 0);
                    EXPECT_EQ(bit, model.rest() > 0 && model.bits(1) == 1);
                    model.position += model.rest() > 0 ? 1 : 0;
                });
        }
        if (width <= 8)
            from([=](BitStreamReader& reader, Model& model) { expectPeek(reader, model, width); });
        if (width <= 16)
            from([=](BitStreamReader& reader, Model& model) { expectRead<unsigned short>(reader, model, width); });
        if (width <= 32)
            from([=](BitStreamReader& reader, Model& model) { expectRead<unsigned int>(reader, model, width); });
        from([=](BitStreamReader& reader, Model& model) { expectRead<unsigned long>(reader, model, width); });
    }
}

} // namespace

TEST(BitStreamReaderTest, DeliversEveryWidthAtEveryOffset)
{
    for (const std::size_t blockSize : BLOCK_SIZES)
    {
        for (std::size_t offset = 0; offset < 8; ++offset)
            expectAllWidths(randomOctets(9), blockSize, offset);
    }
}

TEST(BitStreamReaderTest, TellsTheEndOfInputFromEveryPosition)
{
    // Ten octets, so that from the first positions nothing and from the last ones nearly everything is missing.
    for (const std::size_t blockSize : BLOCK_SIZES)
    {
        for (std::size_t position = 0; position <= 80; ++position)
            expectAllWidths(randomOctets(10), blockSize, position);
    }
}

TEST(BitStreamReaderTest, RefillKeepsUnreadBits)
{
    const std::string octets = randomOctets(1024 + 10);
    for (std::size_t back = 0; back <= 64; ++back)
    {
        Model model(octets);
        for (int width = 1; width <= 64; ++width)
        {
            SCOPED_TRACE(testing::Message() << width << " bits, " << back << " before the refill");
            std::istringstream stream(octets);
            BitStreamReader reader(stream);
            reader.skip(BLOCK_BITS - back);
            model.position = BLOCK_BITS - back;
            expectPeek(reader, model, (width + 7) / 8);
            expectRead<unsigned long>(reader, model, width);
            expectPosition(reader, model);
        }
    }
}

TEST(BitStreamReaderTest, AnySequenceOfReadsFollowsTheDocument)
{
    const std::string octets = randomOctets(50000);
    for (const std::size_t blockSize : BLOCK_SIZES)
    {
        SCOPED_TRACE(testing::Message() << "blocks of " << blockSize);
        std::mt19937 random(7);
        Source source(octets, blockSize);
        BitStreamReader& reader = *source.reader;
        Model model(octets);
        std::string text;
        // Ends where the longest read would miss something.
        while (model.rest() > 8 * 64 && !testing::Test::HasFailure())
        {
            const int choice = static_cast<int>(random() % 10);
            const std::size_t amount = random() % 64;
            const int width = static_cast<int>(amount) + 1;
            switch (choice)
            {
            case 0:
                expectPeek(reader, model, width % 8 + 1);
                break;
            case 1:
                expectRead<unsigned short>(reader, model, width % 16 + 1);
                break;
            case 2:
                expectRead<unsigned int>(reader, model, width % 32 + 1);
                break;
            case 3:
                expectRead<unsigned long>(reader, model, width);
                break;
            case 4:
                reader.skip(amount);
                model.position += amount;
                break;
            case 5:
                ASSERT_TRUE(reader.read(text, amount));
                EXPECT_EQ(text, model.octets(amount));
                model.position += 8 * amount;
                break;
            case 6:
                text.assign(amount, 'x');
                ASSERT_EQ(reader.readOctets(&text[0], amount), amount);
                EXPECT_EQ(text, model.octets(amount));
                model.position += 8 * amount;
                break;
            default:
                if (model.position % 8 == 0)
                {
                    unsigned int octet = 0;
                    ASSERT_TRUE(reader.readOctet(octet));
                    EXPECT_EQ(octet, model.bits(8));
                    reader.unread(static_cast<unsigned int>(amount % 9));
                    model.position += 8 - amount % 9;
                }
                else if (choice == 7)
                {
                    reader.align();
                    model.position += 8 - model.position % 8;
                }
                else
                {
                    EXPECT_EQ(reader.readRestOfOctet(), model.bits(8 - model.position % 8));
                    model.position += 8 - model.position % 8;
                }
            }
            expectPosition(reader, model);
        }
    }
}

TEST(BitStreamReaderTest, OctetStringsReachAcrossRefills)
{
    const std::string octets = randomOctets(5000);
    for (const std::size_t blockSize : BLOCK_SIZES)
    {
        for (const std::size_t count : {0u, 1u, 3u, 1023u, 1024u, 1025u, 3000u, 4999u})
        {
            for (std::size_t offset = 0; offset < 8; ++offset)
            {
                SCOPED_TRACE(testing::Message() << count << " octets at bit " << offset << ", blocks of " << blockSize);
                Source source(octets, blockSize);
                Model model(octets);
                source.reader->skip(offset);
                model.position = offset;
                std::string text("before");
                EXPECT_TRUE(source.reader->read(text, count));
                EXPECT_EQ(text, model.octets(count));
                model.position += 8 * count;
                expectPosition(*source.reader, model);
            }
        }
    }
}

TEST(BitStreamReaderTest, OctetStringBeyondTheEnd)
{
    const std::string octets = randomOctets(1500);
    for (const std::size_t blockSize : BLOCK_SIZES)
    {
        for (std::size_t offset = 0; offset < 8; ++offset)
        {
            for (const unsigned long count : {1500ul + (offset == 0 ? 1 : 0), 1501ul, 1ul << 32, ~0ul})
            {
                SCOPED_TRACE(testing::Message() << count << " octets at bit " << offset << ", blocks of " << blockSize);
                Source source(octets, blockSize);
                Model model(octets);
                source.reader->skip(offset);
                model.position = offset;
                std::string text("before");
                if (source.isStream && offset == 0)
                {
                    EXPECT_VESK_THROW(source.reader->read(text, count), FISParseException, STRING_CUT_OFF);
                }
                else
                {
                    EXPECT_FALSE(source.reader->read(text, count));
                    EXPECT_EQ(text, source.isStream ? model.octets(1499) : "");
                }
                EXPECT_LE(text.capacity(), 2u * 64 * 1024) << "memory is taken for octets that are there";
            }
        }
    }
}

TEST(BitStreamReaderTest, ReadOctetsTellsHowManyThereAre)
{
    const std::string octets = randomOctets(1500);
    for (const std::size_t blockSize : BLOCK_SIZES)
    {
        for (std::size_t offset = 0; offset < 8; ++offset)
        {
            SCOPED_TRACE(testing::Message() << "bit " << offset << ", blocks of " << blockSize);
            Source source(octets, blockSize);
            Model model(octets);
            source.reader->skip(offset);
            model.position = offset;
            const std::size_t there = offset == 0 ? 1500 : 1499;
            std::string text(2000, 'x');
            EXPECT_EQ(source.reader->readOctets(&text[0], text.size()), there);
            EXPECT_EQ(text.substr(0, there), model.octets(there));
            EXPECT_EQ(text.substr(there), std::string(text.size() - there, 'x'));
            EXPECT_EQ(source.reader->readOctets(&text[0], 1), 0u);
        }
    }
}

TEST(BitStreamReaderTest, SkipStopsAtTheEnd)
{
    const std::string octets = randomOctets(3000);
    for (const std::size_t blockSize : BLOCK_SIZES)
    {
        for (const unsigned long bits : {0ul, 7ul, BLOCK_BITS - 1, BLOCK_BITS, BLOCK_BITS + 1, 2 * BLOCK_BITS + 3,
                                         24000ul, 24001ul, 1ul << 40, ~0ul})
        {
            SCOPED_TRACE(testing::Message() << bits << " bits, blocks of " << blockSize);
            Source source(octets, blockSize);
            Model model(octets);
            source.reader->skip(bits);
            model.position = std::min(bits, 24000ul);
            expectPosition(*source.reader, model);
            expectPeek(*source.reader, model, 5);
            source.reader->align();
            model.position = (model.position + 7) / 8 * 8;
            expectRead<unsigned short>(*source.reader, model, 16);
        }
    }
}

TEST(BitStreamReaderTest, NothingIsTakenBeforeTheFirstRequest)
{
    std::istringstream stream("ab");
    BitStreamReader reader(stream);
    EXPECT_EQ(stream.tellg(), 0);
    std::string text("before");
    EXPECT_TRUE(reader.read(text, 0));
    EXPECT_EQ(text, "");
    EXPECT_EQ(stream.tellg(), 0);
}

TEST(BitStreamReaderTest, EmptyInputHasNoBits)
{
    BitStreamReader memory(nullptr, 0);
    std::istringstream stream;
    BitStreamReader fromStream(stream);
    for (BitStreamReader* reader : {&memory, &fromStream})
    {
        Model model("");
        unsigned int octet = 0;
        EXPECT_FALSE(reader->readOctet(octet));
        expectPeek(*reader, model, 1);
        expectRead<unsigned long>(*reader, model, 64);
        reader->skip(100);
        reader->align();
        expectPosition(*reader, model);
    }
}

TEST(BitStreamReaderTest, FailingStreamsThrow)
{
    using Operation = std::function<void(BitStreamReader&)>;
    bool bit = false;
    unsigned char octet = 0;
    unsigned int bits = 0;
    unsigned long number = 0;
    std::string text;
    const std::pair<const char*, Operation> operations[] = {{"bit",
                                                             [&](BitStreamReader& reader)
                                                             {
                                                                 reader.read(bit);
                                                             }},
                                                            {"peek",
                                                             [&](BitStreamReader& reader)
                                                             {
                                                                 reader.peek(octet, 8);
                                                             }},
                                                            {"number",
                                                             [&](BitStreamReader& reader)
                                                             {
                                                                 reader.read(number, 64);
                                                             }},
                                                            {"octet",
                                                             [&](BitStreamReader& reader)
                                                             {
                                                                 reader.readOctet(bits);
                                                             }},
                                                            {"string",
                                                             [&](BitStreamReader& reader)
                                                             {
                                                                 reader.read(text, 1);
                                                             }},
                                                            {"octets",
                                                             [&](BitStreamReader& reader)
                                                             {
                                                                 reader.readOctets(&text[0], 1);
                                                             }},
                                                            {"skip", [&](BitStreamReader& reader)
                                                             {
                                                                 reader.skip(9);
                                                             }}};
    for (const auto& [name, operation] : operations)
    {
        SCOPED_TRACE(name);
        text.assign(1, 'x');
        std::istringstream broken("document");
        broken.setstate(std::ios::badbit);
        BitStreamReader fromBroken(broken);
        EXPECT_VESK_THROW(operation(fromBroken), IOException, STREAM_FAILED);

        // The stream turns what its buffer throws into the same state.
        BlockInputStream throwing("", 1, BlockInputStream::THROWS);
        BitStreamReader fromThrowing(throwing);
        EXPECT_VESK_THROW(operation(fromThrowing), IOException, STREAM_FAILED);

        BlockInputStream rethrowing("", 1, BlockInputStream::THROWS);
        rethrowing.exceptions(std::ios::badbit);
        BitStreamReader fromRethrowing(rethrowing);
        EXPECT_THROW(operation(fromRethrowing), std::runtime_error);
    }
}

TEST(BitStreamReaderTest, StreamThatFailsBehindItsFirstBlock)
{
    BlockInputStream stream(randomOctets(1024), 1024, BlockInputStream::THROWS);
    BitStreamReader reader(stream);
    reader.skip(BLOCK_BITS);
    bool bit = false;
    EXPECT_VESK_THROW(reader.read(bit), IOException, STREAM_FAILED);
    EXPECT_VESK_THROW(reader.read(bit), IOException, STREAM_FAILED);
}

TEST(BitStreamReaderTest, RefillStepsKeepWhatTheyAreToldTo)
{
    const std::string octets = randomOctets(3000);
    std::istringstream stream(octets);
    BitStreamReader reader(stream);
    Model model(octets);
    reader.refillBuffer();
    reader.skip(BLOCK_BITS - 11);
    model.position = BLOCK_BITS - 11;
    EXPECT_EQ(reader.refillBufferIfLessThanImpl(11), 1022) << "two octets stay";
    expectPosition(reader, model);
    expectRead<unsigned int>(reader, model, 32);

    reader.refillBuffer(); // drops the second block
    model.position = 8 * 2046;
    expectPosition(reader, model);
    expectRead<unsigned int>(reader, model, 32);

    reader.skip((1ul << 20) + 3);
    for (const int remaining : {0, -1, -1000})
        EXPECT_EQ(reader.refillBufferIfLessThanImpl(remaining), 0);
    model.position = 8 * 3000;
    expectPosition(reader, model);
    expectRead<unsigned int>(reader, model, 1);

    std::istringstream twoOctets("ab");
    BitStreamReader unaligned(twoOctets);
    Model ab("ab");
    unaligned.skip(3);
    EXPECT_EQ(unaligned.refillBufferIfLessThanImpl(-1), 0) << "drops all there was";
    ab.position = 16;
    expectPosition(unaligned, ab);
    expectRead<unsigned int>(unaligned, ab, 1);

    char octet = 'x';
    EXPECT_EQ(reader.readFromStream(&octet, 1), 0);
    BitStreamReader memory("a", 1);
    memory.refillBuffer();
    EXPECT_EQ(memory.refillBufferIfLessThanImpl(8), 0);
    EXPECT_EQ(memory.readFromStream(&octet, 1), 0);
    Model one("a");
    expectRead<unsigned short>(memory, one, 8);
}

} // namespace Vesk::FastInfoset
