// SPDX-License-Identifier: MIT
#include "Vesk/XML/WhitespaceFilter.h"
#include "EventRecorder.h"
#include <cstring>
#include <gtest/gtest.h>

using namespace Vesk::XML;

namespace
{
/// The content that is left, written as it was: tags without names of attributes, text in brackets.
std::string filtered(const std::string& xml)
{
    SAXParser parser;
    WhitespaceFilter filter(&parser);
    EventRecorder recorder;
    recorder.attachTo(filter);
    filter.parseMemoryNP(xml.data(), xml.size());
    return recorder.events();
}
} // namespace

TEST(WhitespaceFilterTest, DropsLayoutAndKeepsText)
{
    // Both documents give the same events: the filter makes the first one from the second.
    const struct
    {
        const char* without;
        const char* with;
    } CASES[] = {
        {"<a><b/><b/></a>", "<a>\n\t<b/>\r\n  <b> </b>\n</a>"},
        {"<a>  text  </a>", "<a>  text  </a>"},
        {"<a> &lt;<b/></a>", "<a> &lt;<b/> </a>"},
        {"<a>one <b/> two</a>", "<a>one <b/> two</a>"},
        {"<a><!--c--><?p i?></a>", "<a> <!--c--> <?p i?> </a>"},
        {"<a>text <!--c--></a>", "<a>text <!--c--> </a>"},
        {"<a><b xml:space='preserve'> <c> </c> </b></a>", "<a> <b xml:space='preserve'> <c> </c> </b> </a>"},
        {"<a xml:space='preserve'> <b xml:space='default'><c/></b> </a>",
         "<a xml:space='preserve'> <b xml:space='default'> <c> </c> </b> </a>"},
        {"<a><![CDATA[ ]]></a>", "<a><![CDATA[ ]]></a>"},
        {"<a> <![CDATA[]]> </a>", "<a> <![CDATA[]]> </a>"},
        {"<!DOCTYPE a SYSTEM 's'><a> &e; <b/></a>", "<!DOCTYPE a SYSTEM 's'>\n<a> &e; <b/> </a>\n"},
        {"<a>&#160;</a>", "<a>&#160;</a>"},
    };
    for (const auto& row : CASES)
        EXPECT_EQ(filtered(row.with), eventsOfXML(std::string(row.without))) << row.with;
}

TEST(WhitespaceFilterTest, ARunGoesOnOverSeveralCalls)
{
    class Chunks : public XMLFilterImpl
    {
    public:
        void characters(const char ch[], int start, int length) override
        {
            EXPECT_EQ(std::strlen(ch + start), static_cast<std::size_t>(length));
            text += ch + start;
        }
        std::string text;
    };
    Chunks chunks;
    WhitespaceFilter filter;
    filter.setContentHandler(&chunks);
    const std::string pieces[] = {" ", "\n", " x", " ", "y", " "};
    for (const std::string& piece : pieces)
        filter.characters(piece.c_str(), 0, static_cast<int>(piece.size()));
    filter.endElement("", "a", "a");
    EXPECT_EQ(chunks.text, " \n x y ");
    filter.characters("  ", 0, 2);
    filter.endElement("", "a", "a");
    EXPECT_EQ(chunks.text, " \n x y ");
}

TEST(WhitespaceFilterTest, StandsBetweenParserAndLexicalHandler)
{
    SAXParser parser;
    WhitespaceFilter filter(&parser);
    EventRecorder recorder;
    LexicalHandler* const handler = &recorder;
    filter.setProperty(XMLReader::PROPERTY_LEXICAL_HANDLER, handler);
    EXPECT_EQ(filter.getProperty(XMLReader::PROPERTY_LEXICAL_HANDLER), handler);
    EXPECT_EQ(parser.getProperty(XMLReader::PROPERTY_LEXICAL_HANDLER), nullptr);
    filter.setFeature(XMLReader::FEATURE_NAMESPACE_PREFIXES, true);
    EXPECT_TRUE(parser.getFeature(XMLReader::FEATURE_NAMESPACE_PREFIXES));
}

TEST(WhitespaceFilterTest, TooMuchWhiteSpaceIsKept)
{
    const std::string space(20 * 1024 * 1024, ' ');
    EXPECT_TRUE(filtered("<a>" + space + "<b/> </a>") == eventsOfXML("<a>" + space + "<b/></a>"));
}
