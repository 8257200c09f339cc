// SPDX-License-Identifier: MIT
#include "Vesk/XML/XMLWriter.h"
#include "EventRecorder.h"
#include "ExceptionMatcher.h"
#include "TestStreams.h"
#include "Vesk/NullOutputStream.h"
#include "Vesk/XML/AttributesImpl.h"
#include "Vesk/XML/NamespaceSupport.h"
#include "Vesk/XML/SAXException.h"
#include <functional>
#include <gtest/gtest.h>

using namespace Vesk;
using namespace Vesk::XML;

namespace
{
/// A writer with shorthands for the events of a test.
class Document : public XMLWriter
{
public:
    explicit Document(std::ostream& out, int options = CANONICAL)
        : XMLWriter(out, options)
    {
    }

    struct Attribute
    {
        std::string uri;
        std::string localName;
        std::string qname;
        std::string value;
    };

    void start(const std::string& uri, const std::string& localName, const std::string& qname = "",
               const std::vector<Attribute>& attributes = {})
    {
        AttributesImpl set;
        for (const Attribute& attribute : attributes)
            set.addAttribute(attribute.uri, attribute.localName, attribute.qname, "CDATA", attribute.value);
        startElement(uri, localName, qname, set);
    }
    void start(const std::string& name, const std::vector<Attribute>& attributes = {})
    {
        start("", name, name, attributes);
    }
    void end() { endElement("", "", ""); }
    void text(const std::string& text) { characters(text.data(), 0, static_cast<int>(text.size())); }
    void remark(const std::string& text) { comment(text.data(), 0, static_cast<int>(text.size())); }
    void cdata(const std::vector<std::string>& pieces)
    {
        startCDATA();
        for (const std::string& piece : pieces)
            text(piece);
        endCDATA();
    }
};

using Events = std::function<void(Document&)>;

#define EVENTS(...)                                                                                                    \
    [&](Document& d)                                                                                                   \
    {                                                                                                                  \
        __VA_ARGS__;                                                                                                   \
    }

std::string written(const Events& events, int options = XMLWriter::CANONICAL)
{
    std::ostringstream out;
    Document document(out, options);
    document.startDocument();
    events(document);
    document.endDocument();
    return out.str();
}

struct Case
{
    std::string xml;
    Events events;
};

/// Besides the text itself, checks that it is well-formed.
void expectWritten(const std::vector<Case>& cases, int options = XMLWriter::CANONICAL)
{
    for (const Case& row : cases)
    {
        SCOPED_TRACE(row.xml);
        const std::string xml = written(row.events, options);
        EXPECT_EQ(xml, row.xml);
        EXPECT_NO_THROW(eventsOfXML(xml));
    }
}
} // namespace

TEST(XMLWriterTest, EscapesWhatAReaderWouldChange)
{
    const auto text = [](const std::string& content) -> Events
    {
        return [content](Document& d)
        {
            d.start("a"), d.text(content), d.end();
        };
    };
    const auto value = [](const std::string& content) -> Events
    {
        return [content](Document& d)
        {
            d.start("a", {{"", "b", "", content}}), d.end();
        };
    };
    expectWritten({
        {"<a>&lt;b&gt; &amp;amp; \"'</a>", text("<b> &amp; \"'")},
        {"<a>]]&gt;</a>", text("]]>")},
        {"<a>\t\n&#xD;\n&#xD;</a>", text("\t\n\r\n\r")},
        {"<a>\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\x7F\xC2\x85</a>",
         text("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\x7F\xC2\x85")},
        {"<a>\xEF\xBF\xBD\xF4\x8F\xBF\xBF</a>", text("\xEF\xBF\xBD\xF4\x8F\xBF\xBF")},
        {"<a/>", text("")},
        {"<a b=\"&quot;'&lt;&amp;>\"/>", value("\"'<&>")},
        {"<a b=\" &#x9;&#xA;&#xD; \"/>", value(" \t\n\r ")},
        {"<a b=\"\"/>", value("")},
    });
    for (const std::size_t length : {31u, 32u, 33u, 65535u, 65536u, 200000u}) // around the sizes of copies and buffers
    {
        const std::string longText(length, 'x');
        expectWritten({{"<a>" + longText + "&lt;" + longText + "</a>", text(longText + "<" + longText)},
                       {"<a b=\"" + longText + "&lt;" + longText + "\"/>", value(longText + "<" + longText)}});
    }
}

