// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/Converter.h"
#include "EventRecorder.h"
#include "ExceptionMatcher.h"
#include "Octets.h"
#include "TestStreams.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/Utility.h"
#include "Vesk/XML/SAXParseException.h"
#include "Vesk/XML/WhitespaceFilter.h"
#include "Vesk/XML/XMLWriter.h"
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <vector>

namespace Vesk::FastInfoset
{

namespace
{

constexpr int INDEXED_LENGTH = 16;
const int INDEXED_LENGTHS[] = {-1, 0, INDEXED_LENGTH, 64, 1000};

std::string toFIS(const std::string& xml, int maxIndexedLength = INDEXED_LENGTH, int options = 0)
{
    std::istringstream in(xml);
    std::ostringstream out;
    Converter::convertToFIS(in, out, maxIndexedLength, options);
    return out.str();
}

std::string toXML(const std::string& fis, int options = XML::XMLWriter::CANONICAL)
{
    std::istringstream in(fis);
    std::ostringstream out;
    Converter::convertToXML(in, out, options);
    return out.str();
}

std::string eventsOfFIS(const std::string& fis, DocumentVocabulary::VocabularyImpl impl)
{
    EventRecorder recorder;
    FastInfosetParser parser(impl);
    recorder.attachTo(parser);
    parser.parseMemoryNP(fis.data(), fis.size());
    return recorder.events();
}

/// The events without all that is white space between tags.
std::string strippedEventsOfXML(const std::string& xml)
{
    EventRecorder recorder;
    XML::SAXParser parser;
    XML::WhitespaceFilter filter(&parser);
    recorder.attachTo(filter);
    filter.parseMemoryNP(xml.data(), xml.size());
    return recorder.events();
}

struct NamedDocument
{
    std::string name;
    std::string xml;
};

/// The documents in tests/data, and some that show one thing each.
std::vector<NamedDocument> documents()
{
    std::vector<NamedDocument> result = {
        {"empty element", "<a/>"},
        {"empty values", "<a b=''><c d=''/><?t?><!----></a>"},
        {"prolog and epilog",
         "<?xml version='1.0' standalone='yes'?><!--c--><?t d?>\n<!DOCTYPE a><!--d-->\n<a/><!--e-->\n<?t e?>"},
        {"identifiers", "<!DOCTYPE a PUBLIC 'pub' 'sys'><a/>"},
        {"notations and entities", "<!DOCTYPE a SYSTEM 'sys' [<!NOTATION n SYSTEM 'n.sys'><!NOTATION m PUBLIC 'm.pub'>"
                                   "<!NOTATION o PUBLIC 'o.pub' 'o.sys'><!ENTITY e SYSTEM 'e.sys' NDATA n>"
                                   "<!ENTITY f PUBLIC 'f.pub' 'f.sys' NDATA m><?t in the subset?>]><!--c--><a b='x'/>"},
        {"internal entities and default attributes",
         "<!DOCTYPE a [<!ENTITY e 'some &lt;text&gt;'><!ATTLIST a b CDATA 'default' c NMTOKENS #IMPLIED>]>"
         "<a c=' x  y '>&e;&#10;&amp;</a>"},
        {"namespaces",
         "<a xmlns='u' xmlns:p='v' p:b='1' b='2'><p:a xmlns='' p:c='3'><a xmlns:p='w' p:b='4' xml:lang='en'/></p:a>"
         "<b xmlns='v' p:b='5' b='6'/></a>"},
        {"prefixes for one namespace",
         "<p:a xmlns:p='u' xmlns:q='u' q:b='1'><q:a p:b='2'/><a xmlns='u' p:b='3'/></p:a>"},
        {"CDATA sections", "<a>x<![CDATA[<y>]]>z<![CDATA[]]><![CDATA[]] >]]><b><![CDATA[&]]></b></a>"},
        {"white space", "<a>\n  <b> x </b>\n\t<c xml:space='preserve'> <d/> </c>\n&#13;<e/> </a>"},
    };
    for (const auto& entry : std::filesystem::directory_iterator(VESK_TEST_DATA))
    {
        if (entry.path().extension() != ".xml")
            continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        std::ostringstream content;
        content << stream.rdbuf();
        result.push_back({entry.path().filename().string(), content.str()});
    }
    return result;
}

std::string repeated(const std::string& text, std::size_t count)
{
    std::string result;
    result.reserve(text.size() * count);
    for (; count > 0; --count)
        result += text;
    return result;
}

} // namespace

TEST(ConverterTest, DocumentsComeThrough)
{
    for (const NamedDocument& document : documents())
    {
        const std::string events = eventsOfXML(document.xml);
        for (const int maxIndexedLength : INDEXED_LENGTHS)
        {
            SCOPED_TRACE(testing::Message() << document.name << ", indexed up to " << maxIndexedLength);
            const std::string fis = toFIS(document.xml, maxIndexedLength);
            for (const DocumentVocabulary::VocabularyImpl impl :
                 {DocumentVocabulary::VOC_VECTOR, DocumentVocabulary::VOC_HASH, DocumentVocabulary::VOC_MAP})
                EXPECT_EQ(eventsOfFIS(fis, impl), events);
            for (const int options : {XML::XMLWriter::CANONICAL, XML::XMLWriter::WRITE_XML_DECLARATION})
                EXPECT_EQ(eventsOfXML(toXML(fis, options)), events);
        }
        EXPECT_LT(toFIS(document.xml).size(), std::max<std::size_t>(document.xml.size(), 32)) << document.name;
    }
}

TEST(ConverterTest, WhiteSpaceBetweenTagsIsDroppedOnDemand)
{
    for (const NamedDocument& document : documents())
    {
        SCOPED_TRACE(document.name);
        const std::string stripped = strippedEventsOfXML(document.xml);
        for (const int options : {0x01, 0x80, 0x81, 0xFF})
            EXPECT_EQ(eventsOfFIS(toFIS(document.xml, INDEXED_LENGTH, options), DocumentVocabulary::VOC_VECTOR),
                      stripped);
        for (const int options : {0x02, 0x7E})
            EXPECT_EQ(toFIS(document.xml, INDEXED_LENGTH, options), toFIS(document.xml));
    }
}

TEST(ConverterTest, WritesTheseOctets)
{
    EXPECT_EQ(hexOf(toFIS("<!DOCTYPE a SYSTEM 's' [<!NOTATION n SYSTEM 's'>]>\n<a xmlns:p='u' b='1'><p:c>1</p:c><p:c>1"
                          "</p:c><!--1--></a>")),
              hexOf(octetsOf("E0 00 00 01 10 C3 00 'n' 00 's' FF F0 C6 80 F0 78 CF 00 'p' 00 'u' F0 3C 00 'a' 78 00 'b'"
                             "40 '1' F0 3F 81 81 00 'c' 90 '1' F0 [00 000001] A0 F0 E2 40 '1' FF")));
}

TEST(ConverterTest, LimitOnIndexedLengths)
{
    const std::string xml = "<a b='12345678'>12345678<b/>12345678</a>";
    const std::pair<std::string, std::vector<int>> cases[] = {
        {"47 '12345678' F0 92 05 '12345678' 3C 81 F0 A0 FF", {8, 9, 1000}},
        {"07 '12345678' F0 82 05 '12345678' 3C 81 F0 82 05 '12345678' FF", {7, 0, -1}}};
    for (const auto& [octets, limits] : cases)
    {
        for (const int limit : limits)
            EXPECT_EQ(hexOf(toFIS(xml, limit)), hexOf(octetsOf("E0 00 00 01 00 7C 00 'a' 78 00 'b' " + octets)))
                << limit;
    }
}

TEST(ConverterTest, UtilityConvertsWithTheUsualOptions)
{
    const std::string xml = "<a>\n<b>some text of a certain length</b> <b>some text of a certain length</b></a>";
    std::istringstream in(xml);
    std::ostringstream fis;
    Utility::convertToFIS(in, fis, 64);
    EXPECT_EQ(fis.str(), toFIS(xml, 64, 0));
    std::istringstream fisIn(fis.str());
    std::ostringstream out;
    Utility::convertToXML(fisIn, out);
    EXPECT_EQ(out.str(), toXML(fis.str(), XML::XMLWriter::WRITE_XML_DECLARATION));
    EXPECT_EQ(out.str().compare(0, 6, "<?xml "), 0);
    EXPECT_NE(toXML(fis.str()).compare(0, 6, "<?xml "), 0);
}

TEST(ConverterTest, StreamsNeedNotBeSeekable)
{
    for (const NamedDocument& document : documents())
    {
        SCOPED_TRACE(document.name);
        BlockInputStream xml(document.xml, 1);
        RecordingOutputStream fis;
        Converter::convertToFIS(xml, fis, INDEXED_LENGTH, 0);
        EXPECT_EQ(fis.octets(), toFIS(document.xml));
        BlockInputStream fisIn(fis.octets(), 1);
        RecordingOutputStream back;
        Converter::convertToXML(fisIn, back, 0);
        EXPECT_EQ(back.octets(), toXML(fis.octets()));
    }
}

TEST(ConverterTest, FailuresPassThrough)
{
    EXPECT_THROW(toFIS("<a>"), XML::SAXParseException);
    EXPECT_THROW(toFIS(""), XML::SAXParseException);
    EXPECT_THROW(toXML("<a/>"), FISException);
    EXPECT_THROW(toXML(""), FISException);

    std::istringstream xml("<a>text</a>");
    RecordingOutputStream out(7);
    EXPECT_VESK_THROW(Converter::convertToFIS(xml, out, INDEXED_LENGTH, 0), IOException,
                      "error while writing Fast Infoset document to stream");
    std::istringstream broken(toFIS("<a>text</a>"));
    broken.setstate(std::ios::badbit);
    std::ostringstream ignored;
    EXPECT_VESK_THROW(Converter::convertToXML(broken, ignored, 0), IOException,
                      "error reading stream while parsing Fast Infoset document");
}

TEST(ConverterTest, LargeDocuments)
{
    constexpr std::size_t MILLION = 1000000;
    const NamedDocument large[] = {
        {"text of 50 MB", "<a>" + repeated("0123456789 \xC3\xA4\xE2\x82\xAC &lt;", 50 * MILLION / 20) + "</a>"},
        {"siblings", "<r>" + repeated("<a b=\"1\">x</a>", MILLION) + "</r>"},
        {"nested elements", repeated("<a>", MILLION) + repeated("</a>", MILLION)},
        {"nested namespaces", repeated("<p:a xmlns:p=\"u\">", 100000) + repeated("</p:a>", 100000)}};
    for (const NamedDocument& document : large)
    {
        const std::string fis = toFIS(document.xml);
        EXPECT_LE(fis.size(), document.xml.size()) << document.name;
        const std::string xml = toXML(fis);
        EXPECT_TRUE(toFIS(xml) == fis) << document.name;
        EXPECT_LE(xml.size(), document.xml.size()) << document.name;
    }
}

} // namespace Vesk::FastInfoset
