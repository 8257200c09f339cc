// SPDX-License-Identifier: MIT
#include "EventLog.h"
#include "ExceptionMatcher.h"
#include "SampleDocuments.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include <sstream>
#include <stdexcept>

// What one document does to the next ones of the same parser: nothing.

namespace Vesk::FastInfoset
{

namespace
{

/// Throws from the event with that number, counted from 1.
template <class Log>
class ThrowingLog : public Log
{
public:
    explicit ThrowingLog(int eventNumber)
        : _eventsLeft(eventNumber)
    {
    }

protected:
    void afterEvent() override
    {
        if (--_eventsLeft == 0)
            throw std::runtime_error("handler failed");
    }

private:
    int _eventsLeft;
};

template <class Log>
void expectUnchangedByThrowingHandlers(const std::string& octets, DocumentVocabulary::VocabularyImpl impl)
{
    FastInfosetParser parser(impl);
    const std::string fresh = eventsOf<Log>(octets, impl);
    for (int eventNumber = 1;; ++eventNumber)
    {
        ThrowingLog<Log> log(eventNumber);
        log.attachTo(parser);
        const std::string failure = failureOf([&] { parseOctets(parser, octets, 0); });
        if (failure.empty())
        {
            EXPECT_EQ(log.events(), fresh);
            return; // there are no more events
        }
        ASSERT_EQ(failure, "!std(handler failed)");
        ASSERT_EQ(fresh.compare(0, log.events().size(), log.events()), 0) << log.events() << "\nof " << fresh;
        ASSERT_EQ(eventsOf<Log>(parser, octets), fresh) << "after event " << eventNumber;
    }
}

/// Calls the parser from its own handler.
class NestingLog : public EventLog
{
public:
    NestingLog(FastInfosetParser& parser, bool catches)
        : _parser(parser),
          _catches(catches)
    {
    }

    void startElement(const std::string& uri, const std::string& localName, const std::string& qname,
                      const XML::Attributes& attributes) override
    {
        EventLog::startElement(uri, localName, qname, attributes);
        const auto nested = [this]
        {
            parseOctets(_parser, octetsOf("E0 00 00 01 00 3C 00 'n' FF"), 0);
        };
        if (_catches)
            add(failureOf(nested));
        else
            nested();
    }

private:
    FastInfosetParser& _parser;
    bool _catches;
};

} // namespace

TEST(ReuseTest, DocumentsInTurnAreReadAsByFreshParsers)
{
    const std::vector<std::string> documents = sampleDocuments();
    for (const DocumentVocabulary::VocabularyImpl impl : ALL_TABLES)
    {
        FastInfosetParser parser(impl);
        for (const std::string& first : documents)
        {
            for (const std::string& second : documents)
            {
                for (const std::string& octets : {first, second, second.substr(0, second.size() / 2), first})
                {
                    EXPECT_EQ(eventsOf(parser, octets), eventsOf(octets, impl));
                    EXPECT_EQ(eventsOf<TypedEventLog>(parser, octets, 3), eventsOf<TypedEventLog>(octets, impl, 3));
                }
            }
        }
    }
}

TEST(ReuseTest, DocumentsCutOffAnywhereLeaveNothingBehind)
{
    const std::vector<std::string> documents = sampleDocuments();
    const std::string& probe = documents[2];
    for (const DocumentVocabulary::VocabularyImpl impl : ALL_TABLES)
    {
        FastInfosetParser parser(impl);
        const std::string fresh = eventsOf(probe, impl);
        for (const std::string& octets : documents)
        {
            for (std::size_t size = 0; size < octets.size(); ++size)
            {
                eventsOf(parser, octets.substr(0, size));
                ASSERT_EQ(eventsOf(parser, probe), fresh) << hexOf(octets.substr(0, size));
            }
        }
    }
}

TEST(ReuseTest, AlphabetsOfADocumentEndWithIt)
{
    const std::string withAlphabet = octetsOf("E0 00 00 01 20 08 00 00 01 'ab' [10 0 0 10 00] [001111 00] 50 F0");
    const std::string without = octetsOf("E0 00 00 01 00 [10 0 0 10 00] [001111 00] 50 F0");
    DocumentVocabulary prepared(DocumentVocabulary::VOC_MAP);
    prepared.restrictedAlphabets().add("yz");
    FastInfosetParser parser;
    FastInfosetParser preparedParser(prepared);
    for (int i = 0; i < 2; ++i)
    {
        EXPECT_EQ(eventsOf(parser, withAlphabet), "declaration=no vocabulary start \"ababaaaa\" end");
        EXPECT_NE(eventsOf(parser, without).find("!AssertionViolationException("), std::string::npos);
        EXPECT_EQ(eventsOf(preparedParser, withAlphabet), "declaration=no vocabulary start \"yzyzyyyy\" end");
        EXPECT_EQ(eventsOf(preparedParser, without), "declaration=no vocabulary start \"yzyzyyyy\" end");
    }
}

TEST(ReuseTest, HandlersMayThrowFromAnyEvent)
{
    for (const std::string& octets : sampleDocuments())
    {
        for (const DocumentVocabulary::VocabularyImpl impl : ALL_TABLES)
        {
            expectUnchangedByThrowingHandlers<EventLog>(octets, impl);
            expectUnchangedByThrowingHandlers<TypedEventLog>(octets, impl);
        }
    }
}

TEST(ReuseTest, ParsingFromAHandlerIsRefused)
{
    const std::string octets = octetsOf("E0 00 00 01 00 3C 00 'a' FF");
    const std::string refusal = "!InvalidAccessException(the parser is parsing a document already)";
    FastInfosetParser parser;
    NestingLog catching(parser, true);
    parser.setContentHandler(&catching);
    parseOctets(parser, octets, 0);
    EXPECT_EQ(catching.events(), "start <a> " + refusal + " </a> end") << "the document goes on";

    NestingLog passing(parser, false);
    parser.setContentHandler(&passing);
    EXPECT_EQ(failureOf([&] { parseOctets(parser, octets, 0); }), refusal);
    EXPECT_EQ(eventsOf(parser, octets), "declaration=no vocabulary start <a> </a> end") << "and the parser too";
}

} // namespace Vesk::FastInfoset