TEST(XMLWriterTest, EscapesAtEveryPlaceOfTextOfEveryLength)
{
    const std::pair<const char*, const char*> cases[] = {
        {"<", "&lt;"}, {"\n", "\n"}, {"\xC3\xA4", "\xC3\xA4"}, {"z", "z"}};
    for (const auto& [octets, escape] : cases)
    {
        for (std::size_t before = 0; before < 20; ++before)
        {
            for (std::size_t after = 0; after < 20; ++after)
            {
                const std::string left = std::string("abcdefghijklmnopqrst").substr(0, before);
                const std::string right = std::string("ABCDEFGHIJKLMNOPQRST").substr(0, after);
                const std::string text = left + octets + right + octets;
                const auto write = [&](XMLWriter& writer)
                {
                    writer.startElement("", "e", "", AttributesImpl());
                    writer.characters(text.data(), 0, static_cast<int>(text.size()));
                    writer.endElement("", "e", "");
                };
                EXPECT_EQ(written(write), "<e>" + left + escape + right + escape + "</e>");
            }
        }
    }
}

TEST(XMLWriterTest, TakesTextFromStartToLength)
{
    EXPECT_EQ(written(EVENTS(d.start("a"), d.characters("0123456789", 2, 3), d.ignorableWhitespace("0123456789", 5, 2),
                             d.comment("0123456789", 8, 1), d.end())),
              "<a>23456<!--8--></a>");
}

TEST(XMLWriterTest, WritesSections)
{
    expectWritten({
        {"<a><![CDATA[<&>]]></a>", EVENTS(d.start("a"), d.cdata({"<&>"}), d.end())},
        {"<a><![CDATA[]]></a>", EVENTS(d.start("a"), d.cdata({}), d.end())},
        {"<a><![CDATA[]]]]><![CDATA[>]]></a>", EVENTS(d.start("a"), d.cdata({"]]>"}), d.end())},
        {"<a><![CDATA[]]]]><![CDATA[>]]></a>", EVENTS(d.start("a"), d.cdata({"]", "]", ">"}), d.end())},
        {"<a><![CDATA[]]]]]]><![CDATA[>>]]></a>", EVENTS(d.start("a"), d.cdata({"]]]", "]>>"}), d.end())},
        {"<a><![CDATA[]>]]]></a>", EVENTS(d.start("a"), d.cdata({"]>]"}), d.end())},
        {"<a><![CDATA[]]]]><![CDATA[]]></a>", EVENTS(d.start("a"), d.cdata({"]]"}), d.cdata({}), d.end())},
        {"<a><![CDATA[x]]>&#xD;<![CDATA[\n]]></a>", EVENTS(d.start("a"), d.cdata({"x\r\n"}), d.end())},
    });
}

