// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "EventLog.h"
#include "EventScript.h"
#include "ExceptionMatcher.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/XML/AttributesImpl.h"
#include <functional>
#include <sstream>
#include <stdexcept>

namespace Vesk::FastInfoset
{

namespace
{

using Events = std::function<void(FastInfosetWriter&)>;
using VocabularyImpl = DocumentVocabulary::VocabularyImpl;

std::string written(const Events& events, VocabularyImpl impl = DocumentVocabulary::VOC_HASH)
{
    std::ostringstream stream;
    FastInfosetWriter writer(stream, false, impl);
    events(writer);
    return stream.str();
}

/// A whole document, expected of a writer with either kind of tables. Parsers also read it.
void expectDocument(const char* name, const Events& events, const std::string& notation)
{
    SCOPED_TRACE(name);
    const std::string octets = octetsOf(notation);
    for (const VocabularyImpl impl : {DocumentVocabulary::VOC_HASH, DocumentVocabulary::VOC_MAP})
        EXPECT_EQ(hexOf(written(events, impl)), hexOf(octets));
    const std::string parsed = eventsEverywhere<TypedEventLog>(octets);
    EXPECT_EQ(parsed.find('!'), std::string::npos) << parsed;
}

struct DocumentCase
{
    const char* name;
    std::string script;
    std::string octets;
};

void expectDocuments(std::initializer_list<DocumentCase> cases)
{
    for (const DocumentCase& row : cases)
    {
        const EventScript script(row.script);
        expectDocument(
            row.name, [&script](FastInfosetWriter& writer) { script.play(writer); }, row.octets);
    }
}

/// Rows of what stands in a document, with the octets that follow an empty header.
void expectBodies(std::initializer_list<DocumentCase> cases)
{
    for (const DocumentCase& row : cases)
        expectDocuments({{row.name, "( " + row.script + " )", "E0 00 00 01 00 " + row.octets}});
}

/// So many x, as EventScript has them.
std::string quoted(std::size_t size)
{
    return " '" + std::string(size, 'x') + "' ";
}

const std::string XML_NAMESPACE = "http://www.w3.org/XML/1998/namespace";

} // namespace

TEST(FastInfosetWriterTest, Elements)
{
    expectBodies({
        {"none", "", "F0"},
        {"one", "<a >", "[0 0 1111 00] 00 'a' [1111 1111]"},
        {"siblings, the first of which ends within an octet", "<a <b > <c > >",
         "3C 00 'a' 3C 00 'b' F0 3C 00 'c' FF F0"},
        {"nested, whose ends share octets", "<a <b <c > > >", "3C 00 'a' 3C 00 'b' 3C 00 'c' FF FF"},
        {"name known already", "<a <a > <a > >", "3C 00 'a' [0 0 000000] F0 00 FF F0"},
        {"name whose local name alone is known", "<a @a=1 >", "7C 00 'a' [0 1111 0 00] 80 40 '1' FF F0"},
        {"qualified name only", "<,,p:a >", "3C 02 'p:a' FF"},
    });
}

TEST(FastInfosetWriterTest, Convenience)
{
    XML::AttributesImpl attributes;
    attributes.addAttribute("", "c", "c", "CDATA", "1");
    const auto events = [&](FastInfosetWriter& writer)
    {
        writer.startDocument();
        writer.startElement("", "a", "a");
        writer.emptyElement("", "b", "b");
        writer.emptyElement("", "b", "b", attributes);
        writer.dataElement("", "b", "b", "text");
        writer.dataElement("", "b", "b", "text", "c", "1", "", "ignored", "d", "2");
        writer.dataElement("", "b", "b", "", "c", "1");
        writer.endElement("", "a", "a");
        writer.endDocument();
    };
    expectDocument(
        "elements", events,
        "E0 00 00 01 00 3C 00 'a' 3C 00 'b' F0 [0 1 000001] 78 00 'c' 40 '1' FF 01 [10 0 1 00 10] 01 'text' F0"
        "41 00 80 78 00 'd' 40 '2' F0 [10 1 00000] F0 41 00 80 FF FF");
}

TEST(FastInfosetWriterTest, NameIndexesGrow)
{
    std::string script = "( <root ";
    for (int i = 2; i <= 33; ++i)
        script += "<name" + std::to_string(i) + " > ";
    const EventScript events(script + "<name32 > <name33 > > )");
    const std::string octets = written([&](FastInfosetWriter& writer) { events.play(writer); });
    EXPECT_EQ(hexOf(octets.substr(octets.size() - 6)), "1F F0 20 00 FF F0") << "32, then 33 in the next form";
}

TEST(FastInfosetWriterTest, Namespaces)
{
    const char* const ONE_PREFIX = "[0 0 111000] [110011 11] 00 'p' 00 'u' F0 [00 1111 11] 81 81 00 'a' FF";
    expectBodies({
        {"prefix mapping", "+p=u <u,a,p:a > -p", ONE_PREFIX},
        {"xmlns attribute", "<u,a,p:a @,,xmlns:p=u >", ONE_PREFIX},
        {"prefix mapping and xmlns attribute", "+p=u <u,a,p:a @http://www.w3.org/2000/xmlns/,p,xmlns:p=u > -p",
         ONE_PREFIX},
        {"prefix of the qualified name that nobody declared", "<u,a,p:a >", ONE_PREFIX},
        {"prefix found by the namespace name", "+p=u <u,a, > -p", ONE_PREFIX},
        {"default namespace", "<u,a,a @,,xmlns=u >", "38 [110011 01] 00 'u' F0 [00 1111 01] 81 00 'a' FF"},
        {"default namespace taken back", "<a @,,xmlns= >", "38 [110011 00] F0 3C 00 'a' FF"},
        {"in order of prefix", "+q=v +=w <w,a,a @,,xmlns:p=u >",
         "38 CD 00 'w' CF 00 'p' 00 'u' CF 00 'q' 00 'v' F0 3D 81 00 'a' FF"},
        {"prefix bound to another namespace further in", "<u1,a,p:a <u2,a,p:a > >",
         "38 CF 00 'p' 01 'u1' F0 3F 81 81 00 'a' 38 CF 81 01 'u2' F0 3F 81 82 80 FF F0"},
        {"prefix in no namespace", "<u,a,p:a <,a,p:a > >",
         "38 CF 00 'p' 00 'u' F0 3F 81 81 00 'a' 38 [110011 10] 81 F0 [00 1111 10] 81 80 FF F0"},
        {"mapping that ends with its element", "<r +p=u <u,a,p:a > -p <b > >",
         "3C 00 'r' 38 CF 00 'p' 00 'u' F0 3F 81 81 00 'a' F0 3C 00 'b' FF F0"},
        {"invented prefix, which later siblings declare again", "<r <u,a, > <u,a,a > <b > >",
         "3C 00 'r' 38 CF 02 'ns1' 00 'u' F0 3F 81 81 00 'a' F0 38 CF 81 81 F0 [00 000001] F0"
         "38 CF 81 81 F0 3C 00 'b' FF F0"},
        {"invented prefix that is taken", "+ns1=v <u,a, >",
         "38 CF 02 'ns1' 00 'v' CF 02 'ns2' 00 'u' F0 3F 82 82 00 'a' FF"},
        {"the prefix xml, which needs no declaration",
         "+xml=" + XML_NAMESPACE + " <a @,,xmlns:xml=" + XML_NAMESPACE + " @" + XML_NAMESPACE +
             ",lang,xml:lang=en > -xml",
         "7C 00 'a' [0 1111 0 11] 80 80 03 'lang' 41 'en' FF F0"},
    });
}

TEST(FastInfosetWriterTest, Attributes)
{
    const std::string A = "7C 00 'a' 78 00 'b' ";
    expectBodies({
        {"value known already", "<a @b=1 @c=1 @d=2 >",
         "[0 1 1111 00] 00 'a' [0 1111 0 00] 00 'b' [0 1 00 0 000] '1' 78 00 'c' [1 0000000] 78 00 'd' 40 '2' FF F0"},
        {"name known already", "<a @b=1 <a @b=1 > >", A + "40 '1' F0 [0 1 000000] [0 0000000] 80 FF FF"},
        {"empty value", "<a @b= >", A + "FF FF F0"},
        {"16 octets", "<a @b=*16 @c=*16 >", A + "[0 1 00 1000] 07" + quoted(16) + "78 00 'c' 80 FF F0"},
        {"17 octets", "<a @b=*17 @c=*17 >",
         A + "[0 0 00 1000] 08" + quoted(17) + "78 00 'c' 08 08" + quoted(17) + "FF F0"},
        {"local name left out", "<a @,,p:b=1 >", A + "40 '1' FF F0"},
        {"in another namespace", "<a @u,b,p:b=1 >",
         "[0 1 111000] CF 00 'p' 00 'u' F0 3C 00 'a' [0 1111 0 11] 81 81 00 'b' 40 '1' FF F0"},
        {"without a prefix, for which the default namespace is declared", "<a @u,b,b=1 >",
         "78 CD 00 'u' F0 3C 00 'a' [0 1111 0 01] 81 00 'b' 40 '1' FF F0"},
        {"without a prefix, in a namespace that has one", "+p=u <a @u,b,b=1 >",
         "78 CF 00 'p' 00 'u' F0 3C 00 'a' 7B 81 81 00 'b' 40 '1' FF F0"},
        {"in the namespace of the element, where it needs no prefix", "<u,a,p:a @u,b,p:b=1 >",
         "78 CF 00 'p' 00 'u' F0 3F 81 81 00 'a' 79 81 00 'b' 40 '1' FF F0"},
        {"xmlns attributes are not counted", "<a @,,xmlns:p=u @xmlnsx=1 >",
         "78 CF 00 'p' 00 'u' F0 3C 00 'a' 78 05 'xmlnsx' 40 '1' FF F0"},
    });
}

TEST(FastInfosetWriterTest, Text)
{
    const std::string A = "3C 00 'a' ";
    expectBodies({
        {"known already", "<a \"hi\" \"hi\" \"x\" >", A + "[10 0 1 00 0 1] 'hi' [10 1 0 0000] [10 0 1 00 0 0] 'x' FF"},
        {"nothing", "<a \"\" \"\" >", A + "FF"},
        {"16 octets", "<a \"*16\" \"*16\" >", A + "[10 0 1 00 10] 0D" + quoted(16) + "A0 FF"},
        {"17 octets", "<a \"*17\" \"*17\" >", A + "[10 0 0 00 10] 0E" + quoted(17) + "82 0E" + quoted(17) + "FF"},
        {"258 octets", "<a \"*258\" >", A + "82 FF" + quoted(258) + "FF"},
        {"259 octets", "<a \"*259\" >", A + "[10 0 0 00 11] 00 00 00 00" + quoted(259) + "FF"},
        {"at the level of the document", "\"x\"", "90 'x' F0"},
    });
}

TEST(FastInfosetWriterTest, PartsOfBuffers)
{
    const auto events = [](FastInfosetWriter& writer)
    {
        writer.startDocument();
        writer.characters("abcdef", 1, 3);
        writer.ignorableWhitespace("    ", 2, 1);
        // Text ends at a zero octet, unless it comes as a string.
        writer.characters("kl\0mn", 0, 5);
        writer.characters("kl\0mn", 1, 4);
        writer.characters("kl\0mn", 2, 3);
        writer.characters("op", 2, 1000000);
        writer.characters(std::string("\0", 1));
        writer.comment("q--r\0s", 3, 3);
        for (const auto& [start, length] : {std::pair(3, 1), std::pair(4, 1), std::pair(-1, 1), std::pair(0, -1)})
            EXPECT_THROW(writer.characters("ab\0cd", start, length), std::out_of_range) << start << ' ' << length;
        writer.endDocument();
    };
    expectDocument("parts", events, "E0 00 00 01 00 92 00 'bcd' 90 ' ' 91 'kl' 90 'l' 90 00 E2 42 'r' 00 's' F0");
}

TEST(FastInfosetWriterTest, CDATASections)
{
    expectBodies({
        {"text", "[ \"x\" ]", "[10 0 1 11 00] [001001 0 0] 'x' F0"},
        {"text known already, which goes out as an index", "\"x\" [ \"x\" ] [ \"y\" ] [ \"y\" ]",
         "90 'x' A0 9C 24 'y' A1 F0"},
        {"text before and behind", "\"a\" [ \"b\" ] \"c\"", "90 'a' 9C 24 'b' 90 'c' F0"},
        {"empty", "[ \"\" ] [ ]", "F0"},
        {"element within", "[ <a \"b\" > \"c\" ]", "3C 00 'a' 90 'b' F0 9C 24 'c' F0"},
    });
}

TEST(FastInfosetWriterTest, OtherItems)
{
    expectBodies({
        {"comments", "#hi <a #hi #*17 >", "E2 [0 1 00 0 001] 'hi' 3C 00 'a' E2 80 E2 08 08" + quoted(17) + "FF"},
        {"empty comment", "#", "E2 FF F0"},
        {"processing instructions", "?t=d ?t=d ?t= ?d=t", "E1 00 't' 40 'd' E1 80 80 E1 80 FF E1 00 'd' 40 't' F0"},
        {"declaration without identifiers", "{, }", "[110001 00] FF"},
        {"with a system identifier", "{,sys }", "[110001 10] 02 'sys' FF"},
        {"with a public identifier", "{pub, }", "[110001 01] 02 'pub' FF"},
        {"with both, the system identifier first", "{pub,sys }", "[110001 11] 02 'sys' 02 'pub' FF"},
        {"with the same identifier twice", "{id,id }", "C7 01 'id' 80 FF"},
        {"with a processing instruction, before an element", "{, ?t=d } <a >", "C4 E1 00 't' 40 'd' F0 3C 00 'a' FF"},
    });
}

TEST(FastInfosetWriterTest, EventsThatLeaveNoTrace)
{
    const auto events = [](FastInfosetWriter& writer)
    {
        writer.startDocument();
        writer.setDocumentLocator(nullptr);
        writer.skippedEntity("e");
        writer.startEntity("e");
        writer.endEntity("e");
        writer.endDocument();
    };
    expectDocument("events", events, "E0 00 00 01 00 F0");
}

TEST(FastInfosetWriterTest, Headers)
{
    const auto withDeclaration = [](FastInfosetWriter& writer)
    {
        writer.setWriteXMLDeclaration(true);
        writer.startDocument();
        writer.endDocument();
    };
    expectDocument("XML declaration", withDeclaration, "'<?xml encoding=' 27 'finf' 27 '?>' E0 00 00 01 00 F0");
    expectDocuments({
        {"notation", "notation:n,pub,sys ( )",
         "E0 00 00 01 [0 0 0 1 0 0 0 0] [110000 11] 00 'n' 02 'sys' 02 'pub' F0 F0"},
        {"notations with absent identifiers, which go out as empty ones",
         "notation:n,null,sys notation:m,pub,null notation:n,null,null ( )",
         "E0 00 00 01 10 C3 00 'n' 02 'sys' FF C3 00 'm' FF 02 'pub' C3 80 FF FF F0 F0"},
        {"unparsed entities", "unparsed:e,pub,sys,n unparsed:f,null,sys,n ( )",
         "E0 00 00 01 [0 0 0 0 1 0 0 0] [1101000 1] 00 'e' 02 'sys' 02 'pub' 00 'n' D1 00 'f' 80 FF 81 F0 F0"},
        {"both, notations first", "unparsed:e,null,,n notation:n,null,sys ( )",
         "E0 00 00 01 18 C3 00 'n' 02 'sys' FF F0 D1 00 'e' FF FF 80 F0 F0"},
    });
}

TEST(FastInfosetWriterTest, TypedValues)
{
    // Each chunk is [10 0 0 11 aa] [aaaaaa and the length], a being the algorithm less one in eight bits.
    const std::string A = "3C 00 'a' ";
    const std::string ONE = "[10 0 0 11 00] [000011 10] 01 00 00 00 01";
    expectBodies({
        {"short", "<a short:-2 >", A + "8C [000010 01] FF FE FF"},
        {"int", "<a int:1 >", A + ONE + " FF"},
        {"long", "<a long:258 >", A + "8C [000100 10] 05 00 00 00 00 00 00 01 02 FF"},
        {"bool", "<a bool:1 >", A + "8C [000101 00] [0011 1000] FF"},
        {"float", "<a float:1.5 >", A + "8C [000110 10] 01 3F C0 00 00 FF"},
        {"double", "<a double:1.5 >", A + "8C [000111 10] 05 3F F8 00 00 00 00 00 00 FF"},
        {"UUID", "<a uuid:00112233-4455-6677-8899-AABBCCDDEEFF >",
         A + "8C [001000 10] 0D 00 11 22 33 44 55 66 77 88 99 AA BB CC DD EE FF FF"},
        {"octets", "<a octets:000102 >", A + "8C [000001 10] 00 00 01 02 FF"},
        {"values of one kind go out together", "<a int:1 int:2 >", A + "8C 0E 05 00 00 00 01 00 00 00 02 FF"},
        {"values of several kinds in their order", "<a bool:1 bool:0 int:1 octets:0001 octets:02 bool:1 >",
         A + "8C 14 28 " + ONE + " 8C 06 00 00 01 02 8C 14 38 FF"},
        {"before whatever follows", "<a int:1 \"x\" int:1 #c int:1 ?t=d int:1 <a > int:1 \"\" int:1 >",
         A + ONE + "90 'x'" + ONE + "E2 40 'c'" + ONE + "E1 00 't' 40 'd'" + ONE + "00 F0" + ONE + ONE + "FF"},
        {"within a CDATA section, before its end", "<a [ int:1 ] \"x\" >", A + ONE + "90 'x' FF"},
        {"outside of any element", "int:1", ONE + "F0"},
    });
}

TEST(FastInfosetWriterTest, EmptyOctetsAreRefused)
{
    written([](FastInfosetWriter& writer) { EXPECT_THROW(writer.binaryData("", 0), FISException); });
}

TEST(FastInfosetWriterTest, EventsThatAreRefusedWriteNothing)
{
    struct Case
    {
        const char* before;
        const char* event;
        const char* failure;
    };
    const char UNBALANCED[] = "!FISException(Unbalanced end event)";
    const Case cases[] = {
        {"(", "<,,", "!FISException(Tag mismatch: )"},
        {"(", "<u,,p:a", "!FISException(Tag mismatch: p:a)"},
        {"( [", "[", "!FISException(Cannot nest CDATA sections)"},
        {"(", "notation:n,null,null",
         "!AssertionViolationException(_states.back() == UNINITIALIZED [in src/FastInfosetWriter, line 354])"},
        {"(", "unparsed:e,null,,n",
         "!AssertionViolationException(_states.back() == UNINITIALIZED [in src/FastInfosetWriter, line 361])"},
        {"", ")", UNBALANCED},
        {"", ">", UNBALANCED},
        {"", "]", UNBALANCED},
        {"", "}", UNBALANCED},
        {"( )", ")", UNBALANCED},
        // Takes whatever state is innermost.
        {"( ]", ")", UNBALANCED}};
    for (const Case& row : cases)
    {
        std::ostringstream stream;
        FastInfosetWriter writer(stream);
        EventScript(row.before).play(writer);
        const std::string before = stream.str();
        EXPECT_EQ(failureOf([&] { EventScript(row.event).play(writer); }), row.failure)
            << row.before << ' ' << row.event;
        EXPECT_EQ(hexOf(stream.str()), hexOf(before)) << row.before << ' ' << row.event;
    }

    std::ostringstream stream;
    FastInfosetWriter writer(stream);
    EXPECT_VESK_THROW(writer.startFragment(), FISException, "startFragment() not allowed");
    EXPECT_VESK_THROW(writer.endFragment(), FISException, "endFragment() not allowed");
    writer.startDocument();
    EXPECT_VESK_THROW(EventScript("<a @,,=1").play(writer), AssertionViolationException,
                      "!localName.empty() [in src/FastInfosetWriter, line 677]");
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
    std::string comments = "( ";
    for (int i = 1; i <= 18; ++i)
        comments += "#comment" + std::to_string(i) + " ";
    const auto full = [&](FastInfosetWriter& writer)
    {
        EventScript(comments + "#comment18 #longer-than-the-limit").play(writer);
        EXPECT_VESK_THROW(EventScript("#comment19").play(writer), PoolOverflowException, "Vocabulary hash table full");
    };
    written(full);
    const EventScript more(comments + "#comment19 #comment19 )");
    const std::string octets =
        written([&](FastInfosetWriter& writer) { more.play(writer); }, DocumentVocabulary::VOC_MAP);
    EXPECT_EQ(hexOf(octets.substr(octets.size() - 3)), "E2 92 F0") << "index 19";
}

TEST(FastInfosetWriterTest, FullTableIsLookedUpButNotAddedTo)
{
    const auto events = [](FastInfosetWriter& writer)
    {
        writer.startDocument();
        Vocabulary<std::string>& chunks =
            writer.getDocumentVocabulary().vocabulary(DocumentVocabulary::CONTENT_CHARACTER_CHUNK);
        bool found = false;
        for (unsigned int i = 1; i < (1u << 20) - 1; ++i)
            chunks.index(std::to_string(i), found);
        EventScript("\"last\" \"new\" \"new\" \"last\"").play(writer);
        EXPECT_EQ(chunks.size(), 1u << 20);
    };
    EXPECT_EQ(hexOf(written(events, DocumentVocabulary::VOC_MAP)),
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
        EventScript(event).play(writer);
        EXPECT_EQ(stream.writes(), writes += newWrites) << event;
        EXPECT_EQ(stream.flushes(), flushes += newFlushes) << event;
    };
    expect("(", 1, 0);
    expect("<u,a,p:a @b=1 @c=2", 1, 1);
    expect("\"text\"", 1, 1);
    expect("int:1", 0, 0);
    expect(">", 1, 1);
    expect(")", 1, 1);
}

TEST(FastInfosetWriterTest, StreamThatFailsAfterAnyNumberOfOctets)
{
    const EventScript script("( <u,a,p:a @b=1 \"text\" \"*5000\" #comment int:1 > ?t=d )");
    RecordingOutputStream complete;
    {
        FastInfosetWriter writer(complete);
        script.play(writer);
    }
    const std::string& expected = complete.octets();
    for (std::size_t limit = 0; limit < expected.size(); ++limit)
    {
        SCOPED_TRACE(limit);
        RecordingOutputStream stream(limit);
        bool failed = false;
        {
            FastInfosetWriter writer(stream);
            for (std::size_t event = 0; event < script.eventCount(); ++event)
            {
                const std::string failure = failureOf([&] { script.play(writer, event); });
                failed = failed || !failure.empty();
                stream.clear();
            }
            EXPECT_EQ(failureOf([&] { EventScript("#late").play(writer); }),
                      "!IOException(error while writing Fast Infoset document to stream)");
        }
        EXPECT_TRUE(failed);
        EXPECT_EQ(expected.compare(0, stream.octets().size(), stream.octets()), 0) << "nothing behind a gap";
    }
}

TEST(FastInfosetWriterTest, NoEncodingIsRefusedAtOnce)
{
    std::ostringstream stream;
    FastInfosetWriter writer(stream);
    writer.startDocument();
    writer.startElement("", "e", "");
    EXPECT_THROW(writer.encodedData(AutoPtr<Encoding>()), NullPointerException);
    writer.encodedData(7);
    writer.endElement("", "e", "");
    writer.endDocument();
}

} // namespace Vesk::FastInfoset
