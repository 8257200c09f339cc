// SPDX-License-Identifier: MIT
#include "EventLog.h"
#include "TemporaryFile.h"
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/URIStreamOpener.h"
#include <functional>
#include <map>
#include <sstream>

// Initial and external vocabularies, as parser and writer handle them.

namespace Vesk::FastInfoset
{

namespace
{

/// A header that announces an initial vocabulary; its 13 flags follow behind three padding bits:
///
///     [000 e a g p n] [l c u v k s N A]    external, alphabets, algorithms, prefixes, namespace names, local names,
///                                          NCNames, URIs, attribute values, chunks, strings, element, attribute names
const std::string INITIAL = "E0 00 00 01 20 ";

const std::string START = "declaration=no vocabulary start ";

struct DocumentCase
{
    const char* name;
    std::string octets; // behind the header
    std::string events;
};

void expectDocuments(std::initializer_list<DocumentCase> cases)
{
    for (const DocumentCase& row : cases)
        EXPECT_EQ(eventsEverywhere(octetsOf(INITIAL + row.octets)), row.events) << row.name << ": " << row.octets;
}

/// The octet string of a list's item: a padding bit, the length, the text.
std::string item(const std::string& text)
{
    return std::string(1, static_cast<char>(text.size() - 1)) + text;
}

/// A document that names the external vocabulary, and nothing else in front of its body.
std::string naming(const std::string& uri, const std::string& body)
{
    return octetsOf(INITIAL + "10 00") + item(uri) + octetsOf(body);
}

/// The scheme "mem" leads to documents that a test puts here.
class ExternalVocabularyTest : public testing::Test
{
protected:
    ExternalVocabularyTest()
    {
        URIStreamOpener::defaultOpener().registerStreamFactory(
            "mem",
            [this](const URI& uri) -> std::unique_ptr<std::istream>
            {
                const auto found = documents.find(uri.toString());
                if (found == documents.end())
                    throw FileNotFoundException("File not found", uri.toString());
                ++opened;
                return std::make_unique<std::istringstream>(found->second);
            });
    }
    ~ExternalVocabularyTest() override { URIStreamOpener::defaultOpener().unregisterStreamFactory("mem"); }

    std::map<std::string, std::string> documents;
    int opened = 0;