TEST(XMLWriterTest, FindsPrefixesForNames)
{
    expectWritten({
        // qualified names that fit are kept
        {"<p:a xmlns:p=\"u\" p:b=\"\"/>",
         EVENTS(d.startPrefixMapping("p", "u"), d.start("u", "a", "p:a", {{"u", "b", "p:b", ""}}), d.end())},
        // empty qualified names: the default namespace for elements, never for attributes
        {"<a xmlns=\"u\" xmlns:p=\"u\" p:b=\"\"/>",
         EVENTS(d.startPrefixMapping("", "u"), d.startPrefixMapping("p", "u"),
                d.start("u", "a", "", {{"u", "b", "", ""}}), d.end())},
        {"<a xmlns=\"u\" xmlns:ns1=\"u\" ns1:b=\"\"/>",
         EVENTS(d.startPrefixMapping("", "u"), d.start("u", "a", "", {{"u", "b", "", ""}}), d.end())},
        // declared where nothing is
        {"<a xmlns=\"u\"/>",
         EVENTS(d.start("u", "a"), d.end())},
        {"<p:a xmlns:p=\"u\"/>",
         EVENTS(d.start("u", "a", "p:a"), d.end())},
        {"<a xmlns:p=\"u\" p:b=\"\"/>",
         EVENTS(d.start("", "a", "a", {{"u", "b", "p:b", ""}}), d.end())},
        {"<a xmlns:ns1=\"u\" ns1:b=\"\" ns1:c=\"\" xmlns:ns2=\"v\" ns2:b=\"\"/>",
         EVENTS(d.start("", "a", "a", {{"u", "b", "", ""}, {"u", "c", "", ""}, {"v", "b", "", ""}}), d.end())},
        // an invented prefix is none that is in use
        {"<a xmlns:ns1=\"u\"><b xmlns:ns2=\"v\" ns2:c=\"\"/></a>",
         EVENTS(d.startPrefixMapping("ns1", "u"), d.start("a"), d.start("", "b", "b", {{"v", "c", "", ""}}),
                d.end(), d.end())},
        // the prefix stands for another namespace
        {"<p:a xmlns:p=\"u\"><p:b xmlns:p=\"v\"/></p:a>",
         EVENTS(d.start("u", "a", "p:a"), d.start("v", "b", "p:b"), d.end(), d.end())},
        {"<ns1:a xmlns:p=\"u\" xmlns:ns1=\"v\"/>",
         EVENTS(d.startPrefixMapping("p", "u"), d.start("v", "a", "p:a"), d.end())},
        {"<p:a xmlns:p=\"u\" xmlns:ns1=\"v\" ns1:b=\"\"/>",
         EVENTS(d.start("u", "a", "p:a", {{"v", "b", "p:b", ""}}), d.end())},
        // an outer prefix that is hidden does not count
        {"<p:a xmlns:p=\"u\"><b xmlns:p=\"v\" xmlns=\"u\"/></p:a>",
         EVENTS(d.start("u", "a", "p:a"), d.startPrefixMapping("p", "v"), d.start("u", "b"), d.end(), d.end())},
        // no namespace inside a default namespace
        {"<a xmlns=\"u\"><b xmlns=\"\"><c/></b><d/></a>",
         EVENTS(d.start("u", "a"), d.start("", "b"), d.start("", "c"), d.end(), d.end(),
                d.start("u", "d"), d.end(), d.end())},
        // declarations as attributes
        {"<a xmlns=\"u\" xmlns:p=\"v\" b=\"\"/>",
         EVENTS(d.start("u", "a", "a", {{"", "", "xmlns", "u"}, {"", "b", "b", ""}, {"", "", "xmlns:p", "v"}}),
                d.end())},
        {"<a xmlns=\"u\" xmlns:p=\"v\"/>",
         [](Document& d)
         {
             const std::string xmlns = "http://www.w3.org/2000/xmlns/";
             d.start("u", "a", "a", {{xmlns, "xmlns", "", "u"}, {xmlns, "p", "", "v"}}), d.end();
         }},
        // names that are known as qualified names only
        {"<p:a xmlns:p=\"u\" p:b=\"\" c=\"\"><d/></p:a>",
         EVENTS(d.startPrefixMapping("p", "u"), d.start("", "", "p:a", {{"", "", "p:b", ""}, {"", "", "c", ""}}),
                d.start("", "", "d"), d.end(), d.end())},
        {"<xml:a xml:lang=\"en\" xml:space=\"preserve\"/>",
         [](Document& d)
         {
             const std::string& xml = NamespaceSupport::XML_NAMESPACE;
             d.startPrefixMapping("xml", xml);
             d.start(xml, "a", "", {{xml, "lang", "", "en"}, {"", "", "xml:space", "preserve"}}), d.end();
         }},
        {"<a xmlns=\"&lt;&quot;&amp;&#xA;\"/>",
         EVENTS(d.start("<\"&\n", "a"), d.end())},
        {"<n\xC3\xA4-1._ \xE6\xBC\xA2=\"\"/>",
         EVENTS(d.start("n\xC3\xA4-1._", {{"", "\xE6\xBC\xA2", "", ""}}), d.end())},
    });
}

