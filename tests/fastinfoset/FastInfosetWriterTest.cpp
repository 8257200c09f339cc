// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "EventLog.h"
#include "ExceptionMatcher.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/XML/AttributesImpl.h"
#include "Vesk/XML/NamespaceSupport.h"
#include <array>
#include <functional>
#include <sstream>
#include <stdexcept>

namespace Vesk::FastInfoset
{

namespace
{

using Events = std::function<void(FastInfosetWriter&)>;
using VocabularyImpl = DocumentVocabulary::VocabularyImpl;

/// URI, local name, qualified name and value of each.
XML::AttributesImpl attributes(std::initializer_list<std::array<const char*, 4>> list)
{
    XML::AttributesImpl result;
    for (const auto& [uri, localName, qname, value] : list)
        result.addAttribute(uri, localName, qname, "CDATA", value);
    return result;
}

void start(FastInfosetWriter& writer, const char* uri, const char* localName, const char* qname,
           std::initializer_list<std::array<const char*, 4>> list = {})
{
    writer.startElement(uri, localName, qname, attributes(list));
}

void end(FastInfosetWriter& writer, int count = 1)
{
    for (; count > 0; --count)
        writer.endElement("", "", "");
}

void comment(FastInfosetWriter& writer, const std::string& text)
{
    writer.comment(text.data(), 0, static_cast<int>(text.size()));
}

std::string written(const Events& events, VocabularyImpl impl = DocumentVocabulary::VOC_HASH)
{
    std::ostringstream stream;
    FastInfosetWriter writer(stream, false, impl);
    events(writer);
    return stream.str();
}

struct DocumentCase
{
    const char* name;
    Events events;
    std::string octets;
};

/// Rows of whole documents. What a writer with either kind of tables writes, a parser also reads.
void expectDocuments(std::initializer_list<DocumentCase> cases)
{
    for (const DocumentCase& row : cases)
    {
        SCOPED_TRACE(row.name);
        const std::string octets = octetsOf(row.octets);
        for (const VocabularyImpl impl : {DocumentVocabulary::VOC_HASH, DocumentVocabulary::VOC_MAP})
            EXPECT_EQ(hexOf(written(row.events, impl)), hexOf(octets));
        const std::string events = eventsEverywhere<TypedEventLog>(octets);
        EXPECT_EQ(events.find('!'), std::string::npos) << events;
    }
}

/// Rows of what stands between header and end, with the octets that follow an empty header.
void expectBodies(std::initializer_list<DocumentCase> cases)
{
    for (const DocumentCase& row : cases)
    {
        const auto events = [&row](FastInfosetWriter& writer)
        {
            writer.startDocument();
            row.events(writer);
            writer.endDocument();
        };
        expectDocuments({{row.name, events, "E0 00 00 01 00 " + row.octets}});
    }
}

std::string quoted(std::size_t size, char character = 'x')
{
    return "'" + std::string(size, character) + "'";
}

const char XML_NAMESPACE[] = "http://www.w3.org/XML/1998/namespace";

} // namespace

TEST(FastInfosetWriterTest, Elements)
{
    const auto root = [](FastInfosetWriter& writer)
    {
        start(writer, "", "a", "a");
    };
    expectBodies({
        {"none", [](FastInfosetWriter&) {}, "F0"},
        {"one",
         [=](FastInfosetWriter& writer)
         {
             root(writer);
             end(writer);
         },
         "[0 0 1111 00] 00 'a' [1111 1111]"},
        {"siblings, the first of which ends within an octet",
         [=](FastInfosetWriter& writer)
         {
             root(writer);
             start(writer, "", "b", "b");
             end(writer);
             start(writer, "", "c", "c");
             end(writer, 2);
         },
         "3C 00 'a' 3C 00 'b' F0 3C 00 'c' FF F0"},
        {"nested, whose ends share octets",
         [=](FastInfosetWriter& writer)
         {
             root(writer);
             start(writer, "", "b", "b");
             start(writer, "", "c", "c");
             end(writer, 3);
         },
         "3C 00 'a' 3C 00 'b' 3C 00 'c' FF FF"},
        {"name known already",
         [=](FastInfosetWriter& writer)
         {
             root(writer);
             root(writer);
             end(writer);
             root(writer);
             end(writer, 2);
         },
         "3C 00 'a' [0 0 000000] F0 00 FF F0"},
        {"name whose local name alone is known",
         [=](FastInfosetWriter& writer)
         {
             start(writer, "", "a", "a", {{"", "a", "a", "1"}});
             end(writer);
         },
         "7C 00 'a' [0 1111 0 00] 80 40 '1' FF F0"},
        {"qualified name only",
         [](FastInfosetWriter& writer)
         {
             start(writer, "", "", "p:a");
             end(writer);
         },
         "3C 02 'p:a' FF"},
        {"convenience",
         [](FastInfosetWriter& writer)
         {
             writer.startElement("", "a", "a");
             writer.emptyElement("", "b", "b");
             writer.emptyElement("", "b", "b", attributes({{"", "c", "c", "1"}}));
             writer.dataElement("", "b", "b", "text");
             writer.dataElement("", "b", "b", "text", "c", "1", "", "ignored", "d", "2");
             writer.dataElement("", "b", "b", "", "c", "1");
             end(writer);
         },
         "3C 00 'a' 3C 00 'b' F0 [0 1 000001] 78 00 'c' 40 '1' FF 01 [10 0 1 00 10] 01 'text' F0"
         "41 00 80 78 00 'd' 40 '2' F0 [10 1 00000] F0 41 00 80 FF FF"},
    });
}

TEST(FastInfosetWriterTest, NameIndexesGrow)
{
    const std::string octets = written(
        [](FastInfosetWriter& writer)
        {
            writer.startDocument();
            start(writer, "", "root", "root");
            for (int i = 2; i <= 33; ++i)
                writer.emptyElement("", "name" + std::to_string(i), "");
            writer.emptyElement("", "name32", "");
            writer.emptyElement("", "name33", "");
            end(writer);
            writer.endDocument();
        });
    EXPECT_EQ(hexOf(octets.substr(octets.size() - 6)), "1F F0 20 00 FF F0") << "32, then 33 in the next form";
}

TEST(FastInfosetWriterTest, Namespaces)
{
    const auto mapped = [](FastInfosetWriter& writer)
    {
        writer.startPrefixMapping("p", "u");
    };
    const char* const ONE_PREFIX = "[0 0 111000] [110011 11] 00 'p' 00 'u' F0 [00 1111 11] 81 81 00 'a' FF";
    expectBodies({
        {"prefix mapping",
         [=](FastInfosetWriter& writer)
         {
             mapped(writer);
             start(writer, "u", "a", "p:a");
             end(writer);
             writer.endPrefixMapping("p");
         },
         ONE_PREFIX},
        {"xmlns attribute",
         [](FastInfosetWriter& writer)
         {
             start(writer, "u", "a", "p:a", {{"", "", "xmlns:p", "u"}});
             end(writer);
         },
         ONE_PREFIX},
        {"prefix mapping and xmlns attribute that names its namespace",
         [=](FastInfosetWriter& writer)
         {
             mapped(writer);
             start(writer, "u", "a", "p:a", {{"http://www.w3.org/2000/xmlns/", "p", "xmlns:p", "u"}});
             end(writer);
         },
         ONE_PREFIX},
        {"prefix of the qualified name that nobody declared",
         [](FastInfosetWriter& writer)
         {
             start(writer, "u", "a", "p:a");
             end(writer);
         },
         ONE_PREFIX},
        {"prefix found by the namespace name",
         [=](FastInfosetWriter& writer)
         {
             mapped(writer);
             start(writer, "u", "a", "");
             end(writer);
         },
         ONE_PREFIX},
        {"default namespace",
         [](FastInfosetWriter& writer)
         {
             start(writer, "u", "a", "a", {{"", "", "xmlns", "u"}});
             end(writer);
         },
         "38 [110011 01] 00 'u' F0 [00 1111 01] 81 00 'a' FF"},
        {"default namespace taken back",
         [](FastInfosetWriter& writer)
         {
             start(writer, "", "a", "a", {{"", "", "xmlns", ""}});
             end(writer);
         },
         "38 [110011 00] F0 3C 00 'a' FF"},
        {"in order of prefix",
         [](FastInfosetWriter& writer)
         {
             writer.startPrefixMapping("q", "v");
             writer.startPrefixMapping("", "w");
             start(writer, "w", "a", "a", {{"", "", "xmlns:p", "u"}});
             end(writer);
         },
         "38 CD 00 'w' CF 00 'p' 00 'u' CF 00 'q' 00 'v' F0 3D 81 00 'a' FF"},
        {"prefix bound to another namespace further in",
         [](FastInfosetWriter& writer)
         {
             start(writer, "u1", "a", "p:a");
             start(writer, "u2", "a", "p:a");
             end(writer, 2);
         },
         "38 CF 00 'p' 01 'u1' F0 3F 81 81 00 'a' 38 CF 81 01 'u2' F0 3F 81 82 80 FF F0"},
        {"prefix in no namespace",
         [](FastInfosetWriter& writer)
         {
             start(writer, "u", "a", "p:a");
             start(writer, "", "a", "p:a");
             end(writer, 2);
         },
         "38 CF 00 'p' 00 'u' F0 3F 81 81 00 'a' 38 [110011 10] 81 F0 [00 1111 10] 81 80 FF F0"},
        {"mapping that ends with its element",
         [=](FastInfosetWriter& writer)
         {
             start(writer, "", "r", "r");
             mapped(writer);
             start(writer, "u", "a", "p:a");
             end(writer);
             writer.endPrefixMapping("p");
             start(writer, "", "b", "b");
             end(writer, 2);
         },
         "3C 00 'r' 38 CF 00 'p' 00 'u' F0 3F 81 81 00 'a' F0 3C 00 'b' FF F0"},
        {"invented prefix, which later siblings declare again",
         [](FastInfosetWriter& writer)
         {
             start(writer, "", "r", "r");
             start(writer, "u", "a", "");
             end(writer);
             start(writer, "u", "a", "a");
             end(writer);
             start(writer, "", "b", "b");
             end(writer, 2);
         },
         "3C 00 'r' 38 CF 02 'ns1' 00 'u' F0 3F 81 81 00 'a' F0 38 CF 81 81 F0 [00 000001] F0"
         "38 CF 81 81 F0 3C 00 'b' FF F0"},
        {"invented prefix that is taken",
         [](FastInfosetWriter& writer)
         {
             writer.startPrefixMapping("ns1", "v");
             start(writer, "u", "a", "");
             end(writer);
         },
         "38 CF 02 'ns1' 00 'v' CF 02 'ns2' 00 'u' F0 3F 82 82 00 'a' FF"},
        {"the prefix xml, which needs no declaration",
         [](FastInfosetWriter& writer)
         {
             writer.startPrefixMapping("xml", XML_NAMESPACE);
             start(writer, "", "a", "a",
                   {{"", "", "xmlns:xml", XML_NAMESPACE}, {XML_NAMESPACE, "lang", "xml:lang", "en"}});
             end(writer);
             writer.endPrefixMapping("xml");
         },
         "7C 00 'a' [0 1111 0 11] 80 80 03 'lang' 41 'en' FF F0"},
    });
}

TEST(FastInfosetWriterTest, Attributes)
{
    const auto element = [](std::initializer_list<std::array<const char*, 4>> list)
    {
        const XML::AttributesImpl copy = attributes(list);
        return [copy](FastInfosetWriter& writer)
        {
            writer.startElement("", "a", "a", copy);
            end(writer);
        };
    };
    const std::string text16(16, 'x');
    const std::string text17(17, 'x');
    expectBodies({
        {"value known already", element({{"", "b", "b", "1"}, {"", "c", "c", "1"}, {"", "d", "d", "2"}}),
         "[0 1 1111 00] 00 'a' [0 1111 0 00] 00 'b' [0 1 00 0 000] '1' 78 00 'c' [1 0000000] 78 00 'd' 40 '2' FF F0"},
        {"name known already",
         [=](FastInfosetWriter& writer)
         {
             start(writer, "", "a", "a", {{"", "b", "b", "1"}});
             start(writer, "", "a", "a", {{"", "b", "b", "1"}});
             end(writer, 2);
         },
         "7C 00 'a' 78 00 'b' 40 '1' F0 [0 1 000000] [0 0000000] 80 FF FF"},
        {"empty value", element({{"", "b", "b", ""}}), "7C 00 'a' 78 00 'b' FF FF F0"},
        {"16 octets", element({{"", "b", "b", text16.c_str()}, {"", "c", "c", text16.c_str()}}),
         "7C 00 'a' 78 00 'b' [0 1 00 1000] 07 " + quoted(16) + " 78 00 'c' 80 FF F0"},
        {"17 octets", element({{"", "b", "b", text17.c_str()}, {"", "c", "c", text17.c_str()}}),
         "7C 00 'a' 78 00 'b' [0 0 00 1000] 08 " + quoted(17) + " 78 00 'c' 08 08 " + quoted(17) + " FF F0"},
        {"local name left out", element({{"", "", "p:b", "1"}}), "7C 00 'a' 78 00 'b' 40 '1' FF F0"},
        {"in another namespace", element({{"u", "b", "p:b", "1"}}),
         "[0 1 111000] CF 00 'p' 00 'u' F0 3C 00 'a' [0 1111 0 11] 81 81 00 'b' 40 '1' FF F0"},
        {"without a prefix, for which the default namespace is declared", element({{"u", "b", "b", "1"}}),
         "78 CD 00 'u' F0 3C 00 'a' [0 1111 0 01] 81 00 'b' 40 '1' FF F0"},
        {"without a prefix, in a namespace that has one",
         [](FastInfosetWriter& writer)
         {
             writer.startPrefixMapping("p", "u");
             start(writer, "", "a", "a", {{"u", "b", "b", "1"}});
             end(writer);
         },
         "78 CF 00 'p' 00 'u' F0 3C 00 'a' 7B 81 81 00 'b' 40 '1' FF F0"},
        {"in the namespace of the element, where it needs no prefix",
         [](FastInfosetWriter& writer)
         {
             start(writer, "u", "a", "p:a", {{"u", "b", "p:b", "1"}});
             end(writer);
         },
         "78 CF 00 'p' 00 'u' F0 3F 81 81 00 'a' 79 81 00 'b' 40 '1' FF F0"},
        {"xmlns attributes are not counted", element({{"", "", "xmlns:p", "u"}, {"", "xmlnsx", "xmlnsx", "1"}}),
         "78 CF 00 'p' 00 'u' F0 3C 00 'a' 78 05 'xmlnsx' 40 '1' FF F0"},
    });
}

TEST(FastInfosetWriterTest, Text)
{
    const auto text = [](std::initializer_list<std::string> chunks)
    {
        const std::vector<std::string> copy(chunks);
        return [copy](FastInfosetWriter& writer)
        {
            start(writer, "", "a", "a");
            for (const std::string& chunk : copy)
                writer.characters(chunk);
            end(writer);
        };
    };
    const std::string A = "3C 00 'a' ";
    expectBodies({
        {"known already", text({"hi", "hi", "x"}), A + "[10 0 1 00 0 1] 'hi' [10 1 0 0000] [10 0 1 00 0 0] 'x' FF"},
        {"nothing", text({"", ""}), A + "FF"},
        {"16 octets", text({std::string(16, 'x'), std::string(16, 'x')}),
         A + "[10 0 1 00 10] 0D " + quoted(16) + " A0 FF"},
        {"17 octets", text({std::string(17, 'x'), std::string(17, 'x')}),
         A + "[10 0 0 00 10] 0E " + quoted(17) + " 82 0E " + quoted(17) + " FF"},
        {"258 octets", text({std::string(258, 'x')}), A + "82 FF " + quoted(258) + " FF"},
        {"259 octets", text({std::string(259, 'x')}), A + "[10 0 0 00 11] 00 00 00 00 " + quoted(259) + " FF"},
        {"at the level of the document", [](FastInfosetWriter& writer) { writer.characters("x"); }, "90 'x' F0"},
        {"part of a buffer",
         [](FastInfosetWriter& writer)
         {
             writer.characters("abcdef", 1, 3);
             writer.ignorableWhitespace("    ", 2, 1);
         },
         "92 00 'bcd' 90 ' ' F0"},
        {"up to a zero octet",
         [](FastInfosetWriter& writer)
         {
             writer.characters("ab\0cd", 0, 5);
             writer.characters("ab\0cd", 1, 4);
             writer.characters("ab\0cd", 2, 3);
             writer.characters("ab", 2, 1000000);
         },
         "91 'ab' 90 'b' F0"},
        {"with a zero octet, as a string", [](FastInfosetWriter& writer) { writer.characters(std::string("\0", 1)); },
         "90 00 F0"},
    });
}

TEST(FastInfosetWriterTest, TextOutOfRange)
{
    written(
        [](FastInfosetWriter& writer)
        {
            writer.startDocument();
            for (const auto& [from, length] : {std::pair(3, 1), std::pair(4, 1), std::pair(-1, 1), std::pair(0, -1)})
                EXPECT_THROW(writer.characters("ab\0cd", from, length), std::out_of_range) << from << ' ' << length;
        });
}

TEST(FastInfosetWriterTest, CDATASections)
{
    const auto section = [](const char* text)
    {
        return [text](FastInfosetWriter& writer)
        {
            writer.startCDATA();
            writer.characters(text);
            writer.endCDATA();
        };
    };
    expectBodies({
        {"text", section("x"), "[10 0 1 11 00] [001001 0 0] 'x' F0"},
        {"text known already, which goes out as an index",
         [=](FastInfosetWriter& writer)
         {
             writer.characters("x");
             section("x")(writer);
             section("y")(writer);
             section("y")(writer);
         },
         "90 'x' A0 9C 24 'y' A1 F0"},
        {"text before and behind",
         [=](FastInfosetWriter& writer)
         {
             writer.characters("a");
             section("b")(writer);
             writer.characters("c");
         },
         "90 'a' 9C 24 'b' 90 'c' F0"},
        {"empty", section(""), "F0"},
        {"element within",
         [](FastInfosetWriter& writer)
         {
             writer.startCDATA();
             start(writer, "", "a", "a");
             writer.characters("b");
             end(writer);
             writer.characters("c");
             writer.endCDATA();
         },
         "3C 00 'a' 90 'b' F0 9C 24 'c' F0"},
    });
}

TEST(FastInfosetWriterTest, CommentsAndProcessingInstructions)
{
    expectBodies({
        {"comment",
         [](FastInfosetWriter& writer)
         {
             comment(writer, "hi");
             start(writer, "", "a", "a");
             comment(writer, "hi");
             comment(writer, std::string(17, 'x'));
             end(writer);
         },
         "E2 [0 1 00 0 001] 'hi' 3C 00 'a' E2 80 E2 08 08 " + quoted(17) + " FF"},
        {"comment that is part of a buffer", [](FastInfosetWriter& writer) { writer.comment("a--b\0c", 3, 3); },
         "E2 42 'b' 00 'c' F0"},
        {"empty comment", [](FastInfosetWriter& writer) { comment(writer, ""); }, "E2 FF F0"},
        {"processing instruction",
         [](FastInfosetWriter& writer)
         {
             writer.processingInstruction("t", "d");
             writer.processingInstruction("t", "d");
             writer.processingInstruction("t", "");
             writer.processingInstruction("d", "t");
         },
         "E1 00 't' 40 'd' E1 80 80 E1 80 FF E1 00 'd' 40 't' F0"},
        {"entities, which leave no trace",
         [](FastInfosetWriter& writer)
         {
             writer.setDocumentLocator(nullptr);
             writer.skippedEntity("e");
             writer.startEntity("e");
             writer.endEntity("e");
         },
         "F0"},
    });
}

TEST(FastInfosetWriterTest, DocumentTypeDeclarations)
{
    const auto declaration = [](const char* publicId, const char* systemId)
    {
        return [=](FastInfosetWriter& writer)
        {
            writer.startDTD("a", publicId, systemId);
            writer.endDTD();
        };
    };
    expectBodies({
        {"no identifiers", declaration("", ""), "[110001 00] FF"},
        {"system identifier", declaration("", "sys"), "[110001 10] 02 'sys' FF"},
        {"public identifier", declaration("pub", ""), "[110001 01] 02 'pub' FF"},
        {"both, the system identifier first", declaration("pub", "sys"), "[110001 11] 02 'sys' 02 'pub' FF"},
        {"the same", declaration("id", "id"), "C7 01 'id' 80 FF"},
        {"processing instruction within, element behind",
         [](FastInfosetWriter& writer)
         {
             writer.startDTD("a", "", "");
             writer.processingInstruction("t", "d");
             writer.endDTD();
             start(writer, "", "a", "a");
             end(writer);
         },
         "C4 E1 00 't' 40 'd' F0 3C 00 'a' FF"},
    });
}

TEST(FastInfosetWriterTest, HeaderLists)
{
    const std::string sys("sys");
    const std::string pub("pub");
    const auto document = [](const Events& declare)
    {
        return [declare](FastInfosetWriter& writer)
        {
            declare(writer);
            writer.startDocument();
            writer.endDocument();
        };
    };
    expectDocuments({
        {"nothing", document([](FastInfosetWriter&) {}), "E0 00 00 01 00 F0"},
        {"XML declaration", document([](FastInfosetWriter& writer) { writer.setWriteXMLDeclaration(true); }),
         "'<?xml encoding=' 27 'finf' 27 '?>' E0 00 00 01 00 F0"},
        {"notation", document([=](FastInfosetWriter& writer) { writer.notationDecl("n", &pub, &sys); }),
         "E0 00 00 01 [0 0 0 1 0 0 0 0] [110000 11] 00 'n' 02 'sys' 02 'pub' F0 F0"},
        {"notations with absent identifiers, which go out as empty ones",
         document(
             [=](FastInfosetWriter& writer)
             {
                 writer.notationDecl("n", nullptr, &sys);
                 writer.notationDecl("m", &pub, nullptr);
                 writer.notationDecl("n", nullptr, nullptr);
             }),
         "E0 00 00 01 10 C3 00 'n' 02 'sys' FF C3 00 'm' FF 02 'pub' C3 80 FF FF F0 F0"},
        {"unparsed entities",
         document(
             [=](FastInfosetWriter& writer)
             {
                 writer.unparsedEntityDecl("e", &pub, sys, "n");
                 writer.unparsedEntityDecl("f", nullptr, sys, "n");
             }),
         "E0 00 00 01 [0 0 0 0 1 0 0 0] [1101000 1] 00 'e' 02 'sys' 02 'pub' 00 'n'"
         "D1 00 'f' 80 FF 81 F0 F0"},
        {"both, notations first",
         document(
             [=](FastInfosetWriter& writer)
             {
                 writer.unparsedEntityDecl("e", nullptr, "", "n");
                 writer.notationDecl("n", nullptr, &sys);
             }),
         "E0 00 00 01 18 C3 00 'n' 02 'sys' FF F0 D1 00 'e' FF FF 80 F0 F0"},
    });
}

TEST(FastInfosetWriterTest, TypedValues)
{
    const UUID uuid("00112233-4455-6677-8899-AABBCCDDEEFF");
    const auto values = [](const Events& give)
    {
        return [give](FastInfosetWriter& writer)
        {
            start(writer, "", "a", "a");
            give(writer);
            end(writer);
        };
    };
    // Each chunk is [10 0 0 11 aa] [aaaaaa and the length], a being the algorithm less one in eight bits.
    const std::string A = "3C 00 'a' ";
    const std::string ONE = "[10 0 0 11 00] [000011 10] 01 00 00 00 01";
    expectBodies({
        {"short", values([](FastInfosetWriter& writer) { writer.encodedData(static_cast<short>(-2)); }),
         A + "8C [000010 01] FF FE FF"},
        {"int", values([](FastInfosetWriter& writer) { writer.encodedData(1); }), A + ONE + " FF"},
        {"long", values([](FastInfosetWriter& writer) { writer.encodedData(258l); }),
         A + "8C [000100 10] 05 00 00 00 00 00 00 01 02 FF"},
        {"bool", values([](FastInfosetWriter& writer) { writer.encodedData(true); }),
         A + "8C [000101 00] [0011 1000] FF"},
        {"float", values([](FastInfosetWriter& writer) { writer.encodedData(1.5f); }),
         A + "8C [000110 10] 01 3F C0 00 00 FF"},
        {"double", values([](FastInfosetWriter& writer) { writer.encodedData(1.5); }),
         A + "8C [000111 10] 05 3F F8 00 00 00 00 00 00 FF"},
        {"UUID", values([=](FastInfosetWriter& writer) { writer.encodedData(uuid); }),
         A + "8C [001000 10] 0D 00 11 22 33 44 55 66 77 88 99 AA BB CC DD EE FF FF"},
        {"octets", values([](FastInfosetWriter& writer) { writer.binaryData("\0\1\2", 3); }),
         A + "8C [000001 10] 00 00 01 02 FF"},
        {"values of one kind go out together",
         values(
             [](FastInfosetWriter& writer)
             {
                 writer.encodedData(1);
                 writer.encodedData(2);
             }),
         A + "8C 0E 05 00 00 00 01 00 00 00 02 FF"},
        {"values of several kinds in their order",
         values(
             [](FastInfosetWriter& writer)
             {
                 writer.encodedData(true);
                 writer.encodedData(false);
                 writer.encodedData(1);
                 writer.binaryData("\0\1", 2);
                 writer.binaryData("\2", 1);
                 writer.encodedData(true);
             }),
         A + "8C 14 28 " + ONE + " 8C 06 00 00 01 02 8C 14 38 FF"},
        {"before whatever follows",
         values(
             [](FastInfosetWriter& writer)
             {
                 writer.encodedData(1);
                 writer.characters("x");
                 writer.encodedData(1);
                 comment(writer, "c");
                 writer.encodedData(1);
                 writer.processingInstruction("t", "d");
                 writer.encodedData(1);
                 start(writer, "", "a", "a");
                 end(writer);
                 writer.encodedData(1);
                 writer.characters("");
                 writer.encodedData(1);
             }),
         A + ONE + " 90 'x' " + ONE + " E2 40 'c' " + ONE + " E1 00 't' 40 'd' " + ONE + " 00 F0 " + ONE + ONE + " FF"},
        {"within a CDATA section, before its end",
         values(
             [](FastInfosetWriter& writer)
             {
                 writer.startCDATA();
                 writer.encodedData(1);
                 writer.endCDATA();
                 writer.characters("x");
             }),
         A + ONE + " 90 'x' FF"},
        {"outside of any element", [](FastInfosetWriter& writer) { writer.encodedData(1); }, ONE + " F0"},
    });
}

TEST(FastInfosetWriterTest, EmptyOctetsAreRefused)
{
    written(
        [](FastInfosetWriter& writer)
        {
            EXPECT_THROW(writer.binaryData("", 0), FISException);
            writer.startDocument();
            writer.endDocument();
        });
}

TEST(FastInfosetWriterTest, EventsThatAreRefusedWriteNothing)
{
    struct Case
    {
        const char* name;
        Events before;
        Events event;
        std::string failure;
    };
    const Events nothing = [](FastInfosetWriter&) {
    };
    const Events document = [](FastInfosetWriter& writer)
    {
        writer.startDocument();
    };
    const auto bugcheck = [](int line)
    {
        return "!AssertionViolationException(_states.back() == UNINITIALIZED [in src/FastInfosetWriter, line " +
               std::to_string(line) + "])";
    };
    const std::string UNBALANCED = "!FISException(Unbalanced end event)";
    const Case cases[] = {
        {"fragment", nothing, [](FastInfosetWriter& writer) { writer.startFragment(); },
         "!FISException(startFragment() not allowed)"},
        {"end of a fragment", document, [](FastInfosetWriter& writer) { writer.endFragment(); },
         "!FISException(endFragment() not allowed)"},
        {"no name", document, [](FastInfosetWriter& writer) { start(writer, "", "", ""); },
         "!FISException(Tag mismatch: )"},
        {"URI without a local name", document, [](FastInfosetWriter& writer) { start(writer, "u", "", "p:a"); },
         "!FISException(Tag mismatch: p:a)"},
        {"nested CDATA",
         [](FastInfosetWriter& writer)
         {
             writer.startDocument();
             writer.startCDATA();
         },
         [](FastInfosetWriter& writer) { writer.startCDATA(); }, "!FISException(Cannot nest CDATA sections)"},
        {"late notation", document, [](FastInfosetWriter& writer) { writer.notationDecl("n", nullptr, nullptr); },
         bugcheck(354)},
        {"late entity", document, [](FastInfosetWriter& writer) { writer.unparsedEntityDecl("e", nullptr, "", "n"); },
         bugcheck(361)},
        {"end of no document", nothing, [](FastInfosetWriter& writer) { writer.endDocument(); }, UNBALANCED},
        {"end of no element", nothing, [](FastInfosetWriter& writer) { end(writer); }, UNBALANCED},
        {"end of no CDATA", nothing, [](FastInfosetWriter& writer) { writer.endCDATA(); }, UNBALANCED},
        {"end of no DTD", nothing, [](FastInfosetWriter& writer) { writer.endDTD(); }, UNBALANCED},
        {"second end",
         [](FastInfosetWriter& writer)
         {
             writer.startDocument();
             writer.endDocument();
         },
         [](FastInfosetWriter& writer) { writer.endDocument(); }, UNBALANCED}};
    for (const Case& row : cases)
    {
        SCOPED_TRACE(row.name);
        std::ostringstream stream;
        FastInfosetWriter writer(stream);
        row.before(writer);
        const std::string before = stream.str();
        EXPECT_EQ(failureOf([&] { row.event(writer); }), row.failure);
        EXPECT_EQ(hexOf(stream.str()), hexOf(before));
    }
}

TEST(FastInfosetWriterTest, AttributeWithoutAnyName)
{
    std::ostringstream stream;
    FastInfosetWriter writer(stream);
    writer.startDocument();
    EXPECT_VESK_THROW(start(writer, "", "a", "a", {{"", "", "", "1"}}), AssertionViolationException,
                      "!localName.empty() [in src/FastInfosetWriter, line 677]");
}

TEST(FastInfosetWriterTest, EndCDATATakesWhateverStateIsInnermost)
{
    std::ostringstream stream;
    FastInfosetWriter writer(stream);
    writer.startDocument();
    writer.endCDATA();
    EXPECT_VESK_THROW(writer.endDocument(), FISException, "Unbalanced end event");
}

TEST(FastInfosetWriterTest, VectorTablesAreRefused)
{
    const char MESSAGE[] = "A DocumentVocabulary with VOC_VECTOR implementation cannot be used by FastInfosetWriter";
    const DocumentVocabulary vectors(DocumentVocabulary::VOC_VECTOR);
    std::ostringstream stream;
    EXPECT_VESK_THROW(FastInfosetWriter(stream, false, DocumentVocabulary::VOC_VECTOR), InvalidArgumentException,
                      MESSAGE);
    EXPECT_VESK_THROW(FastInfosetWriter(stream, false, vectors), InvalidArgumentException, MESSAGE);
    FastInfosetWriter writer(stream);
    EXPECT_VESK_THROW(writer.setDocumentVocabulary(vectors), InvalidArgumentException, MESSAGE);
    EXPECT_EQ(writer.getDocumentVocabulary().implementation(), DocumentVocabulary::VOC_HASH);
    EXPECT_EQ(stream.str(), "");
}

TEST(FastInfosetWriterTest, HashTablesRunFull)
{
    const auto comments = [](FastInfosetWriter& writer)
    {
        writer.startDocument();
        for (int i = 1; i <= 18; ++i)
            comment(writer, "comment" + std::to_string(i));
    };
    written(
        [=](FastInfosetWriter& writer)
        {
            comments(writer);
            comment(writer, "comment18");
            comment(writer, "longer than the limit");
            EXPECT_VESK_THROW(comment(writer, "comment19"), PoolOverflowException, "Vocabulary hash table full");
        });
    const std::string octets = written(
        [=](FastInfosetWriter& writer)
        {
            comments(writer);
            comment(writer, "comment19");
            comment(writer, "comment19");
            writer.endDocument();
        },
        DocumentVocabulary::VOC_MAP);
    EXPECT_EQ(hexOf(octets.substr(octets.size() - 3)), "E2 92 F0") << "index 19";
}

TEST(FastInfosetWriterTest, FullTableIsLookedUpButNotAddedTo)
{
    const std::string octets = written(
        [](FastInfosetWriter& writer)
        {
            writer.startDocument();
            Vocabulary<std::string>& chunks =
                writer.getDocumentVocabulary().vocabulary(DocumentVocabulary::CONTENT_CHARACTER_CHUNK);
            bool found = false;
            for (unsigned int i = 1; i < (1u << 20) - 1; ++i)
                chunks.index(std::to_string(i), found);
            writer.characters("last");
            writer.characters("new");
            writer.characters("new");
            writer.characters("last");
            EXPECT_EQ(chunks.size(), 1u << 20);
        },
        DocumentVocabulary::VOC_MAP);
    EXPECT_EQ(hexOf(octets),
              hexOf(octetsOf("E0 00 00 01 00 [10 0 1 00 10] 01 'last' [10 0 0 00 10] 00 'new' 82 00 'new'"
                             "[10 1 11000] [0000 1011] [11111011] [11101110]")));
}

TEST(FastInfosetWriterTest, EachEventReachesTheStreamInOneCall)
{
    RecordingOutputStream stream;
    FastInfosetWriter writer(stream);
    int writes = 0;
    int flushes = 0;
    const auto expect = [&](const char* event, int newWrites, int newFlushes)
    {
        EXPECT_EQ(stream.writes(), writes += newWrites) << event;
        EXPECT_EQ(stream.flushes(), flushes += newFlushes) << event;
    };
    writer.startDocument();
    expect("startDocument", 1, 0);
    start(writer, "u", "a", "p:a", {{"", "b", "b", "1"}, {"", "c", "c", "2"}});
    expect("startElement", 1, 1);
    writer.characters("text");
    expect("characters", 1, 1);
    writer.encodedData(1);
    expect("encodedData", 0, 0);
    end(writer);
    expect("endElement", 1, 1);
    writer.endDocument();
    expect("endDocument", 1, 1);
}

TEST(FastInfosetWriterTest, StreamThatFailsAfterAnyNumberOfOctets)
{
    const Events events[] = {[](FastInfosetWriter& writer) { writer.startDocument(); },
                             [](FastInfosetWriter& writer) {
                                 start(writer, "u", "a", "p:a", {{"", "b", "b", "1"}});
                             },
                             [](FastInfosetWriter& writer) { writer.characters("text"); },
                             [](FastInfosetWriter& writer) { writer.characters(std::string(5000, 'x')); },
                             [](FastInfosetWriter& writer)
                             {
                                 writer.encodedData(1);
                                 comment(writer, "comment");
                             },
                             [](FastInfosetWriter& writer) { writer.processingInstruction("t", "d"); },
                             [](FastInfosetWriter& writer) { end(writer); },
                             [](FastInfosetWriter& writer)
                             {
                                 writer.endDocument();
                             }};
    RecordingOutputStream complete;
    {
        FastInfosetWriter writer(complete);
        for (const Events& event : events)
            event(writer);
    }
    const std::string& expected = complete.octets();
    for (std::size_t limit = 0; limit < expected.size(); ++limit)
    {
        SCOPED_TRACE(limit);
        RecordingOutputStream stream(limit);
        bool failed = false;
        {
            FastInfosetWriter writer(stream);
            for (const Events& event : events)
            {
                const std::string failure = failureOf([&] { event(writer); });
                failed = failed || !failure.empty();
                EXPECT_EQ(failure, failed ? "!IOException(error while writing Fast Infoset document to stream)" : "");
                stream.clear();
            }
        }
        EXPECT_TRUE(failed);
        EXPECT_EQ(expected.compare(0, stream.octets().size(), stream.octets()), 0) << "nothing behind a gap";
    }
}

} // namespace Vesk::FastInfoset
