// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "EventLog.h"
#include "ExceptionMatcher.h"
#include "TemporaryFile.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/XML/EntityResolverImpl.h"
#include "Vesk/XML/SAXException.h"
#include "Vesk/XML/XMLWriter.h"
#include <bitset>
#include <sstream>

namespace Vesk::FastInfoset
{

namespace
{

struct DocumentCase
{
    const char* name;
    std::string octets;
    std::string events;
};

/// Rows of whole documents.
void expectDocuments(std::initializer_list<DocumentCase> cases)
{
    for (const DocumentCase& row : cases)
        EXPECT_EQ(eventsEverywhere(octetsOf(row.octets)), row.events) << row.name << ": " << row.octets;
}

const std::string EMPTY_HEADER = "E0 00 00 01 00 ";

/// Rows of what stands behind an empty header, with the events that follow startDocument.
void expectBodies(std::initializer_list<DocumentCase> cases)
{
    for (const DocumentCase& row : cases)
        expectDocuments({{row.name, EMPTY_HEADER + row.octets, "declaration=no vocabulary start " + row.events}});
}

std::string endOfStream(const std::string& what)
{
    return "!FISParseException(Unexpected end of stream while " + what + ")";
}

/// The length of an octet string, up to 258, at bit offset 4 or 6.
std::string lengthBits(int offset, std::size_t length)
{
    const auto bits = [](std::size_t value, std::size_t count)
    {
        return std::bitset<16>(value).to_string().substr(16 - count);
    };
    if (offset == 4)
        return length <= 8 ? bits(length - 1, 4) : "1000" + bits(length - 9, 8);
    return length <= 2 ? bits(length - 1, 2) : "10" + bits(length - 3, 8);
}

/// A form of encoded character string and what it stands for.
struct Form
{
    const char* name;
    std::string bits; // discriminant and, where there is one, index
    std::string data;
    std::string text;
    std::string typedEvents; // of a chunk; empty if it is delivered as plain text
};

std::string algorithm(unsigned int index)
{
    return "11" + std::bitset<8>(index - 1).to_string();
}

std::string alphabet(unsigned int index)
{
    return "10" + std::bitset<8>(index - 1).to_string();
}

const Form FORMS[] = {
    {"UTF-8", "00", "h\xC3\xA4", "h\xC3\xA4", ""},
    {"UTF-16", "01", octetsOf("00 68 00 E4 20 AC D8 3D DE 00"), "h\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", ""},
    {"UTF-16 with half a pair", "01", octetsOf("00 68 D8 00 00 69"), "h?i", ""},
    {"numeric alphabet", alphabet(1), octetsOf("[001 010 01]"), "12", ""},
    {"date and time alphabet", alphabet(2), octetsOf("[011 100 10 1 110 0011]"), "34561", ""},
    {"hexadecimal", algorithm(1), octetsOf("0A FF"), "0AFF", "binary=0A FF"},
    {"base64", algorithm(2), octetsOf("00 01 02"), "AAEC", "binary=00 01 02"},
    {"short", algorithm(3), octetsOf("FF FE 00 01"), "-2 1", "short=-2 short=1"},
    {"int", algorithm(4), octetsOf("00 00 00 05"), "5", "int=5"},
    {"long", algorithm(5), octetsOf("00 00 00 00 00 00 01 02"), "258", "long=258"},
    {"boolean", algorithm(6), octetsOf("[0001 101 0]"), "true false true", "bool=true bool=false bool=true"},
    {"float", algorithm(7), octetsOf("3F C0 00 00"), "1.5", "float=1.5"},
    {"double", algorithm(8), octetsOf("3F F8 00 00 00 00 00 00 40 00 00 00 00 00 00 00"), "1.5 2",
     "double=1.5 double=2"},
    {"UUID", algorithm(9), octetsOf("00 11 22 33 44 55 66 77 88 99 AA BB CC DD EE FF"),
     "00112233-4455-6677-8899-AABBCCDDEEFF", "uuid=00112233-4455-6677-8899-aabbccddeeff"},
    {"CDATA", algorithm(10), "a<b", "a<b", "cdata( \"a<b\" cdata)"}};

/// The form as an attribute value, comment or other string, which start on an octet boundary.
std::string asString(const Form& form, bool addToTable)
{
    std::string octets;
    appendBits(octets, std::string("0") + (addToTable ? "1" : "0") + form.bits + lengthBits(4, form.data.size()));
    return octets + form.data;
}

std::string asChunk(const Form& form, bool addToTable)
{
    std::string octets;
    appendBits(octets, std::string("100") + (addToTable ? "1" : "0") + form.bits + lengthBits(6, form.data.size()));
    return octets + form.data;
}

} // namespace

TEST(FastInfosetParserTest, Elements)
{
    expectBodies({
        {"none", "F0", "end"},
        {"one", "[0 0 1111 00] 00 'a' [1111 1111]", "<a> </a> end"},
        {"ends that share octets", "3C 00 'a' 3C 00 'b' 3C 00 'c' FF FF", "<a> <b> <c> </c> </b> </a> end"},
        {"ends behind which something follows", "3C 00 'a' 3C 00 'b' F0 3C 00 'c' FF F0",
         "<a> <b> </b> <c> </c> </a> end"},
        {"padding behind ends, which is not looked at", "3C 00 'a' 3C 00 'b' FE 3C 00 'c' F7 F1 F9",
         "<a> <b> </b> <c> </c> </a> end"},
        {"octets behind the document", "F0 3C 00 'a' FF", "end"},
        {"name by index", "3C 00 'a' 00 F0 3C 00 'b' [0 0 000001] [0 0 000000] FF FF F0",
         "<a> <a> </a> <b> <b> <a> </a> </b> </b> </a> end"},
        {"prefix and namespace", "[0 0 1111 11] 00 'p' 00 'u' 00 'a' 00 F0 3F 81 81 80 FF FF",
         "<{u}a(p:a)> <{u}a(p:a)> </{u}a(p:a)> <{u}a(p:a)> </{u}a(p:a)> </{u}a(p:a)> end"},
        {"namespace without a prefix", "3D 00 'u' 00 'a' FF", "<{u}a> </{u}a> end"},
        {"prefix without a namespace", "3E 00 'p' 00 'a' FF", "<a(p:a)> </a(p:a)> end"},
        {"built-in prefix and namespace", "3F 80 80 00 'a' FF",
         "<{http://www.w3.org/XML/1998/namespace}a(xml:a)> </{http://www.w3.org/XML/1998/namespace}a(xml:a)> end"},
        {"text at every level", "90 'x' 3C 00 'a' 90 'y' F0 A0 [10 1 00001] F0",
         "\"x\" <a> \"y\" </a> \"x\" \"y\" end"},
    });
}

TEST(FastInfosetParserTest, NamespaceDeclarations)
{
    expectBodies({
        {"all forms, in document order",
         "[0 0 111000] [110011 11] 00 'q' 00 'v' [110011 01] 00 'u' [110011 10] 00 'p' [110011 00] F0 3C 00 'a' FF",
         "+q=v +=u +p= += <a> </a> -q - -p - end"},
        {"by index", "38 CF 00 'p' 00 'u' F0 3C 00 'a' 38 CF 81 81 F0 [00 000000] FF F0",
         "+p=u <a> +p=u <a> </a> -p </a> -p end"},
        {"none", "38 F0 3C 00 'a' FF", "<a> </a> end"},
        {"each with its own element", "38 CF 00 'p' 00 'u' F0 3C 00 'a' 00 F0 38 CF 00 'q' 81 F0 00 F0 00 FF F0",
         "+p=u <a> <a> </a> +q=u <a> </a> -q <a> </a> </a> -p end"},
        {"marks of which two bits are not looked at, nor is the padding before the name",
         "38 03 00 'p' 00 'u' CB 81 81 FF [11 1111 00] 00 'a' FF", "+p=u +p=u <a> </a> -p -p end"},
        {"attributes as well", "[0 1 111000] CF 00 'p' 00 'u' F0 3C 00 'a' 78 00 'b' 40 '1' FF F0",
         "+p=u <a b=\"1\"> </a> -p end"},
    });
}

TEST(FastInfosetParserTest, Attributes)
{
    expectBodies({
        {"literals and indexes", "[0 1 1111 00] 00 'a' 78 00 'b' 40 '1' 78 00 'c' 80 FF F0",
         "<a b=\"1\" c=\"1\"> </a> end"},
        {"known names and values",
         "7C 00 'a' 78 00 'b' 40 '1' F0 [0 1 000000] [0 0000000] 80 F0 40 00 01 '2'' ' FF FF F0",
         "<a b=\"1\"> <a b=\"1\"> <a b=\"2 \"> </a> </a> </a> end"},
        {"prefixes and namespaces, which give no qualified name",
         "7C 00 'a' [0 1111 0 11] 00 'p' 00 'u' 00 'b' 40 '1' [0 1111 1 01] 81 80 80 FF F0",
         "<a {u}b=\"1\" {u}a=\"1\"> </a> end"},
        {"not added to the table", "7C 00 'a' 78 00 'b' 00 '1' 78 00 'c' 00 '2' 78 00 'd' 40 '3' 78 00 'e' 80 FF F0",
         "<a b=\"1\" c=\"2\" d=\"3\" e=\"3\"> </a> end"},
        {"empty value by its reserved index", "7C 00 'a' 78 00 'b' FF FF F0", "<a b=\"\"> </a> end"},
        {"children behind the terminator", "7C 00 'a' 78 00 'b' 40 '1' F0 90 'x' FF", "<a b=\"1\"> \"x\" </a> end"},
        {"terminator of which only the first bit counts", "7C 00 'a' 78 00 'b' 40 '1' 80 40 00 80 8F FF",
         "<a b=\"1\"> <a b=\"1\"> </a> </a> end"},
        {"announced, but not there", "7C 00 'a' FF F0", "<a> </a> end"},
    });
}

TEST(FastInfosetParserTest, OtherItems)
{
    expectBodies({
        {"comments", "E2 [0 1 00 0 001] 'hi' 3C 00 'a' E2 80 E2 00 'x' FF", "#hi# <a> #hi# #x# </a> end"},
        {"processing instructions", "E1 00 't' 40 'd' 3C 00 'a' E1 80 80 E1 00 'u' FF FF",
         "?t d? <a> ?t d? ?u ? </a> end"},
        {"document type declaration", "[110001 11] 02 'sys' 02 'pub' F0 3C 00 'a' FF",
         "dtd(,pub,sys dtd) <a> </a> end"},
        {"without identifiers", "[110001 00] F0 F0", "dtd(,, dtd) end"},
        {"with a system identifier", "[110001 10] 02 'sys' FF", "dtd(,,sys dtd) end"},
        {"with a public identifier", "[110001 01] 02 'pub' FF", "dtd(,pub, dtd) end"},
        {"with processing instructions, half of whose mark is not looked at",
         "C4 E1 00 't' 40 'd' E0 80 80 F0 3C 00 'a' FF", "dtd(,, ?t d? ?t d? dtd) <a> </a> end"},
        {"with something else in place of the terminator", "C4 30 C4 3F", "dtd(,, dtd) dtd(,, dtd) end"},
        {"with a processing instruction, then something else", "C4 E1 00 't' 40 'd' 30 80 80 FF",
         "dtd(,, ?t d? ?t d? dtd) end"},
        {"in an element", "3C 00 'a' C4 FF F0", "<a> dtd(,, dtd) </a> end"},
        {"entity references, which are dropped", "C8 00 'e' 3C 00 'a' CB 80 02 'sys' 02 'pub' CA 80 80 C9 80 81 FF",
         "<a> </a> end"},
    });
}

TEST(FastInfosetParserTest, AllFormsOfStrings)
{
    for (const Form& form : FORMS)
    {
        for (const bool addToTable : {false, true})
        {
            SCOPED_TRACE(testing::Message() << form.name << (addToTable ? ", added" : ""));
            const auto document = [&](const char* attribute, const char* chunk, const char* comment)
            {
                return octetsOf(EMPTY_HEADER + "7C 00 'a' 78 00 'b'") + asString(form, addToTable) +
                       octetsOf(addToTable ? attribute : "") + octetsOf("F0") + asChunk(form, addToTable) +
                       octetsOf(addToTable ? chunk : "") + "\xE2" + asString(form, addToTable) +
                       octetsOf(addToTable ? comment : "") + octetsOf("FF");
            };
            const std::string octets = document("78 00 'c' 80", "A0", "E2 80");
            const auto events = [&](const std::string& chunk)
            {
                const std::string& text = form.text;
                return "declaration=no vocabulary start <a b=\"" + text + "\"" +
                       (addToTable ? " c=\"" + text + "\"" : "") + "> " + chunk +
                       (addToTable ? " \"" + text + "\"" : "") + " #" + text + "#" +
                       (addToTable ? " #" + text + "#" : "") + " </a> end";
            };
            const std::string plain = "\"" + form.text + "\"";
            const bool isCDATA = form.bits == algorithm(10);
            EXPECT_EQ(eventsEverywhere<EventLog>(octets), events(isCDATA ? form.typedEvents : plain));
            EXPECT_EQ(eventsEverywhere<TypedEventLog>(octets),
                      events(form.typedEvents.empty() ? plain : form.typedEvents));
        }
    }
}

TEST(FastInfosetParserTest, FormsThatHaveNoMeaning)
{
    for (unsigned int index = 3; index <= 256; ++index)
    {
        SCOPED_TRACE(index);
        const auto events = [](const std::string& bits)
        {
            const Form form = {"", bits, "a", "", ""};
            const std::string chunk = eventsEverywhere(octetsOf(EMPTY_HEADER) + asChunk(form, false));
            EXPECT_EQ(eventsEverywhere(octetsOf(EMPTY_HEADER) + "\xE2" + asString(form, true)), chunk);
            return chunk;
        };
        if (index >= 11)
        {
            EXPECT_EQ(events(algorithm(index)),
                      "declaration=no vocabulary start !FISException(Invalid decoding defined)");
        }
        EXPECT_EQ(events(alphabet(index)),
                  index < 16 ? "declaration=no vocabulary start "
                               "!FISEncodingException(Restricted alphabet without characters)"
                             : "declaration=no vocabulary start "
                               "!AssertionViolationException(vocabulary > 0 && vocabulary <= _alphabets.size() "
                               "[in include/Vesk/FastInfoset/DocumentRestrictedAlphabet, line 105])");
    }
}

TEST(FastInfosetParserTest, HeaderParts)
{
    const char* const START = "E0 00 00 01 ";
    const auto events = [](const std::string& declarations)
    {
        return "declaration=no vocabulary " + declarations + (declarations.empty() ? "start" : " start");
    };
    expectDocuments({
        {"XML declaration", "'<?xml?>' E0 00 00 01 00 F0", "declaration=yes vocabulary start end"},
        {"additional data", START + std::string("[0 1000000] 01 00 'i' 01 'da' 00 'j' 00 'x' F0"), events("") + " end"},
        {"notations", START + std::string("[0 0010000] C3 00 'n' 02 'sys' 02 'pub' C0 00 'm' C2 80 80 C1 81 80 F0 F0"),
         events("notation(n,pub,sys) notation(m,null,null) notation(n,null,sys) notation(m,sys,null)") + " end"},
        {"no notations", START + std::string("10 [111100 11] F0"), events("") + " end"},
        {"unparsed entities",
         START + std::string("[0 0001000] D1 00 'e' 02 'sys' 02 'pub' 00 'n' D0 00 'f' 80 81 D1 82 81 FF 81 F0 F0"),
         events("unparsed(e,pub,sys,n) unparsed(f,null,sys,n) unparsed(f,null,pub,n)") + " end"},
        {"no unparsed entities", START + std::string("08 [1111000 1] F0"), events("") + " end"},
        {"character encoding scheme", START + std::string("[0 0000100] 05 'UTF-16' 90 'x' F0"),
         events("") + " \"x\" end"},
        {"standalone", START + std::string("[0 0000010] FF F0"), events("") + " end"},
        {"version, which enters the table of other strings", START + std::string("[0 0000001] 42 '1.0' E2 80 F0"),
         events("") + " #1.0# end"},
        {"everything in its order",
         START + std::string("[0 1011111] 00 00 'i' 00 'd' C0 00 'n' F0 D0 00 'e' 00 's' 80 F0 00 'x' 01 02 '1.0' F0"),
         events("notation(n,null,null) unparsed(e,null,s,n)") + " end"},
    });

    const auto failure = [](const std::string& octets)
    {
        return eventsEverywhere(octetsOf(octets));
    };
    for (const char* mark : {"C4", "D0", "F4", "00"})
        EXPECT_NE(failure(START + ("10 " + std::string(mark))).find("!AssertionViolationException(id == 60 ["),
                  std::string::npos);
    for (const char* mark : {"C0", "D2", "F2", "00"})
        EXPECT_NE(failure(START + ("08 " + std::string(mark))).find("!AssertionViolationException(id == 120 ["),
                  std::string::npos);
}

TEST(FastInfosetParserTest, DocumentsOfOtherFormats)
{
    expectDocuments({
        {"another version", "E0 00 00 02 00", "!FISException(Unsupported Fast Infoset document version)"},
        {"XML", "'<a/>'", "!FISException(Not a valid Fast Infoset document (invalid header))"},
        {"XML with a declaration", "'<?xml?><a/>'",
         "!FISException(Not a valid Fast Infoset document (invalid header))"},
        {"nothing", "", endOfStream("parsing document header")},
        {"declaration without an end", "'<?xml'", endOfStream("parsing XML declaration")},
    });
}

TEST(FastInfosetParserTest, UnknownChildren)
{
    for (unsigned int octet = 0xC0; octet < 0xF0; ++octet)
    {
        if (octet >> 2 == 0x31 || octet >> 2 == 0x32 || octet == 0xE1 || octet == 0xE2)
            continue;
        const std::string message = octet < 0xE0 ? "Invalid child element" : "Parse error: unknown element child code";
        const std::string child(1, static_cast<char>(octet));
        EXPECT_EQ(eventsEverywhere(octetsOf(EMPTY_HEADER + "3C 00 'a'") + child),
                  "declaration=no vocabulary start <a> !FISEncodingException(" + message + ")");
    }
}

TEST(FastInfosetParserTest, InputThatEndsTooSoon)
{
    const std::string CHILDREN = endOfStream("parsing element children");
    const std::string ELEMENT = endOfStream("parsing element");
    const std::string IDENTIFYING = endOfStream("parsing identifying string or index");
    const std::string OTHER = endOfStream("parsing non identifying string or index");
    const std::string INTEGER = endOfStream("reading integer");
    const std::string LENGTH = endOfStream("parsing string length");
    expectBodies({
        {"document", "", CHILDREN},
        {"behind an element", "3C 00 'a' F0", "<a> </a> " + CHILDREN},
        {"element", "3C 00 'a'", "<a> " + CHILDREN},
        {"literal name", "3C", IDENTIFYING},
        {"prefix", "3F", IDENTIFYING},
        {"long name", "3C 40", LENGTH},
        {"name's index", "[0 0 100000]", INTEGER},
        {"prefix's index", "3F [1 1000000]", INTEGER},
        {"namespace attributes", "38", ELEMENT},
        {"namespace attribute", "38 CF", IDENTIFYING},
        {"name behind namespace attributes", "38 F0", ELEMENT},
        {"attributes", "7C 00 'a'", ELEMENT},
        {"attribute's name", "7C 00 'a' 78", IDENTIFYING},
        {"attribute's index", "7C 00 'a' [0 1000000]", INTEGER},
        {"attribute's value", "7C 00 'a' 78 00 'b'", OTHER},
        {"value's index", "7C 00 'a' 78 00 'b' [1 1000000]", INTEGER},
        {"value's length", "7C 00 'a' 78 00 'b' 48", LENGTH},
        {"value's algorithm", "7C 00 'a' 78 00 'b' 70", INTEGER},
        {"chunk's index", "[10 1 10000]", INTEGER},
        {"chunk's length", "[10 0 1 00 10]", LENGTH},
        {"chunk's alphabet", "[10 0 1 10 00]", INTEGER},
        {"chunk's algorithm", "[10 0 1 11 00]", INTEGER},
        {"values", "8C [000011 10] 05 00 00 00 01",
         "!FISParseException(Unexpected end of stream while decoding int values)"},
        {"comment", "E2", OTHER},
        {"target", "E1", IDENTIFYING},
        {"data", "E1 00 't'", OTHER},
        {"document type declaration", "C4", "dtd(,, " + endOfStream("parsing document type declaration")},
        {"its system identifier", "C6", IDENTIFYING},
        {"its processing instruction", "C4 E1", "dtd(,, " + IDENTIFYING},
        {"entity reference", "C8", IDENTIFYING},
    });
    for (const char* header : {"", "00", "10", "08", "04", "02", "40"})
    {
        const std::string events = eventsEverywhere(octetsOf("E0 00 00 01 " + std::string(header)));
        EXPECT_NE(events.find("!FISParseException(Unexpected end of stream while parsing "), std::string::npos)
            << header << ": " << events;
    }

    // Where the octets of a string are missing, memory and stream each have their own words.
    const std::string cut = octetsOf(EMPTY_HEADER + "3C 02 'ab'");
    const std::string start = "declaration=no vocabulary start ";
    EXPECT_EQ(eventsOf(cut), start + endOfStream("reading octet string"));
    EXPECT_EQ(eventsOf(cut, DocumentVocabulary::VOC_VECTOR, 1), start + endOfStream("parsing octet string"));
}

TEST(FastInfosetParserTest, IndexesBeyondTheirTable)
{
    const std::pair<const char*, const char*> cases[] = {{"prefix", "3E 81 00 'a'"},
                                                         {"namespace name", "3D 81 00 'a'"},
                                                         {"local name", "3C 80"},
                                                         {"element name", "00"},
                                                         {"attribute name", "7C 00 'a' 00"},
                                                         {"declared prefix", "38 CE 81"},
                                                         {"declared namespace name", "38 CD 81"},
                                                         {"attribute value", "7C 00 'a' 78 00 'b' 80"},
                                                         {"character chunk", "A0"},
                                                         {"longest index", "[10 1 11000] 0F FF FF"},
                                                         {"other NCName", "E1 80"},
                                                         {"other string", "E2 80"},
                                                         {"other URI", "C6 80"}};
    for (const auto& [name, octets] : cases)
    {
        for (const DocumentVocabulary::VocabularyImpl impl : ALL_TABLES)
        {
            const std::string events = eventsOf(octetsOf(EMPTY_HEADER + octets), impl);
            const bool isHash = impl == DocumentVocabulary::VOC_HASH;
            EXPECT_EQ(events.substr(events.find('!')), isHash
                                                           ? "!AssertionViolationException(this->_index.size() > idx "
                                                             "[in include/Vesk/FastInfoset/HashVocabulary, line 81])"
                                                           : "!std(index out of range)")
                << name;
        }
    }
}

TEST(FastInfosetParserTest, ReservedEntriesAreEmpty)
{
    expectBodies({{"names and values", "[0 0 1111 11] FF FF FF FF", "<> </> end"},
                  {"texts", "C7 FF FF F0 E1 FF FF E2 FF F0", "dtd(,, dtd) ? ? ## end"}});
}

TEST(FastInfosetParserTest, NamespacePrefixesDecideAboutQualifiedNames)
{
    const std::string octets = octetsOf(EMPTY_HEADER + "3F 00 'p' 00 'u' 00 'a' FF");
    FastInfosetParser parser;
    for (const bool state : {false, true, false})
    {
        parser.setFeature(XML::XMLReader::FEATURE_NAMESPACE_PREFIXES, state);
        EXPECT_EQ(parser.getFeature(XML::XMLReader::FEATURE_NAMESPACE_PREFIXES), state);
        EXPECT_EQ(eventsOf(parser, octets), state ? "declaration=no vocabulary start <{u}a(p:a)> </{u}a(p:a)> end"
                                                  : "declaration=no vocabulary start <{u}a> </{u}a> end");
    }
}

TEST(FastInfosetParserTest, Features)
{
    using XML::XMLReader;
    FastInfosetParser parser;
    EXPECT_TRUE(parser.getFeature(XMLReader::FEATURE_NAMESPACE_PREFIXES));
    EXPECT_TRUE(parser.getFeature(XMLReader::FEATURE_NAMESPACES));
    parser.setFeature(XMLReader::FEATURE_NAMESPACES, true);
    EXPECT_VESK_THROW(parser.setFeature(XMLReader::FEATURE_NAMESPACES, false), XML::SAXNotSupportedException,
                      XMLReader::FEATURE_NAMESPACES + ": namespace support cannot be disabled");
    EXPECT_TRUE(parser.getFeature(XMLReader::FEATURE_NAMESPACES));
    for (const XML::XMLString& unknown : {XMLReader::FEATURE_EXTERNAL_GENERAL_ENTITIES, std::string("other")})
    {
        EXPECT_VESK_THROW(parser.setFeature(unknown, true), XML::SAXNotRecognizedException, unknown);
        EXPECT_VESK_THROW(parser.getFeature(unknown), XML::SAXNotRecognizedException, unknown);
    }
}

TEST(FastInfosetParserTest, Properties)
{
    FastInfosetParser parser;
    int handler = 0;
    for (const XML::XMLString& known :
         {XML::XMLReader::PROPERTY_DECLARATION_HANDLER, XML::XMLReader::PROPERTY_LEXICAL_HANDLER})
    {
        EXPECT_EQ(parser.getProperty(known), nullptr);
        parser.setProperty(known, &handler);
        EXPECT_EQ(parser.getProperty(known), &handler);
        EXPECT_VESK_THROW(parser.setProperty(known, std::string("x")), XML::SAXNotSupportedException,
                          "property does not take a string value: " + known);
    }
    EXPECT_VESK_THROW(parser.setProperty("other", &handler), XML::SAXNotRecognizedException, "other");
    EXPECT_VESK_THROW(parser.setProperty("other", std::string("x")), XML::SAXNotRecognizedException, "other");
    EXPECT_VESK_THROW(parser.getProperty("other"), XML::SAXNotRecognizedException, "other");
}

TEST(FastInfosetParserTest, KeepsItsHandlers)
{
    FastInfosetParser parser;
    EventLog log;
    XML::EntityResolverImpl resolver;
    const auto errorHandler = reinterpret_cast<XML::ErrorHandler*>(&log); // never called
    parser.setEntityResolver(&resolver);
    parser.setErrorHandler(errorHandler);
    log.attachTo(parser);
    EXPECT_EQ(parser.getEntityResolver(), &resolver);
    EXPECT_EQ(parser.getErrorHandler(), errorHandler);
    EXPECT_EQ(parser.getContentHandler(), &log);
    EXPECT_EQ(parser.getDTDHandler(), &log);
    EXPECT_EQ(parser.getDocumentHandler(), &log);

    parser.initialize(static_cast<FastInfosetWriter*>(nullptr));
    parser.initialize(static_cast<XML::XMLWriter*>(nullptr));
    EXPECT_EQ(parser.getContentHandler(), &log);

    std::ostringstream stream;
    FastInfosetWriter binary(stream);
    parser.initialize(&binary);
    EXPECT_EQ(parser.getContentHandler(), &binary);
    EXPECT_EQ(parser.getDTDHandler(), &binary);
    EXPECT_EQ(parser.getDocumentHandler(), &binary);
    EXPECT_EQ(parser.getProperty(XML::XMLReader::PROPERTY_LEXICAL_HANDLER), static_cast<XML::LexicalHandler*>(&binary));

    XML::XMLWriter text(stream, 0);
    parser.initialize(&text);
    EXPECT_EQ(parser.getContentHandler(), &text);
    EXPECT_EQ(parser.getDocumentHandler(), nullptr);
    EXPECT_EQ(parser.getProperty(XML::XMLReader::PROPERTY_LEXICAL_HANDLER), static_cast<XML::LexicalHandler*>(&text));
}

TEST(FastInfosetParserTest, AnyHandlerMayBeMissing)
{
    const std::string octets =
        octetsOf("E0 00 00 01 18 C3 00 'n' 02 'sys' 02 'pub' F0 D1 00 'e' FF FF 80 F0"
                 "C4 F0 78 CF 00 'p' 00 'u' F0 3C 00 'a' 78 00 'b' 40 '1' F0 90 'x'"
                 "[10 0 1 11 00] [001001 0 0] 'y' [10 0 1 11 00] [000010 01] 00 01 E1 00 't' 40 'd' E2 40 'c' FF");
    FastInfosetParser parser;
    parseOctets(parser, octets, 0);

    EventLog content;
    parser.setContentHandler(&content);
    parseOctets(parser, octets, 0);
    EXPECT_EQ(content.events(), "start +p=u <a b=\"1\"> \"x\" \"y\" \"1\" ?t d? </a> -p end");

    TypedEventLog typed;
    parser.setContentHandler(&typed);
    parseOctets(parser, octets, 0);
    EXPECT_EQ(typed.events(), "start +p=u <a b=\"1\"> \"x\" \"y\" short=1 ?t d? </a> -p end");

    parser.setContentHandler(nullptr);
    EventLog lexical;
    parser.setProperty(XML::XMLReader::PROPERTY_LEXICAL_HANDLER, static_cast<XML::LexicalHandler*>(&lexical));
    parseOctets(parser, octets, 0);
    EXPECT_EQ(lexical.events(), "dtd(,, dtd) cdata( cdata) #c#");

    parser.setProperty(XML::XMLReader::PROPERTY_LEXICAL_HANDLER, static_cast<void*>(nullptr));
    EventLog declarations;
    parser.setDTDHandler(&declarations);
    parser.setDocumentHandler(&declarations);
    parseOctets(parser, octets, 0);
    EXPECT_EQ(declarations.events(), "declaration=no vocabulary notation(n,pub,sys) unparsed(e,null,,n)");
}

TEST(FastInfosetParserTest, ParsesWhatTheInputSourceHas)
{
    const auto document = [](const std::string& name)
    {
        return octetsOf(EMPTY_HEADER + "3C 00 '" + name + "' FF");
    };
    const TemporaryFile file(".finf", document("c"));
    const std::string& path = file.path();
    std::istringstream bytes(document("a"));
    std::istringstream characters(document("b"));

    XML::InputSource source(path);
    source.setByteStream(&bytes);
    source.setCharacterStream(&characters);
    FastInfosetParser parser;
    EventLog log;
    parser.setContentHandler(&log);
    parser.parse(&source);
    source.setByteStream(nullptr);
    parser.parse(&source);
    source.setCharacterStream(nullptr);
    parser.parse(&source);
    parser.parse(path);
    parser.parse("file:" + path);
    EXPECT_EQ(log.events(), "start <a> </a> end start <b> </b> end start <c> </c> end start <c> </c> end "
                            "start <c> </c> end");
    EXPECT_VESK_THROW(parser.parse("/nowhere/to/be/found"), FISParseException,
                      "Cannot resolve system identifier: /nowhere/to/be/found");

    file.write("<a/>");
    EXPECT_EQ(failureOf([&] { parser.parse(path); }),
              "!FISException(Not a valid Fast Infoset document (invalid header))");
}

} // namespace Vesk::FastInfoset