TEST(XMLWriterTest, WritesDocumentTypes)
{
    const std::string pub = "public";
    const std::string sys = "system";
    const std::string none;
    expectWritten({
        {"<!DOCTYPE p:a PUBLIC \"public\" \"it's\">\n<a/>",
         EVENTS(d.startDTD("p:a", "public", "it's"), d.endDTD(), d.start("a"), d.end())},
        {"<!DOCTYPE a SYSTEM 'a \"quoted\" id'>\n<a/>",
         EVENTS(d.startDTD("a", "", "a \"quoted\" id"), d.endDTD(), d.start("a"), d.end())},
        {"<!DOCTYPE a PUBLIC \"public\" \"\">\n<a/>",
         EVENTS(d.startDTD("a", "public", ""), d.endDTD(), d.start("a"), d.end())},
        {"<!DOCTYPE a>\n<a/>", EVENTS(d.startDTD("a", "", ""), d.endDTD(), d.start("a"), d.end())},
        // without a name, held back
        {"<!--1-->\n<!DOCTYPE p:a SYSTEM \"system\" [\n<?pi data?>\n<!--2-->\n]>\n<!--3-->\n<p:a xmlns:p=\"u\"/>",
         EVENTS(d.remark("1"), d.startDTD("", "", "system"), d.processingInstruction("pi", "data"), d.remark("2"),
                d.endDTD(), d.remark("3"), d.start("u", "a", "p:a"), d.end())},
        // declarations inside
        {"<!DOCTYPE a [\n<!NOTATION n PUBLIC \"public\">\n<!NOTATION m SYSTEM \"system\">\n"
         "<!NOTATION o PUBLIC \"public\" \"system\">\n<!NOTATION q SYSTEM \"\">\n"
         "<!ENTITY e SYSTEM \"system\" NDATA n>\n<!ENTITY f PUBLIC \"public\" \"system\" NDATA n>\n]>\n<a/>",
         EVENTS(d.startDTD("a", "", ""), d.notationDecl("n", &pub, nullptr), d.notationDecl("m", &none, &sys),
                d.notationDecl("o", &pub, &sys), d.notationDecl("q", nullptr, &none),
                d.unparsedEntityDecl("e", &none, sys, "n"), d.unparsedEntityDecl("f", &pub, sys, "n"), d.endDTD(),
                d.start("a"), d.end())},
        // entity references
        {"<!DOCTYPE a SYSTEM \"system\">\n<a>x&e;y</a>",
         EVENTS(d.skippedEntity("[dtd]"), d.startDTD("a", "", "system"), d.skippedEntity("%p"), d.endDTD(),
                d.start("a"), d.text("x"), d.skippedEntity("e"), d.text("y"), d.end())},
    });
}

TEST(XMLWriterTest, DeclarationsMayComeBeforeTheDocument)
{
    const std::string sys = "s";
    for (const bool hasDoctype : {false, true})
    {
        std::ostringstream out;
        Document document(out);
        document.notationDecl("n", nullptr, &sys);
        document.unparsedEntityDecl("e", nullptr, "s", "n");
        for (int round = 0; round < 2; ++round) // they belong to the first document only
        {
            document.startDocument();
            document.processingInstruction("p", "");
            if (hasDoctype)
                document.startDTD("", "", ""), document.endDTD();
            document.start("a"), document.end();
            document.endDocument();
        }
        EXPECT_EQ(out.str(), std::string("<?p?>\n<!DOCTYPE a [\n<!NOTATION n SYSTEM \"s\">\n"
                                         "<!ENTITY e SYSTEM \"s\" NDATA n>\n]>\n<a/><?p?>\n") +
                                 (hasDoctype ? "<!DOCTYPE a>\n<a/>" : "<a/>"));
    }
}

TEST(XMLWriterTest, OptionsAddADeclarationAndLayout)
{
    const auto events =
        EVENTS(d.remark("c"), d.start("a"), d.start("b"), d.text("text"), d.start("c"), d.start("d"), d.end(), d.end(),
               d.end(), d.start("e"), d.start("f"), d.end(), d.remark("g"), d.end(), d.processingInstruction("h", "i"),
               d.start("", "j", "j", {{NamespaceSupport::XML_NAMESPACE, "space", "", "preserve"}}), d.start("k"),
               d.end(), d.end(), d.start("l"), d.cdata({" "}), d.start("m"), d.end(), d.end(), d.end(), d.remark("n"));
    const std::string content = "<b>text<c><d/></c></b>\n  <e>\n    <f/>\n    <!--g-->\n  </e>\n  <?h i?>\n  "
                                "<j xml:space=\"preserve\"><k/></j>\n  <l><![CDATA[ ]]><m/></l>\n";
    expectWritten({{"<!--c-->\n<a>\n  " + content + "</a>\n<!--n-->\n", events}}, XMLWriter::PRETTY_PRINT);
    expectWritten({{"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a/>", EVENTS(d.start("a"), d.end())}},
                  XMLWriter::WRITE_XML_DECLARATION);
    expectWritten({{"<!--c-->\n<a><b>text<c><d/></c></b><e><f/><!--g--></e><?h i?><j xml:space=\"preserve\"><k/></j>"
                    "<l><![CDATA[ ]]><m/></l></a>\n<!--n-->",
                    events}});
}

