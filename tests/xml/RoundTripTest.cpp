// SPDX-License-Identifier: MIT
#include "EventRecorder.h"
#include "Vesk/XML/AttributesImpl.h"
#include "Vesk/XML/SAXException.h"
#include "Vesk/XML/XMLWriter.h"
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>

using namespace Vesk::XML;

namespace
{
std::vector<std::filesystem::path> documents()
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(VESK_TEST_DATA))
    {
        if (entry.path().extension() == ".xml")
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string contentOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream content;
    content << stream.rdbuf();
    return content.str();
}

/// Makes the events of any reader look like those of a reader of the binary format, which knows no name of the document
/// type, gives attributes no qualified names and elements only those that have a prefix.
class BinaryReaderEvents : public XMLWriter
{
public:
    using XMLWriter::XMLWriter;

    void startElement(const std::string& uri, const std::string& localName, const std::string& qname,
                      const Attributes& attributes) override
    {
        AttributesImpl bare;
        for (int i = 0; i < attributes.getLength(); ++i)
            bare.addAttribute(attributes.getURI(i), attributes.getLocalName(i), "", "", attributes.getValue(i));
        const bool hasPrefix = qname.find(':') != std::string::npos;
        XMLWriter::startElement(uri, localName, hasPrefix ? qname : "", bare);
    }
    void startDTD(const std::string&, const std::string& publicId, const std::string& systemId) override
    {
        XMLWriter::startDTD("", publicId, systemId);
    }
};

/// Sends the same random document to two handlers: names and declarations that need not fit together, any text.
class RandomDocument
{
public:
    RandomDocument(unsigned int seed, ContentHandler& first, ContentHandler& second)
        : _random(seed),
          _handlers{&first, &second}
    {
    }

    void send()
    {
        toBoth([](ContentHandler& handler) { handler.startDocument(); });
        sendElement(0);
        toBoth([](ContentHandler& handler) { handler.endDocument(); });
    }

private:
    template <class Event>
    void toBoth(Event event)
    {
        for (ContentHandler* const handler : _handlers)
            event(*handler);
    }

    template <std::size_t SIZE>
    std::string any(const char* const (&choices)[SIZE])
    {
        return choices[_random() % SIZE];
    }

    std::string anyURI() { return any({"", "urn:1", "urn:2", "urn:3"}); }
    std::string anyPrefix() { return any({"", "p", "q", "ns1"}); }

    std::string anyQName(const std::string& localName)
    {
        if (_random() % 2 == 0)
            return "";
        const std::string prefix = anyPrefix();
        return prefix.empty() ? localName : prefix + ":" + localName;
    }

    std::string anyText()
    {
        std::string text;
        for (unsigned int count = _random() % 8; count > 0; --count)
            text += any({"x", "]]>", "]", ">", "\r\n", "\r", "\n", "\t", "<", "&amp;", "\"", "'", "\xC3\xA4", "-->"});
        return text;
    }

    void sendElement(int depth)
    {
        for (unsigned int count = _random() % 4 / 2; count > 0; --count)
        {
            const std::string prefix = anyPrefix();
            const std::string uri = prefix.empty() ? anyURI() : any({"urn:1", "urn:2", "urn:3"});
            toBoth([&](ContentHandler& handler) { handler.startPrefixMapping(prefix, uri); });
        }
        AttributesImpl attributes;
        for (unsigned int count = _random() % 4; count > 0; --count)
        {
            const std::string uri = anyURI();
            const std::string localName = any({"a", "b", "c"});
            if (attributes.getIndex(uri, localName) < 0)
                attributes.addAttribute(uri, localName, anyQName(localName), "", anyText());
        }
        const std::string uri = anyURI();
        const std::string localName = any({"d", "e"});
        const std::string qname = anyQName(localName);
        toBoth([&](ContentHandler& handler) { handler.startElement(uri, localName, qname, attributes); });
        sendContent(depth);
        toBoth([&](ContentHandler& handler) { handler.endElement(uri, localName, qname); });
    }

    void sendContent(int depth)
    {
        for (unsigned int count = _random() % 4; count > 0; --count)
        {
            const std::string text = anyText();
            toBoth([&](ContentHandler& handler)
                   { handler.characters(text.c_str(), 0, static_cast<int>(text.size())); });
            if (depth < 6)
                sendElement(depth + 1);
        }
    }

