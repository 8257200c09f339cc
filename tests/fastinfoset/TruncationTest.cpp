// SPDX-License-Identifier: MIT
#include "EventLog.h"
#include "SampleDocuments.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"

// Good documents with an end that is missing or a bit that is wrong.

namespace Vesk::FastInfoset
{

namespace
{

/// One parser of each kind, so that every document also meets what the broken ones before it left behind.
class Parsers
{
public:
    /// Events from memory; the same are expected from streams, whose words for missing octets of a string differ.
    template <class Log>
    std::string events(const std::string& octets, DocumentVocabulary::VocabularyImpl impl)
    {
        const std::string fromMemory = eventsOf<Log>(_parsers[impl], octets);
        for (const std::size_t blockSize : {1u, 1024u})
        {
            std::string fromStream = eventsOf<Log>(_parsers[impl], octets, blockSize);
            const std::string ending = "stream while parsing octet string)";
            if (fromStream.size() >= ending.size() &&
                fromStream.compare(fromStream.size() - ending.size(), ending.size(), ending) == 0)
                fromStream.replace(fromStream.size() - ending.size(), ending.size(),
                                   "stream while reading octet string)");
            EXPECT_EQ(fromStream, fromMemory) << hexOf(octets);
        }
        return fromMemory;
    }

private:
    FastInfosetParser _parsers[3] = {FastInfosetParser(DocumentVocabulary::VOC_HASH),
                                     FastInfosetParser(DocumentVocabulary::VOC_MAP),
                                     FastInfosetParser(DocumentVocabulary::VOC_VECTOR)};
};

template <class Log>
void expectEveryPrefixCutOff(Parsers& parsers, const std::string& octets)
{
    for (const DocumentVocabulary::VocabularyImpl impl : ALL_TABLES)
    {
        const std::string complete = parsers.events<Log>(octets, impl);
        ASSERT_EQ(complete.find('!'), std::string::npos) << complete;
        for (std::size_t size = 0; size < octets.size(); ++size)
        {
            const std::string events = parsers.events<Log>(octets.substr(0, size), impl);
            const std::size_t failure = events.find("!FISParseException(Unexpected end of stream ");
            ASSERT_NE(failure, std::string::npos) << size << " octets: " << events;
            ASSERT_EQ(complete.compare(0, failure, events, 0, failure), 0)
                << size << " octets: " << events << "\nof " << complete;
        }
    }
}

} // namespace

TEST(TruncationTest, EveryPrefixEndsInTheEventsOfItsOctets)
{
    Parsers parsers;
    for (const std::string& octets : sampleDocuments())
    {
        expectEveryPrefixCutOff<EventLog>(parsers, octets);
        expectEveryPrefixCutOff<TypedEventLog>(parsers, octets);
    }
}

TEST(TruncationTest, EveryFlippedBitEndsInEventsOrAnException)
{
    Parsers parsers;
    for (const std::string& octets : sampleDocuments())
    {
        for (std::size_t bit = 0; bit < 8 * octets.size(); ++bit)
        {
            std::string flipped = octets;
            flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (0x80 >> (bit % 8)));
            for (const DocumentVocabulary::VocabularyImpl impl : ALL_TABLES)
            {
                parsers.events<EventLog>(flipped, impl);
                parsers.events<TypedEventLog>(flipped, impl);
            }
        }
    }
}

} // namespace Vesk::FastInfoset