TEST(XMLWriterTest, LayoutAroundTheRootElementIsDropped)
{
    EXPECT_EQ(written(EVENTS(d.text(" \n"), d.start("a"), d.end(), d.text("\r\t"))), "<a/>");
}

TEST(XMLWriterTest, RefusesWhatTextCannotSay)
{
    const std::string quotes = "\"'";
    const struct
    {
        const char* message;
        Events events;
    } CASES[] = {
        {"Character not allowed in XML: U+0001",
         EVENTS(d.start("a"), d.text("\x01"))},
        {"Character not allowed in XML: U+0000",
         EVENTS(d.start("a"), d.text(std::string(40, '\0')))},
        {"Character not allowed in XML: U+001F",
         EVENTS(d.start("a", {{"", "b", "", "\x1F"}}))},
        {"Character not allowed in XML: U+FFFF",
         EVENTS(d.start("a"), d.text("\xEF\xBF\xBF"))},
        {"Character not allowed in XML: U+FFFE",
         EVENTS(d.start("a"), d.cdata({"\xEF\xBF\xBE"}))},
        {"Character not allowed in XML: U+000B",
         EVENTS(d.remark("\x0B"))},
        {"Character not allowed in XML: U+000C",
         EVENTS(d.processingInstruction("p", "\x0C"))},
        {"Character not allowed in XML: U+0002",
         EVENTS(d.start("\x02", "a"))},
        {"Text is not well-formed UTF-8",
         EVENTS(d.start("a"), d.text("\x80"))},
        {"Text is not well-formed UTF-8",
         EVENTS(d.start("a"), d.text("\xC3"))},
        {"Text is not well-formed UTF-8",
         EVENTS(d.start("a"), d.text("\xC0\x80"))},
        {"Text is not well-formed UTF-8",
         EVENTS(d.start("a"), d.text("\xE0\x9F\xBF"))},
        {"Text is not well-formed UTF-8",
         EVENTS(d.start("a"), d.text("\xED\xA0\x80"))},
        {"Text is not well-formed UTF-8",
         EVENTS(d.start("a"), d.text("\xF4\x90\x80\x80"))},
        {"Text is not well-formed UTF-8",
         EVENTS(d.start("a"), d.text("\xF8\x88\x80\x80\x80"))},
        {"Text is not well-formed UTF-8",
         EVENTS(d.start("a"), d.text("\xE2\x82x"))},
        {"Invalid name: 1a",
         EVENTS(d.start("1a"))},
        {"Invalid name: a b",
         EVENTS(d.start("", "a b"))},
        {"Invalid name: a:b",
         EVENTS(d.start("", "a:b"))},
        {"Invalid name: \xC3\x97",
         EVENTS(d.start("\xC3\x97"))},
        {"Invalid name: \xCC\x80x",
         EVENTS(d.start("\xCC\x80x"))},
        {"Invalid name: a\xC3",
         EVENTS(d.start("a\xC3"))},
        {"Invalid name: >",
         EVENTS(d.start("a", {{"", ">", "", ""}}))},
        {"Empty name",
         EVENTS(d.start("", ""))},
        {"Empty name",
         EVENTS(d.start("u", ""))},
        {"Empty name",
         EVENTS(d.start("a", {{"", "", "", "value"}}))},
        {"Attribute occurs twice: b",
         EVENTS(d.start("a", {{"", "b", "", ""}, {"", "b", "", ""}}))},
        {"Attribute occurs twice: b",
         EVENTS(d.startPrefixMapping("p", "u"), d.start("", "a", "a", {{"u", "b", "", ""}, {"", "", "p:b", ""}}))},
        {"Attribute occurs twice: n7",
         [](Document& d)
         {
             std::vector<Document::Attribute> many;
             for (int i = 0; i < 100; ++i)
                 many.push_back({"", "n" + std::to_string(i), "", ""});
             many.push_back({"", "n7", "", ""});
             d.start("a", many);
         }},
        {"Undeclared prefix: p",
         EVENTS(d.start("", "", "p:a"))},
        {"Undeclared prefix: p",
         EVENTS(d.start("a", {{"", "", "p:b", ""}}))},
        {"Prefix without a namespace: p",
         EVENTS(d.startPrefixMapping("p", ""))},
        {"Prefix or namespace is reserved: xml=u",
         EVENTS(d.startPrefixMapping("xml", "u"))},
        {"Prefix or namespace is reserved: xmlns=u",
         EVENTS(d.start("u", "a", "xmlns:a"))},
        {"Prefix or namespace is reserved: p=http://www.w3.org/XML/1998/namespace",
         EVENTS(d.startPrefixMapping("p", NamespaceSupport::XML_NAMESPACE))},
        {"Prefix or namespace is reserved: =http://www.w3.org/2000/xmlns/",
         EVENTS(d.start("http://www.w3.org/2000/xmlns/", "a"))},
        {"Invalid name: p q",
         EVENTS(d.startPrefixMapping("p q", "u"))},
        {"Element without namespace declares a default namespace: a",
         EVENTS(d.startPrefixMapping("", "u"), d.start("", "a"))},
        {"Comment contains \"--\" or ends in \"-\"",
         EVENTS(d.remark("a--b"))},
        {"Comment contains \"--\" or ends in \"-\"",
         EVENTS(d.remark("a-"))},
        {"Processing instruction contains \"?>\": p",
         EVENTS(d.processingInstruction("p", "a?>b"))},
        {"Invalid name: XmL",
         EVENTS(d.processingInstruction("XmL", ""))},
        {"Invalid name: a:b",
         EVENTS(d.processingInstruction("a:b", ""))},
        {"Invalid name: ",
         EVENTS(d.processingInstruction("", ""))},
        {"Invalid name: a:b:c",
         EVENTS(d.startDTD("a:b:c", "", ""))},
        {"Public identifier cannot be written: <",
         EVENTS(d.startDTD("a", "<", ""))},
        {"System identifier cannot be written: \"'",
         EVENTS(d.startDTD("a", "", quotes))},
        {"Invalid name: 1",
         EVENTS(d.notationDecl("1", nullptr, nullptr))},
        {"Invalid name: ",
         EVENTS(d.unparsedEntityDecl("e", nullptr, "s", ""))},
        {"Invalid name: e;",
         EVENTS(d.start("a"), d.skippedEntity("e;"))},
        {"Reference to an undeclared entity: e",
         EVENTS(d.start("a"), d.skippedEntity("e"))},
        {"Character data outside of the root element",
         EVENTS(d.text("x"))},
        {"Character data outside of the root element",
         EVENTS(d.start("a"), d.end(), d.text(" x"))},
        {"Character data outside of the root element",
         EVENTS(d.startDTD("a", "", ""), d.text(" "))},
        {"CDATA section outside of the root element",
         EVENTS(d.startCDATA())},
        {"CDATA section inside a CDATA section",
         EVENTS(d.start("a"), d.startCDATA(), d.startCDATA())},
        {"Element inside a CDATA section",
         EVENTS(d.start("a"), d.startCDATA(), d.start("b"))},
        {"End of element inside a CDATA section",
         EVENTS(d.start("a"), d.startCDATA(), d.end())},
        {"Comment inside a CDATA section",
         EVENTS(d.start("a"), d.startCDATA(), d.remark(""))},
        {"Unbalanced end of CDATA section",
         EVENTS(d.start("a"), d.endCDATA())},
        {"Unbalanced end of element",
         EVENTS(d.end())},
        {"Element in the wrong place: b",
         EVENTS(d.start("a"), d.end(), d.start("b"))},
        {"Element in the wrong place: a",
         EVENTS(d.startDTD("a", "", ""), d.start("a"))},
        {"Document type declaration in the wrong place",
         EVENTS(d.start("a"), d.startDTD("a", "", ""))},
        {"Document type declaration in the wrong place",
         EVENTS(d.startDTD("a", "", ""), d.endDTD(), d.startDTD("a", "", ""))},
        {"Unbalanced end of the document type declaration",
         EVENTS(d.endDTD())},
        {"Notation or entity declaration in the wrong place",
         EVENTS(d.start("a"), d.notationDecl("n", nullptr, nullptr))},
        {"End of document in the wrong place",
         [](Document&) {
         }},
        {"End of document in the wrong place",
         EVENTS(d.start("a"))},
        {"End of document in the wrong place",
         EVENTS(d.startDTD("a", "", ""))},
    };
    for (const auto& row : CASES)
    {
        SCOPED_TRACE(row.message);
        EXPECT_VESK_THROW(written(row.events), SAXException, row.message);
    }
}

