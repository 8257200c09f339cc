// SPDX-License-Identifier: MIT
#include "EventRecorder.h"
#include "FaultDocuments.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/URIStreamOpener.h"
#include <functional>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

// Parsers and writers of different threads share nothing that they change. The thread sanitizer sees what results do not
// show.

namespace Vesk::FastInfoset
{

namespace
{

/// Runs the action on many threads at once and expects the same from each.
void expectOnAllThreads(const std::string& expected, const std::function<std::string()>& action)
{
    constexpr int THREADS = 8;
    constexpr int ROUNDS = 20;

    std::vector<std::string> results(THREADS);
    std::vector<std::thread> threads;
    for (std::string& result : results)
    {
        threads.emplace_back(
            [&result, &action]
            {
                for (int i = 0; i < ROUNDS; ++i)
                    result = action();
            });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& result : results)
        EXPECT_EQ(result, expected);
}

std::string eventsOf(FastInfosetParser& parser, const std::string& document)
{
    EventRecorder recorder;
    recorder.attachTo(parser);
    parser.parseMemoryNP(document.data(), document.size());
    return recorder.events();
}

} // namespace

TEST(ThreadTest, ParsersShareTheirInput)
{
    for (const std::string& document : {converted(faultText()), typedDocument()})
    {
        for (const auto tables :
             {DocumentVocabulary::VOC_VECTOR, DocumentVocabulary::VOC_MAP, DocumentVocabulary::VOC_HASH})
        {
            FastInfosetParser first(tables);
            expectOnAllThreads(eventsOf(first, document),
                               [&]
                               {
                                   FastInfosetParser parser(tables);
                                   return eventsOf(parser, document);
                               });
        }
    }
}

TEST(ThreadTest, ParsersAndWritersCopyOneVocabulary)
{
    DocumentVocabulary vocabulary(DocumentVocabulary::VOC_MAP);
    bool found = false;
    vocabulary.vocabulary(DocumentVocabulary::LOCAL_NAME).index("values", found);
    const DocumentVocabulary& shared = vocabulary;
    const auto write = [&shared]
    {
        std::ostringstream out;
        {
            FastInfosetWriter writer(out, false, shared);
            writeTypedDocument(writer);
        }
        return out.str();
    };
    const std::string document = write();
    expectOnAllThreads(document, write);

    FastInfosetParser first(shared);
    expectOnAllThreads(eventsOf(first, document),
                       [&]
                       {
                           FastInfosetParser parser(shared);
                           return eventsOf(parser, document);
                       });
}

TEST(ThreadTest, ConversionsShareTheirText)
{
    const std::string document = converted(faultText());
    expectOnAllThreads(document, [] { return converted(faultText()); });
    expectOnAllThreads(eventsOfXML(faultText()),
                       [&]
                       {
                           std::istringstream in(document);
                           std::ostringstream out;
                           Converter::convertToXML(in, out, 0);
                           return eventsOfXML(out.str());
                       });
}

TEST(ThreadTest, ExternalVocabulariesAreOpenedAtOnce)
{
    URIStreamOpener::defaultOpener().registerStreamFactory(
        "shared", [](const URI&) { return std::make_unique<std::istringstream>(faultText()); });
    // Names the vocabulary, then an element by the first index that it brings.
    const std::string document = std::string("\xE0\0\0\1\x20\x10\0\x0B", 8) + "shared:v.xml" + "\x01\xFF";
    FastInfosetParser first;
    const std::string events = eventsOf(first, document);
    EXPECT_NE(events.find("element-with-a-rather-long-name"), std::string::npos) << events;
    expectOnAllThreads(events,
                       [&]
                       {
                           FastInfosetParser parser;
                           return eventsOf(parser, document);
                       });
    URIStreamOpener::defaultOpener().unregisterStreamFactory("shared");
}

} // namespace Vesk::FastInfoset
