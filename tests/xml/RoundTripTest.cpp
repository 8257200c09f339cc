// SPDX-License-Identifier: MIT
#include "EventRecorder.h"
#include "Vesk/XML/AttributesImpl.h"
#include "Vesk/XML/XMLWriter.h"
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

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
