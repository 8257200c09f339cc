// SPDX-License-Identifier: MIT
#include "EventLog.h"
#include "ExceptionMatcher.h"
#include "SampleDocuments.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/URIStreamOpener.h"
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>
#include <random>
#include <sstream>

// Documents made to crash, hang or exhaust whoever reads them.

namespace
{

std::atomic<std::size_t> largestAllocation{0};

void* allocate(std::size_t size)
{
    if (size > largestAllocation)
        largestAllocation = size;
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

// In place of those of the library, to learn how much is asked for at once.
void* operator new(std::size_t size)
{
    return allocate(size);
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace Vesk::FastInfoset
{

namespace
{

const std::string HEADER = "E0 00 00 01 00 ";

/// Only counts elements: the log of a million of them would be the larger problem.
class DepthLog : public EventLog
{
public:
    void startElement(const std::string&, const std::string&, const std::string&,
                      const XML::Attributes& attributes) override
    {
        ++elements;
        attributeCount += attributes.getLength();
        deepest = std::max(deepest, ++depth);
    }
    void endElement(const std::string&, const std::string&, const std::string&) override { --depth; }
    void startPrefixMapping(const std::string&, const std::string&) override { ++mappings; }
    void endPrefixMapping(const std::string&) override { --mappings; }

    long elements = 0;
    long depth = 0;
    long deepest = 0;
    long mappings = 0;
    long attributeCount = 0;
};

std::string repeated(const std::string& octets, std::size_t count)
{
    std::string result;
    for (; count > 0; --count)
        result += octets;
    return result;
}

} // namespace

TEST(HostileInputTest, LengthsFarBeyondTheInput)
{
    const char* const LONG =
        " FF FF FF FD 'abcdefgh'"; // less the length of the shorter forms; a multiple of 16 with 259
    const std::string documents[] = {
        HEADER + "3C [0 1100000]" + LONG,
        HEADER + "3C 00 'a' [10 0 1 00 11]" + LONG,
        HEADER + "3C 00 'a' [10 0 1 01 11]" + LONG,
        HEADER + "3C 00 'a' [10 0 1 10 00] [000000 11]" + LONG,
        HEADER + "7C 00 'a' 78 00 'b' [0 1 00 1100]" + LONG,
        HEADER + "7C 00 'a' 78 00 'b' [0 1 10 0000] [0000 1100]" + LONG,
        HEADER + "E1 00 't' [0 1 00 1100]" + LONG,
        HEADER + "E2 [0 1 00 1100]" + LONG,
        "E0 00 00 01 40 8F FF FF [0 1100000]" + std::string(LONG),
        "E0 00 00 01 20 10 00 [0 1100000]" + std::string(LONG),
        "E0 00 00 01 20 08 00 8F FF FF [0 1100000]" + std::string(LONG),
        "E0 00 00 01 20 04 00 8F FF FF [0 1100000]" + std::string(LONG),
        "E0 00 00 01 20 02 00 8F FF FF 00 'a' [0 1100000]" + std::string(LONG),
        "E0 00 00 01 20 00 08 8F FF FF [00 00 1100]" + std::string(LONG),
        "E0 00 00 01 20 00 02 8F FF FF 00 00 00 01",
        "E0 00 00 01 04 [0 1100000]" + std::string(LONG),
    };
    std::vector<std::string> all;
    for (const std::string& document : documents)
        all.push_back(octetsOf(document));
    for (unsigned int algorithm = 0; algorithm < 10; ++algorithm)
    {
        std::string chunk;
        appendBits(chunk, "10 0 0 11 00");
        chunk += static_cast<char>((algorithm << 2) | 3);
        all.push_back(octetsOf(HEADER) + chunk + octetsOf(LONG));
    }
    for (const std::string& octets : all)
    {
        for (const DocumentVocabulary::VocabularyImpl impl : ALL_TABLES)
        {
            for (const std::size_t blockSize : {0u, 1u})
            {
                FastInfosetParser parser(impl);
                EventLog log;
                log.attachTo(parser);
                largestAllocation = 0;
                const std::string failure = failureOf([&] { parseOctets(parser, octets, blockSize); });
                EXPECT_LE(largestAllocation, 256u * 1024) << hexOf(octets);
                EXPECT_EQ(failure.find("!FISParseException("), 0u) << failure << ": " << hexOf(octets);
            }
        }
    }
}

TEST(HostileInputTest, NestingCostsNoStack)
{
    constexpr std::size_t DEPTH = 1000000;
    const std::string open = octetsOf(HEADER + "3C 00 'a'") + std::string(DEPTH - 1, '\0');
    const std::string closed = open + std::string(DEPTH / 2, '\xFF') + '\xF0';
    for (const DocumentVocabulary::VocabularyImpl impl : ALL_TABLES)
    {
        FastInfosetParser parser(impl);
        DepthLog log;
        parser.setContentHandler(&log);
        parseOctets(parser, closed, 0);
        EXPECT_EQ(log.deepest, static_cast<long>(DEPTH));
        EXPECT_EQ(log.depth, 0);
        EXPECT_EQ(failureOf([&] { parseOctets(parser, open, 0); }),
                  "!FISParseException(Unexpected end of stream while parsing element children)");
        EXPECT_EQ(log.depth, static_cast<long>(DEPTH));
    }

    std::ostringstream stream;
    FastInfosetWriter writer(stream, false, DocumentVocabulary::VOC_MAP);
    writer.startDocument();
    for (std::size_t i = 0; i < DEPTH; ++i)
        writer.startElement("", "a", "a");
    for (std::size_t i = 0; i < DEPTH; ++i)
        writer.endElement("", "a", "a");
    writer.endDocument();
    EXPECT_TRUE(stream.str() == closed);
}

TEST(HostileInputTest, NestedDeclarations)
{
    constexpr std::size_t DEPTH = 100000;
    const std::string octets = octetsOf(HEADER + "38 CF 00 'p' 00 'u' F0 3C 00 'a'") +
                               repeated(octetsOf("38 CF 81 81 CD 81 F0 [00 000000]"), DEPTH - 1) +
                               std::string(DEPTH / 2, '\xFF') + '\xF0';
    FastInfosetParser parser;
    DepthLog log;
    parser.setContentHandler(&log);
    parseOctets(parser, octets, 0);
    EXPECT_EQ(log.deepest, static_cast<long>(DEPTH));
    EXPECT_EQ(log.mappings, 0);
}

TEST(HostileInputTest, ElementOfManyAttributes)
{
    constexpr std::size_t COUNT = 1000000;
    const std::string octets = octetsOf(HEADER + "7C 00 'a' 78 00 'b' 40 '1'") +
                               repeated(octetsOf("[0 0000000] 80"), COUNT - 1) + octetsOf("FF F0");
    FastInfosetParser parser;
    DepthLog log;
    parser.setContentHandler(&log);
    parseOctets(parser, octets, 0);
    EXPECT_EQ(log.attributeCount, static_cast<long>(COUNT));
}

TEST(HostileInputTest, ExternalVocabularyCutOffAnywhere)
{
    const std::string naming = octetsOf("E0 00 00 01 20 10 00 05 'mem:/v' F0");
    for (const std::string& document : sampleDocuments())
    {
        for (std::size_t size = 0; size <= document.size(); ++size)
        {
            URIStreamOpener::defaultOpener().registerStreamFactory(
                "mem", [&](const URI&) { return std::make_unique<std::istringstream>(document.substr(0, size)); });
            const std::string events = eventsOf(naming);
            EXPECT_EQ(events.find("declaration=no !FISParseException(") == 0, size < document.size()) << events;
        }
    }
    URIStreamOpener::defaultOpener().unregisterStreamFactory("mem");
}

TEST(HostileInputTest, LongPrefixOfManyNamesTakesNoMemoryOutOfProportion)
{
    // Each further name costs a few octets, but its qualified name would repeat the prefix.
    const std::string prefix(50000, 'p');
    const auto document = [&prefix](int nameCount)
    {
        std::ostringstream out;
        FastInfosetWriter writer(out, false, DocumentVocabulary::VOC_MAP);
        writer.startDocument();
        for (int i = 0; i < nameCount; ++i)
            writer.startElement("urn:x", "n" + std::to_string(i), prefix + ":n" + std::to_string(i));
        for (int i = 0; i < nameCount; ++i)
            writer.endElement("", "", "");
        writer.endDocument();
        return out.str();
    };
    const std::string few = document(20);
    FastInfosetParser parser;
    EXPECT_NO_THROW(parser.parseMemoryNP(few.data(), few.size()));
    const std::string many = document(1000);
    EXPECT_VESK_THROW(parser.parseMemoryNP(many.data(), many.size()), FISException, "Qualified names too long");
    EXPECT_NO_THROW(parser.parseMemoryNP(few.data(), few.size()));
}

TEST(HostileInputTest, RandomOctetsBehindAHeader)
{
    std::mt19937 random(11);
    FastInfosetParser parsers[] = {FastInfosetParser(DocumentVocabulary::VOC_HASH),
                                   FastInfosetParser(DocumentVocabulary::VOC_MAP),
                                   FastInfosetParser(DocumentVocabulary::VOC_VECTOR)};
    for (int i = 0; i < 10000; ++i)
    {
        // Half of the headers have no flags and lead straight to the body.
        std::string octets = octetsOf("E0 00 00 01") + static_cast<char>(i % 2 == 0 ? 0 : random() & 0x7F);
        for (std::size_t size = random() % 64; size > 0; --size)
            octets += static_cast<char>(random() % 3 == 0 ? random() % 4 : random());
        for (FastInfosetParser& parser : parsers)
        {
            const std::string events = eventsOf<TypedEventLog>(parser, octets);
            EXPECT_EQ(eventsOf<TypedEventLog>(parser, octets), events) << hexOf(octets);
        }
    }
}

} // namespace Vesk::FastInfoset