    std::mt19937 _random;
    ContentHandler* const _handlers[2];
};

std::string withoutMappings(const std::string& events)
{
    std::string result;
    std::istringstream lines(events);
    for (std::string line; std::getline(lines, line);)
    {
        if (line.compare(0, 4, "map ") != 0 && line.compare(0, 6, "unmap ") != 0)
            result += line + "\n";
    }
    return result;
}

template <class Writer>
std::string rewritten(const std::string& xml, int options, bool namespacePrefixes)
{
    std::ostringstream out;
    {
        Writer writer(out, options);
        SAXParser parser;
        parser.setFeature(XMLReader::FEATURE_NAMESPACE_PREFIXES, namespacePrefixes);
        parser.setContentHandler(&writer);
        parser.setDTDHandler(&writer);
        parser.setProperty(XMLReader::PROPERTY_LEXICAL_HANDLER, static_cast<LexicalHandler*>(&writer));
        parser.parseMemoryNP(xml.data(), xml.size());
    }
    return out.str();
}
} // namespace

TEST(RoundTripTest, WrittenDocumentsHaveTheSameEvents)
{
    ASSERT_GE(documents().size(), 9u);
    for (const auto& file : documents())
    {
        SCOPED_TRACE(file);
        const std::string xml = contentOf(file);
        const std::string expected = eventsOfXML(xml, EventRecorder::QUALIFIED_NAMES);
        for (const int options : {XMLWriter::CANONICAL, XMLWriter::WRITE_XML_DECLARATION})
        {
            const std::string plain = rewritten<XMLWriter>(xml, options, false);
            EXPECT_EQ(eventsOfXML(plain, EventRecorder::QUALIFIED_NAMES), expected);
            EXPECT_EQ(rewritten<XMLWriter>(xml, options, true), plain);
        }
    }
}

TEST(RoundTripTest, EventsOfTheBinaryFormatAreEnough)
{
    for (const auto& file : documents())
    {
        SCOPED_TRACE(file);
        const std::string xml = contentOf(file);
        EXPECT_EQ(eventsOfXML(rewritten<BinaryReaderEvents>(xml, XMLWriter::CANONICAL, false)), eventsOfXML(xml));
    }
}

// Events that contradict each other are refused; all others come back as they were.
TEST(RoundTripTest, RandomEventsComeBackOrAreRefused)
{
    const unsigned int firstSeed = std::random_device{}();
    int accepted = 0;
    for (unsigned int seed = firstSeed; seed != firstSeed + 1000; ++seed)
    {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::ostringstream out;
        XMLWriter writer(out, XMLWriter::CANONICAL);
        EventRecorder recorder;
        try
        {
            RandomDocument(seed, writer, recorder).send();
        }
        catch (const SAXException& exception)
        {
            const std::string refusal = "Element without namespace declares a default namespace";
            ASSERT_EQ(exception.message().substr(0, refusal.size()), refusal);
            continue;
        }
        ++accepted;
        std::string events;
        ASSERT_NO_THROW(events = eventsOfXML(out.str())) << out.str();
        ASSERT_EQ(withoutMappings(events), withoutMappings(recorder.events())) << out.str();
    }
    EXPECT_GT(accepted, 500);
}

TEST(RoundTripTest, PrettyPrintingChangesLayoutOnly)
{
    const char* const CASES[] = {
        "<a><b>text</b><c><d/></c><!--comment--><?target data?></a>",
        "<a>mixed <b><c/><d/></b> content</a>",
        "<a><b xml:space='preserve'><c/> <d/></b></a>",
        "<!DOCTYPE a SYSTEM 's'><!--c--><a><![CDATA[text]]></a><?end?>",
    };
    for (const std::string xml : CASES)
    {
        const std::string pretty = rewritten<XMLWriter>(xml, XMLWriter::PRETTY_PRINT, false);
        EXPECT_EQ(rewritten<XMLWriter>(pretty, XMLWriter::PRETTY_PRINT, false), pretty);

        // Without its line breaks and what follows them the text is the same again.
        std::string joined;
        std::istringstream lines(pretty);
        for (std::string line; std::getline(lines, line);)
            joined += line.substr(std::min(line.find_first_not_of(' '), line.size()));
        EXPECT_EQ(eventsOfXML(joined), eventsOfXML(xml)) << pretty;
    }
}