TEST(XMLWriterTest, WhatIsHeldBackIsBounded)
{
    const std::string data(1024 * 1024, 'x');
    const auto fill = [&](const std::function<void(Document&)>& start, const std::function<void(Document&)>& item)
    {
        return [=](Document& d)
        {
            start(d);
            for (int i = 0; i < 20; ++i)
                item(d);
        };
    };
    const char* const message = "Too much in front of the root element";
    const auto instruction = EVENTS(d.processingInstruction("p", data));
    EXPECT_VESK_THROW(written(fill(EVENTS(d.startDTD("", "", "")), instruction)), SAXException, message);
    EXPECT_VESK_THROW(written(fill([](Document&) {}, EVENTS(d.notationDecl("n", nullptr, &data)))), SAXException,
                      message);
    const std::string name(1024 * 1024, 'n');
    EXPECT_VESK_THROW(written(
                          [&](Document& d)
                          {
                              for (int i = 0; i < 300; ++i)
                                  d.start(name);
                          }),
                      SAXException, "Elements nested too deeply for the length of their names");
}

TEST(XMLWriterTest, AMillionNestedElementsAreWritten)
{
    constexpr int DEPTH = 1000000;
    NullOutputStream out;
    for (const int options : {XMLWriter::CANONICAL, XMLWriter::PRETTY_PRINT})
    {
        Document document(out, options);
        document.startDocument();
        for (int i = 0; i < DEPTH; ++i)
            document.start("u", "a");
        for (int i = 0; i < DEPTH; ++i)
            document.end();
        EXPECT_NO_THROW(document.endDocument());
    }
}

