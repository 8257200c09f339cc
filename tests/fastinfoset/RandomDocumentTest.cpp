// SPDX-License-Identifier: MIT
#include "EventLog.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/XML/AttributesImpl.h"
#include <algorithm>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

// What a writer makes of any sequence of events, a parser turns back into those events.

namespace Vesk::FastInfoset
{

namespace
{

/// Gives random events to a writer and keeps what a parser should report.
class RandomDocument
{
public:
    RandomDocument(unsigned int seed, FastInfosetWriter& writer)
        : _random(seed),
          _writer(writer)
    {
    }

    std::string write(int eventCount)
    {
        _expected.add("declaration=no");
        _expected.add("vocabulary");
        _expected.startDocument();
        _writer.startDocument();
        startElement();
        for (; eventCount > 0; --eventCount)
            writeEvent();
        while (!_open.empty())
            endElement();
        _expected.endDocument();
        _writer.endDocument();
        return _expected.events();
    }

private:
    struct OpenElement
    {
        std::string prefix;
        std::string uri;
        std::string localName;
        std::string qname;
    };

    unsigned int pick(unsigned int limit) { return static_cast<unsigned int>(_random() % limit); }

    /// Small numbers are much more frequent, as are a few names and values in real documents.
    unsigned int pickSkewed(unsigned int limit) { return pick(pick(limit) + 1); }

    std::string name() { return "name" + std::to_string(pickSkewed(400)); }

    std::string text()
    {
        const unsigned int number = pickSkewed(3000);
        return number == 0 ? ""
                           : std::string(number % 30, static_cast<char>('a' + number % 26)) + std::to_string(number);
    }

    void writeEvent()
    {
        switch (pick(12))
        {
        case 0:
        case 1:
        case 2:
            startElement();
            break;
        case 3:
        case 4:
        case 5:
            if (_open.size() > 1)
                endElement();
            break;
        case 6:
            writeComment();
            break;
        case 7:
            writeProcessingInstruction();
            break;
        case 8:
            writeCDATA();
            break;
        case 9:
            writeTypedValues();
            break;
        default:
            writeText();
        }
    }

    void startElement()
    {
        OpenElement element;
        element.localName = name();
        if (pick(3) == 0)
        {
            element.prefix = "p" + std::to_string(pick(5));
            element.uri = "urn:" + std::to_string(pick(5));
            element.qname = element.prefix + ":" + element.localName;
            _expected.startPrefixMapping(element.prefix, element.uri);
            _writer.startPrefixMapping(element.prefix, element.uri);
        }
        XML::AttributesImpl given;
        XML::AttributesImpl reported;
        for (unsigned int i = pick(5); i > 0; --i)
        {
            const std::string localName = name();
            const std::string value = text();
            const bool isQualified = !element.prefix.empty() && pick(2) == 0;
            const std::string uri = isQualified ? element.uri : "";
            given.addAttribute(uri, localName, isQualified ? element.prefix + ":" + localName : localName, "CDATA",
                               value);
            reported.addAttribute(uri, localName, "", "", value);
        }
        _expected.startElement(element.uri, element.localName, element.qname, reported);
        _writer.startElement(element.uri, element.localName, element.qname.empty() ? element.localName : element.qname,
                             given);
        _open.push_back(element);
    }

    void endElement()
    {
        const OpenElement element = _open.back();
        _open.pop_back();
        _expected.endElement(element.uri, element.localName, element.qname);
        _writer.endElement(element.uri, element.localName, element.qname);
        if (!element.prefix.empty())
        {
            _expected.endPrefixMapping(element.prefix);
            _writer.endPrefixMapping(element.prefix);
        }
    }

    void writeText()
    {
        const std::string chunk = text();
        if (!chunk.empty())
            _expected.characters(chunk.c_str(), 0, static_cast<int>(chunk.size()));
        _writer.characters(chunk);
        remember(chunk);
    }

    void writeCDATA()
    {
        const std::string chunk = text();
        const bool isKnown = _chunks.count(chunk) > 0; // and goes out as an index, which says nothing of CDATA
        if (!isKnown && !chunk.empty())
            _expected.startCDATA();
        if (!chunk.empty())
            _expected.characters(chunk.c_str(), 0, static_cast<int>(chunk.size()));
        if (!isKnown && !chunk.empty())
            _expected.endCDATA();
        _writer.startCDATA();
        _writer.characters(chunk);
        _writer.endCDATA();
        remember(chunk);
    }

    void remember(const std::string& chunk)
    {
        if (chunk.size() <= 16)
            _chunks.insert(chunk);
    }

    void writeTypedValues()
    {
        for (unsigned int i = pick(4); i > 0; --i)
        {
            const int value = static_cast<int>(pick(1000)) - 500;
            if (pick(2) == 0)
            {
                _expected.encodedData(value);
                _writer.encodedData(value);
            }
            else
            {
                _expected.encodedData(value > 0);
                _writer.encodedData(value > 0);
            }
        }
    }

    // Few short ones, because the hash tables for them are small.
    std::string otherString()
    {
        return pick(2) == 0 ? "short " + std::to_string(pick(9)) : "longer than the limit " + text();
    }

    void writeComment()
    {
        const std::string comment = otherString();
        _expected.comment(comment.data(), 0, static_cast<int>(comment.size()));
        _writer.comment(comment.data(), 0, static_cast<int>(comment.size()));
    }

    void writeProcessingInstruction()
    {
        const std::string target = name();
        const std::string data = pick(3) == 0 ? "" : otherString();
        _expected.processingInstruction(target, data);
        _writer.processingInstruction(target, data);
    }

    std::mt19937 _random;
    FastInfosetWriter& _writer;
    TypedEventLog _expected;
    std::vector<OpenElement> _open;
    std::set<std::string> _chunks;
};

/// Empty if both are the same, else where they part.
std::string difference(const std::string& actual, const std::string& expected)
{
    if (actual == expected)
        return "";
    const auto place = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end()).first;
    const std::size_t position = static_cast<std::size_t>(place - actual.begin());
    const std::size_t begin = position - std::min<std::size_t>(position, 100);
    return actual.substr(begin, 200) + "\ninstead of\n" + expected.substr(begin, 200);
}

} // namespace

TEST(RandomDocumentTest, ParserReportsWhatTheWriterWasGiven)
{
    for (unsigned int seed = 1; seed <= 20; ++seed)
    {
        std::string first;
        for (const DocumentVocabulary::VocabularyImpl impl :
             {DocumentVocabulary::VOC_HASH, DocumentVocabulary::VOC_MAP})
        {
            std::ostringstream stream;
            FastInfosetWriter writer(stream, false, impl);
            const std::string events = RandomDocument(seed, writer).write(2000);
            if (first.empty())
            {
                first = stream.str();
                EXPECT_EQ(difference(eventsEverywhere<TypedEventLog>(first), events), "") << "seed " << seed;
            }
            EXPECT_EQ(difference(stream.str(), first), "") << "seed " << seed << ", tables " << impl;
        }
    }
}

} // namespace Vesk::FastInfoset