    // <a b="1">x</a>
    const std::string FIS_DOCUMENT = octetsOf("E0 00 00 01 00 7C 00 'a' 78 00 'b' 40 '1' F0 90 'x' FF");
    const std::string XML_DOCUMENT = "<!DOCTYPE a [<!NOTATION n SYSTEM 'sys'>]><a b='1'>x</a>";
    // The same by indexes only.
    const std::string BODY = "[0 1 000000] [0 0000000] 80 F0 A0 FF";
    const std::string EVENTS = "start <a b=\"1\"> \"x\" </a> end";
};

} // namespace

TEST(InitialVocabularyTest, EachTable)
{
    expectDocuments({
        {"alphabets",
         "[000 01000] 00 01 01 'ab' 03 'wxyz' [10 0 0 10 00] [001111 00] 50 [10 0 0 10 00] [010000 00] 1B F0",
         START + "\"ababaaaa\" \"wxyz\" end"},
        {"algorithms, which mean nothing", "[000 00100] 00 01 00 'u' 00 'v' F0", START + "end"},
        {"prefixes", "[000 00010] 00 01 00 'p' 00 'q' 3E 81 00 'a' 3E 82 80 FF F0",
         START + "<a(p:a)> <a(q:a)> </a(q:a)> </a(p:a)> end"},
        {"namespace names", "[000 00001] 00 00 00 'u' 3D 81 00 'a' FF", START + "<{u}a> </{u}a> end"},
        {"local names", "00 [10000000] 00 00 'a' 3C 80 FF", START + "<a> </a> end"},
        {"other NCNames", "00 [01000000] 00 00 't' E1 80 40 'd' F0", START + "?t d? end"},
        {"other URIs", "00 [00100000] 00 02 'sys' C6 80 FF", START + "dtd(,,sys dtd) end"},
        {"attribute values", "00 [00010000] 00 [00 00 0 000] '1' 7C 00 'a' 78 00 'b' 80 FF F0",
         START + "<a b=\"1\"> </a> end"},
        {"character chunks", "00 [00001000] 00 [00 00 0 000] 'x' A0 F0", START + "\"x\" end"},
        {"other strings", "00 [00000100] 00 [00 00 0 000] 'c' E2 80 F0", START + "#c# end"},
        {"element names", "00 [10000010] 00 00 'a' 00 [000000 00] 00 [0 0 000000] FF", START + "<a> </a> end"},
        {"attribute names", "00 [10000001] 00 00 'b' 00 [000000 00] 00 7C 00 'a' [0 0000000] 40 '1' FF F0",
         START + "<a b=\"1\"> </a> end"},
    });
}

TEST(InitialVocabularyTest, AllTablesTogether)
{
    expectDocuments({
        {"in the order of their flags",
         "[111 01111] [11111111] 00 01 'ab' 00 00 'u' 00 00 'p' 00 00 'u' 01 00 'a' 00 'b' 00 00 't' 00 02 'sys'"
         "00 40 '1' 00 [11 00 0 000] 'x' 00 00 'c' 00 [000000 11] 01 01 00 00 [000000 01] 01 01"
         "C6 80 F0 E1 80 80 40 00 80 F0 A0 E2 80 FF",
         START + "dtd(,,sys dtd) ?t c? <{u}a(p:a) {u}b=\"1\"> \"x\" #c# </{u}a(p:a)> end"},
        {"strings in every form",
         "00 [00010000] 05 [00 00 0 000] 'a' [00 01 0 001] 00 'b' [00 10 1010] [0101 0000] [0000 0 000] 29"
         "[00 11 1010] [0101 0000] [0011 0 011] 00 00 00 05 [00 11 0000] [0000 0000] [1001 0 000] 'c'"
         "[00 11 0000] [0000 0000] [0000 0 001] 0A FF"
         "7C 00 'a' 78 00 'a' 80 00 81 00 82 00 83 00 84 00 85 FF F0",
         START + "<a a=\"a\" a=\"b\" a=\"12\" a=\"5\" a=\"c\" a=\"0AFF\"> </a> end"},
    });
    EXPECT_EQ(eventsEverywhere(octetsOf("E0 00 00 01 [0 1100000] 00 00 'i' 00 'd' 02 00 00 00 'p' 3E 81 00 'a' FF")),
              START + "<a(p:a)> </a(p:a)> end")
        << "behind additional data";
}

TEST(InitialVocabularyTest, ListOfMoreThan128Items)
{
    std::string octets = octetsOf(INITIAL + "00 80 80 00 01");
    for (int i = 1; i <= 130; ++i)
        octets += item("name" + std::to_string(i));
    EXPECT_EQ(eventsEverywhere(octets + octetsOf("3C [1 10 00000] [01000001] FF")), START + "<name130> </name130> end");
}

TEST(InitialVocabularyTest, MalformedOnes)
{
    const auto failure = [](const std::string& text)
    {
        return "declaration=no !" + text;
    };
    const std::string DECODING = "FISParseException(Unexpected end of stream while ";
    expectDocuments({
        {"without any table", "00 00 F0",
         failure("FISException(Initial Vocabulary detected with zero information in it - at least one dictionary "
                 "required)")},
        {"without any table but with padding bits", "E0 00 F0",
         failure("FISException(Initial Vocabulary detected with zero information in it - at least one dictionary "
                 "required)")},
        {"with an index into a reserved alphabet", "00 08 00 [00 10 0000] [0000 0000] [0010 0 000] 00",
         failure("FISEncodingException(Restricted alphabet without characters)")},
        {"with an index beyond the alphabets", "00 08 00 [00 10 0000] [0000 0000] [1111 0 000] 00",
         failure("AssertionViolationException(vocabulary > 0 && vocabulary <= _alphabets.size() "
                 "[in include/Vesk/FastInfoset/DocumentRestrictedAlphabet, line 105])")},
        {"with an unknown algorithm", "00 08 00 [00 11 0000] [0000 0000] [1010 0 000] 00",
         failure("FISException(Invalid decoding defined)")},
        {"with flags that are cut off", "02", failure(DECODING + "parsing document header)")},
        {"with a table that is cut off", "02 00", failure(DECODING + "parsing sequence length)")},
        {"with fewer items than announced", "02 00 01 00 'p'", failure(DECODING + "parsing document header)")},
        {"with a surrogate that is cut off", "00 02 00 02", failure(DECODING + "reading surrogate)")},
    });
}

TEST(InitialVocabularyTest, DuplicatesFailACheckWhereTheTableFindsThem)
{
    struct Case
    {
        const char* name;
        const char* octets;
        int line;
    };
    const Case cases[] = {{"prefix", "02 00 01 00 'p' 00 'p'", 666},
                          {"built-in prefix", "02 00 00 02 'xml'", 666},
                          {"namespace name", "01 00 01 00 'u' 00 'u'", 666},
                          {"local name", "00 80 01 00 'a' 00 'a'", 666},
                          {"other NCName", "00 40 01 00 't' 00 't'", 666},
                          {"other URI", "00 20 01 00 's' 00 's'", 666},
                          {"attribute value", "00 10 01 00 '1' 00 '1'", 686},
                          {"character chunk", "00 08 01 00 'x' 00 'x'", 686},
                          {"other string", "00 04 01 00 'c' [00 11 0000] [0000 0000] [1001 0 000] 'c'", 686},
                          {"element name", "00 82 00 00 'a' 01 [000000 00] 00 [000000 00] 00", 746},
                          {"attribute name", "00 81 00 00 'a' 01 [000000 00] 00 [000000 00] 00", 746}};
    for (const Case& row : cases)
    {
        const std::string octets = octetsOf(INITIAL + row.octets + " F0");
        const std::string failure = "declaration=no !AssertionViolationException(!existed [in src/Decoder, line " +
                                    std::to_string(row.line) + "])";
        EXPECT_EQ(eventsOf(octets, DocumentVocabulary::VOC_HASH), failure) << row.name;
        EXPECT_EQ(eventsOf(octets, DocumentVocabulary::VOC_MAP), failure) << row.name;
        EXPECT_EQ(eventsOf(octets, DocumentVocabulary::VOC_VECTOR), START + "end") << row.name;
    }
}

TEST(InitialVocabularyTest, SurrogatesAreResolvedWhenTheyAreUsed)
{
    for (const char* surrogate : {"[000000 00] 01", "[000000 01] 02 00", "[000000 10] 02 00"})
    {
        const std::string table = INITIAL + "00 82 00 00 'a' 00 " + surrogate;
        EXPECT_EQ(eventsEverywhere(octetsOf(table + " F0")), START + "end") << surrogate;
        for (const DocumentVocabulary::VocabularyImpl impl : ALL_TABLES)
        {
            const std::string events = eventsOf(octetsOf(table + " [0 0 000000] FF"), impl);
            EXPECT_NE(events.find(impl == DocumentVocabulary::VOC_HASH ? "!AssertionViolationException(" : "!std("),
                      std::string::npos)
                << surrogate << ": " << events;
        }
    }
}

TEST(InitialVocabularyTest, TablesOfFixedSizeRunFull)
{
    std::string octets = octetsOf(INITIAL + "00 20 12");
    for (int i = 1; i <= 19; ++i)
        octets += item("uri" + std::to_string(i));
    octets += octetsOf("C6 92 FF");
    EXPECT_EQ(eventsOf(octets, DocumentVocabulary::VOC_HASH),
              "declaration=no !PoolOverflowException(Vocabulary hash table full)");
    EXPECT_EQ(eventsOf(octets, DocumentVocabulary::VOC_MAP), START + "dtd(,,uri19 dtd) end");
}

TEST(InitialVocabularyTest, DocumentHandlerReceivesTheTables)
{
    FastInfosetParser parser;
    EventLog log;
    log.attachTo(parser);
    parseOctets(parser, octetsOf(INITIAL + "02 80 00 00 'p' 00 00 'a' 90 'x' 3C 00 'b' FF"), 0);
    const DocumentVocabulary& vocabulary = log.getDocumentVocabulary();
    EXPECT_EQ(vocabulary.vocabulary(DocumentVocabulary::PREFIX).value(2), "p");
    EXPECT_EQ(vocabulary.vocabulary(DocumentVocabulary::LOCAL_NAME).size(), 2u) << "the body comes later";
    EXPECT_EQ(vocabulary.vocabulary(DocumentVocabulary::CONTENT_CHARACTER_CHUNK).size(), 1u);
}

TEST(InitialVocabularyTest, WrittenHeaders)
{
    using Vocabularies = std::function<void(DocumentVocabulary&)>;
    struct Case
    {
        const char* name;
        Vocabularies fill;
        const char* octets;
    };
    const auto add = [](DocumentVocabulary::ID id, std::initializer_list<const char*> entries)
    {
        const std::vector<std::string> copy(entries.begin(), entries.end());
        return [id, copy](DocumentVocabulary& vocabulary)
        {
            bool found = false;
            for (const std::string& entry : copy)
                vocabulary.vocabulary(id).index(entry, found);
        };
    };
    const Case cases[] = {
        {"nothing", [](DocumentVocabulary&) {}, "E0 00 00 01 00 F0"},
        {"prefix", add(DocumentVocabulary::PREFIX, {"p"}), "E0 00 00 01 [0 0100000] [000 00010] 00 00 00 'p' F0"},
        {"prefixes", add(DocumentVocabulary::PREFIX, {"q", "xml", "p"}), "E0 00 00 01 20 02 00 01 00 'q' 00 'p' F0"},
        {"namespace name", add(DocumentVocabulary::NAMESPACE_NAME, {"u"}), "E0 00 00 01 20 01 00 00 00 'u' F0"},
        {"local name", add(DocumentVocabulary::LOCAL_NAME, {"a"}), "E0 00 00 01 20 00 80 00 00 'a' F0"},
        {"other NCName", add(DocumentVocabulary::OTHER_NCNAME, {"t"}), "E0 00 00 01 20 00 40 00 00 't' F0"},
        {"other URI", add(DocumentVocabulary::OTHER_URI, {"sys"}), "E0 00 00 01 20 00 20 00 02 'sys' F0"},
        {"alphabets",
         [](DocumentVocabulary& vocabulary)
         {
             vocabulary.restrictedAlphabets().add("ab");
             vocabulary.restrictedAlphabets().add("cde");
         },
         "E0 00 00 01 20 08 00 01 01 'ab' 02 'cde' F0"},
        {"several",
         [=](DocumentVocabulary& vocabulary)
         {
             add(DocumentVocabulary::OTHER_URI, {"sys"})(vocabulary);
             add(DocumentVocabulary::PREFIX, {"p"})(vocabulary);
             add(DocumentVocabulary::LOCAL_NAME, {"a", "b"})(vocabulary);
         },
         "E0 00 00 01 20 02 A0 00 00 'p' 01 00 'a' 00 'b' 00 02 'sys' F0"}};
    for (const Case& row : cases)
    {
        SCOPED_TRACE(row.name);
        for (const DocumentVocabulary::VocabularyImpl impl :
             {DocumentVocabulary::VOC_HASH, DocumentVocabulary::VOC_MAP})
        {
            DocumentVocabulary vocabulary(impl);
            row.fill(vocabulary);
            std::ostringstream stream;
            FastInfosetWriter writer(stream, false, vocabulary);
            writer.startDocument();
            writer.endDocument();
            EXPECT_EQ(hexOf(stream.str()), hexOf(octetsOf(row.octets)));
            EXPECT_EQ(eventsEverywhere(stream.str()), START + "end");
        }
    }
}

TEST(InitialVocabularyTest, WriterUsesTheEntriesOfItsHeader)
{
    DocumentVocabulary vocabulary(DocumentVocabulary::VOC_MAP);
    bool found = false;
    vocabulary.vocabulary(DocumentVocabulary::PREFIX).index("p", found);
    vocabulary.vocabulary(DocumentVocabulary::LOCAL_NAME).index("a", found);
    std::ostringstream stream;
    FastInfosetWriter writer(stream);
    writer.setDocumentVocabulary(vocabulary);
    writer.startDocument();
    writer.emptyElement("u", "a", "p:a");
    writer.endDocument();
    EXPECT_EQ(hexOf(stream.str()),
              hexOf(octetsOf(INITIAL + "02 80 00 00 'p' 00 00 'a' 38 CF 81 00 'u' F0 3F 81 81 80 FF")));
}

TEST(InitialVocabularyTest, EntriesThatCannotBeWritten)
{
    const std::string REFUSED = "!AssertionViolationException(checkInputParams(Utility::SIZEOFINT32INBIT, numOfBits) "
                                "[in src/BitStreamWriter, line 195])";
    const auto expectRefusal = [&](const DocumentVocabulary& vocabulary, const char* octets)
    {
        std::ostringstream stream;
        {
            FastInfosetWriter writer(stream, false, vocabulary);
            EXPECT_EQ(failureOf([&] { writer.startDocument(); }), REFUSED) << octets;
        }
        EXPECT_EQ(hexOf(stream.str()), octets) << "up to the length of the list";
    };
    const std::pair<DocumentVocabulary::ID, const char*> tables[] = {
        {DocumentVocabulary::ATTRIBUTE_VALUE, "E0 00 00 01 20 00 10 00"},
        {DocumentVocabulary::CONTENT_CHARACTER_CHUNK, "E0 00 00 01 20 00 08 00"},
        {DocumentVocabulary::OTHER_STRING, "E0 00 00 01 20 00 04 00"}};
    bool found = false;
    for (const auto& [id, octets] : tables)
    {
        DocumentVocabulary vocabulary(DocumentVocabulary::VOC_MAP);
        vocabulary.vocabulary(id).index("text", found);
        expectRefusal(vocabulary, octets);
    }
    DocumentVocabulary elements(DocumentVocabulary::VOC_HASH);
    elements.elementNames().index(QualifiedNameEntry(0, 0, 1), found);
    expectRefusal(elements, "E0 00 00 01 20 00 02 00");
    DocumentVocabulary attributes(DocumentVocabulary::VOC_HASH);
    attributes.attributeNames().index(QualifiedNameEntry(0, 0, 1), found);
    expectRefusal(attributes, "E0 00 00 01 20 00 01 00");
}

TEST(InitialVocabularyTest, ExternalVocabularyIsLeftOutOfTheHeader)
{
    DocumentVocabulary external(DocumentVocabulary::VOC_HASH);
    bool found = false;
    external.vocabulary(DocumentVocabulary::LOCAL_NAME).index("a", found);
    external.vocabulary(DocumentVocabulary::ATTRIBUTE_VALUE).index("1", found);
    external.elementNames().index(QualifiedNameEntry(0, 0, 1), found);
    DocumentVocabulary more(external);
    more.vocabulary(DocumentVocabulary::PREFIX).index("p", found);

    const auto written = [&](const DocumentVocabulary& vocabulary, const std::string& uri)
    {
        std::ostringstream stream;
        FastInfosetWriter writer(stream, false, vocabulary);
        writer.setExternalVocabulary(uri, external);
        writer.startDocument();
        writer.emptyElement("", "a", "a");
        writer.endDocument();
        return hexOf(stream.str());
    };
    EXPECT_EQ(written(external, "uri"), hexOf(octetsOf(INITIAL + "[000 10000] 00 02 'uri' [0 0 000000] FF")));
    EXPECT_EQ(written(more, "uri"), hexOf(octetsOf(INITIAL + "[000 10010] 00 02 'uri' 00 00 'p' 00 FF")));
    EXPECT_EQ(written(DocumentVocabulary(DocumentVocabulary::VOC_MAP), ""),
              hexOf(octetsOf("E0 00 00 01 00 3C 00 'a' FF")))
        << "no URI, no external vocabulary";
}

TEST(InitialVocabularyTest, ParserDrivesAWriter)
{
    const std::string documents[] = {
        "E0 00 00 01 00 F0",
        "'<?xml encoding=' 27 'finf' 27 '?>' E0 00 00 01 00 3C 00 'a' FF",
        "E0 00 00 01 18 C3 00 'n' 02 'sys' 02 'pub' C3 00 'm' 80 FF F0 D1 00 'e' 80 FF 80 F0 C6 80 E1 00 't' 40 'd' F0"
        "3C 00 'a' FF",
        "E0 00 00 01 00 E2 41 'hi' 78 CD 00 'u' CF 00 'p' 00 'v' F0 3D 81 00 'a' 78 00 'b' 40 '1' 7B 81 82 81 80 F0"
        "91 'hi' A0 9C 24 'y' E2 80 3C 00 'c' F0 3F 81 82 82 FF F0",
        INITIAL + "0B E0 00 01 'ab' 00 00 'p' 00 00 'u' 00 00 'a' 00 00 't' 00 02 'sys' 38 CF 81 81 F0 3F 81 81 80 FF",
    };
    for (const std::string& document : documents)
    {
        const std::string octets = octetsOf(document);
        for (const DocumentVocabulary::VocabularyImpl impl :
             {DocumentVocabulary::VOC_HASH, DocumentVocabulary::VOC_MAP})
        {
            std::ostringstream stream;
            FastInfosetWriter writer(stream);
            FastInfosetParser parser(impl);
            parser.initialize(&writer);
            EXPECT_EQ(failureOf([&] { parseOctets(parser, octets, 0); }), "");
            EXPECT_EQ(hexOf(stream.str()), hexOf(octets));
        }
    }

    std::ostringstream stream;
    FastInfosetWriter writer(stream);
    FastInfosetParser vectors(DocumentVocabulary::VOC_VECTOR);
    vectors.initialize(&writer);
    EXPECT_THROW(parseOctets(vectors, octetsOf(documents[0]), 0), InvalidArgumentException);
}

TEST_F(ExternalVocabularyTest, IsReadWhateverItsForm)
{
    documents = {{"mem:/voc.finf", FIS_DOCUMENT}, {"mem:/voc", FIS_DOCUMENT},
                 {"mem:/xml", FIS_DOCUMENT},      {"mem:/voc.xml", XML_DOCUMENT},
                 {"mem:/voc.XML", XML_DOCUMENT},  {"mem:/voc.xml?query#fragment", XML_DOCUMENT}};
    for (const auto& [uri, document] : documents)
    {
        EXPECT_EQ(eventsEverywhere(naming(uri, BODY)), "declaration=no external=" + uri + " vocabulary " + EVENTS);
        FastInfosetParser parser; // without a document handler
        EventLog log;
        parser.setContentHandler(&log);
        parseOctets(parser, naming(uri, BODY), 0);
        EXPECT_EQ(log.events(), EVENTS);
    }
}

TEST_F(ExternalVocabularyTest, MayBeAFile)
{
    for (const std::string extension : {".finf", ".xml", ".Xml"})
    {
        const TemporaryFile file(" vocabulary" + extension, extension == ".finf" ? FIS_DOCUMENT : XML_DOCUMENT);
        std::string uri = "file:" + file.path();
        uri.replace(uri.find(' '), 1, "%20");
        for (const std::string& name : {file.path(), uri})
            EXPECT_EQ(eventsOf(naming(name, BODY)), "declaration=no external=" + name + " vocabulary " + EVENTS);
    }
}

TEST_F(ExternalVocabularyTest, TakesEntriesOfTheDocumentOnTop)
{
    documents["mem:/voc"] = FIS_DOCUMENT;
    const std::string octets = octetsOf(INITIAL + "[000 10000] 80") + item("mem:/voc") + octetsOf("00 00 'c' 3C 82 FF");
    EXPECT_EQ(eventsEverywhere(octets), "declaration=no external=mem:/voc vocabulary start <c> </c> end");
}

TEST_F(ExternalVocabularyTest, IsLoadedAfreshByEveryDocument)
{
    documents["mem:/voc"] = FIS_DOCUMENT;
    FastInfosetParser parser;
    const std::string plain = octetsOf("E0 00 00 01 00 3C 00 'z' FF");
    for (int i = 1; i <= 3; ++i)
    {
        EXPECT_EQ(eventsOf(parser, naming("mem:/voc", "3C 00 'd' 00 F0 01 FF FF")),
                  "declaration=no external=mem:/voc vocabulary start <d> <a> </a> <d> </d> </d> end");
        EXPECT_EQ(opened, i);
        EXPECT_EQ(eventsOf(parser, plain), START + "<z> </z> end");
    }
}

TEST_F(ExternalVocabularyTest, IsNotOpenedWhenItWasPrepared)
{
    for (const DocumentVocabulary::VocabularyImpl impl : ALL_TABLES)
    {
        DocumentVocabulary prepared("mem:/nowhere", impl);
        bool found = false;
        prepared.vocabulary(DocumentVocabulary::LOCAL_NAME).index("a", found);
        prepared.elementNames().index(QualifiedNameEntry(0, 0, 1), found);
        FastInfosetParser parser(prepared);
        EXPECT_EQ(eventsOf(parser, naming("mem:/nowhere", "00 3C 00 'b' FF F0")), START + "<a> <b> </b> </a> end");
        EXPECT_EQ(eventsOf(parser, naming("mem:/nowhere", "00 01 FF F0")), START + "<a> <b> </b> </a> end")
            << "what documents add stays";
    }
}

TEST_F(ExternalVocabularyTest, FailuresLeaveTheParserAbleToParse)
{
    documents["mem:/broken"] = octetsOf("E0 00 00 01 00 3C");
    documents["mem:/broken.xml"] = "<a>";
    documents["mem:/text"] = "text";
    documents["mem:/self"] = naming("mem:/self", "F0");
    documents["mem:/indirect"] = naming("mem:/lost", "F0");
    const std::pair<std::string, const char*> cases[] = {
        {"mem:/lost", "!FileNotFoundException("},
        {"mem:/broken", "!FISParseException("},
        {"mem:/broken.xml", "!SAXParseException("},
        {"mem:/text", "!FISException(Not a valid Fast Infoset document (invalid header))"},
        {"mem:/self", "!FISException(External vocabularies nested too deeply)"},
        {"mem:/indirect", "!FileNotFoundException("},
        {"nobody:/registered", "!UnknownURISchemeException("},
        {"/nowhere/to/be/found", "!FileNotFoundException("},
        {"mem:/%zz", "!SyntaxException("},
        {std::string("/dev/null\0.xml", 14), "!FileNotFoundException("},
        {"/", "!IOException("}};
    for (const DocumentVocabulary::VocabularyImpl impl : ALL_TABLES)
    {
        FastInfosetParser parser(impl);
        for (const auto& [uri, failure] : cases)
        {
            const std::string events = eventsOf(parser, naming(uri, "F0"));
            EXPECT_EQ(events.find(std::string("declaration=no ") + failure), 0u) << uri << ": " << events;
            EXPECT_EQ(eventsOf(parser, FIS_DOCUMENT), "declaration=no vocabulary " + EVENTS) << "after " << uri;
        }
    }
}

TEST_F(ExternalVocabularyTest, MayNameAnotherOneEightTimes)
{
    documents["mem:/0"] = FIS_DOCUMENT;
    for (int i = 1; i <= 9; ++i)
        documents["mem:/" + std::to_string(i)] = naming("mem:/" + std::to_string(i - 1), "F0");
    EXPECT_EQ(eventsOf(naming("mem:/7", BODY)), "declaration=no external=mem:/7 vocabulary " + EVENTS);
    EXPECT_EQ(eventsOf(naming("mem:/8", BODY)),
              "declaration=no !FISException(External vocabularies nested too deeply)");
}

TEST_F(ExternalVocabularyTest, GoesToAWriterAsItsURI)
{
    for (const char* uri : {"mem:/voc.finf", "mem:/voc.xml"})
    {
        documents = {{uri, std::string(uri) == "mem:/voc.xml" ? XML_DOCUMENT : FIS_DOCUMENT}};
        for (const DocumentVocabulary::VocabularyImpl impl : ALL_TABLES)
        {
            const std::string octets = naming(uri, "[0 1 000000] [0 0000000] 80 F0 A0 3C 00 'c' FF F0");
            std::ostringstream stream;
            FastInfosetWriter writer(stream);
            FastInfosetParser parser(impl);
            parser.initialize(&writer);
            EXPECT_EQ(failureOf([&] { parseOctets(parser, octets, 0); }), "");
            EXPECT_EQ(hexOf(stream.str()), hexOf(octets));
        }
    }
}

} // namespace Vesk::FastInfoset