TEST(XMLWriterTest, AnElementWithAHundredThousandAttributesStaysFast)
{
    std::vector<Document::Attribute> attributes;
    for (int i = 0; i < 100000; ++i)
        attributes.push_back({"urn:" + std::to_string(i % 1000), "n" + std::to_string(i / 1000), "", ""});
    const std::string xml = written(EVENTS(d.start("", "a", "a", attributes), d.end()));
    EXPECT_NO_THROW(eventsOfXML(xml));
}

TEST(XMLWriterTest, EveryWriteFailsOnceTheStreamHasFailed)
{
    RecordingOutputStream out(100000);
    Document document(out);
    document.startDocument();
    document.start("a");
    const std::string text(50000, 'x');
    const auto writeOn = [&]
    {
        for (int i = 0; i < 10; ++i)
            document.text(text);
    };
    EXPECT_VESK_THROW(writeOn(), IOException, "Cannot write the XML document");
    EXPECT_VESK_THROW(writeOn(), IOException, "Cannot write the XML document");
    document.end();
    EXPECT_VESK_THROW(document.endDocument(), IOException, "Cannot write the XML document");
}

TEST(XMLWriterTest, AFailingFlushIsNoticed)
{
    RecordingOutputStream out;
    out.failToFlush();
    Document document(out);
    document.startDocument();
    document.start("a"), document.end();
    EXPECT_VESK_THROW(document.endDocument(), IOException, "Cannot write the XML document");
}

TEST(XMLWriterTest, ADestroyedWriterLeavesWhatItHas)
{
    std::ostringstream out;
    {
        Document document(out);
        document.startDocument();
        document.start("a");
        document.text("text");
    }
    EXPECT_EQ(out.str(), "<a>text");
}
