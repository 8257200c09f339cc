// SPDX-License-Identifier: MIT
#include "Vesk/XML/SAXParser.h"
#include "EventRecorder.h"
#include "ExceptionMatcher.h"
#include "TestStreams.h"
#include "Vesk/XML/DeclHandler.h"
#include "Vesk/XML/EntityResolver.h"
#include "Vesk/XML/ErrorHandler.h"
#include "Vesk/XML/Locator.h"
#include "Vesk/XML/SAXParseException.h"
#include "Vesk/XML/XMLFilterImpl.h"
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>

using namespace Vesk;
using namespace Vesk::XML;

namespace
{
std::string events(SAXParser& parser, const std::string& xml)
{
    EventRecorder recorder(EventRecorder::QUALIFIED_NAMES);
    recorder.attachTo(parser);
    parser.parseMemoryNP(xml.data(), xml.size());
    return recorder.events();
}

std::string events(const std::string& xml)
{
    SAXParser parser;
    return events(parser, xml);
}

std::string repeated(const std::string& text, int count)
{
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

/// Serves external entities from memory.
class MemoryResolver : public EntityResolver
{
public:
    InputSource* resolveEntity(const std::string* publicId, const std::string& systemId) override
    {
        asked += systemId + (publicId ? " " + *publicId : "") + "\n";
        const auto document = documents.find(systemId);
        if (document == documents.end())
            return nullptr;
        ++lent;
        auto source = std::make_unique<InputSource>();
        source->setByteStream(new std::istringstream(document->second));
        return source.release();
    }
    void releaseInputSource(InputSource* source) override
    {
        --lent;
        delete source->getByteStream();
        delete source;
    }

    std::map<std::string, std::string> documents;
    std::string asked;
    int lent = 0;
};
} // namespace

TEST(SAXParserTest, ReportsContent)
{
    EXPECT_EQ(events("<!--c--><p:a xmlns:p='u' b='1' p:c='2'>text<d/>&lt;tail<?t  d ?></p:a><?end?>"),
              "start document\n"
              "#c\n"
              "map p=u\n"
              "<{u}a p:a\n"
              " @b b=1\n"
              " @{u}c p:c=2\n"
              "\"text\n"
              "<d d\n"
              ">d d\n"
              "\"<tail\n"
              "?t d \n"
              ">{u}a p:a\n"
              "unmap p\n"
              "?end \n"
              "end document\n");
}

TEST(SAXParserTest, ReportsTheDocumentType)
{
    EXPECT_EQ(events("<!DOCTYPE a PUBLIC 'p' 's' [<!--hidden--><?pi x?><!NOTATION n PUBLIC 'np'><!NOTATION m SYSTEM "
                     "'ms'><!ENTITY e SYSTEM 'es' NDATA n><!ENTITY f PUBLIC 'fp' 'fs' NDATA m>]><!--shown--><a/>"),
              "notation n [np] []\n"
              "notation m [] [ms]\n"
              "entity e [] [es] n\n"
              "entity f [fp] [fs] m\n"
              "start document\n"
              "start DTD a [p] [s]\n"
              "?pi x\n"
              "skipped &[dtd]\n"
              "end DTD\n"
              "#shown\n"
              "<a a\n"
              ">a a\n"
              "end document\n");
}

TEST(SAXParserTest, ListsNamespaceDeclarationsInFrontOfTheAttributesOnDemand)
{
    class Names : public XMLFilterImpl
    {
    public:
        void startElement(const std::string&, const std::string&, const std::string&,
                          const Attributes& attributes) override
        {
            for (int i = 0; i < attributes.getLength(); ++i)
            {
                const std::string expanded = attributes.getURI(i) + attributes.getLocalName(i);
                names += expanded + "|" + attributes.getQName(i) + "=" + attributes.getValue(i) + "\n";
            }
        }
        std::string names;
    };

    SAXParser parser;
    Names names;
    parser.setContentHandler(&names);
    const std::string xml = "<a id='1' xmlns='d' p:id='2' xmlns:p='u'><b xmlns=''/></a>";
    parser.parseMemoryNP(xml.data(), xml.size());
    EXPECT_EQ(names.names, "id|id=1\nuid|p:id=2\n");

    names.names.clear();
    parser.setFeature(XMLReader::FEATURE_NAMESPACE_PREFIXES, true);
    parser.parseMemoryNP(xml.data(), xml.size());
    EXPECT_EQ(names.names, "|xmlns=d\n|xmlns:p=u\nid|id=1\nuid|p:id=2\n|xmlns=\n");
}

TEST(SAXParserTest, ReportsCDATASectionsToALexicalHandlerOnly)
{
    const std::string xml = "<a>x<![CDATA[<y>]]>z<!--c-->w</a>";
    EXPECT_EQ(events(xml), "start document\n<a a\n\"x\nstart CDATA\n\"<y>\nend CDATA\n\"z\n#c\n\"w\n>a a\n"
                           "end document\n");

    SAXParser parser;
    EventRecorder recorder;
    parser.setContentHandler(&recorder);
    parser.parseMemoryNP(xml.data(), xml.size());
    EXPECT_EQ(recorder.events(), "start document\n<a\n\"x<y>zw\n>a\nend document\n");
}

TEST(SAXParserTest, JoinsTextAndEndsItWithAZeroOctet)
{
    class Calls : public XMLFilterImpl
    {
    public:
        void characters(const char ch[], int start, int length) override
        {
            EXPECT_EQ(std::strlen(ch + start), static_cast<std::size_t>(length));
            calls += "[" + std::string(ch + start) + "]";
        }
        std::string calls;
    };

    Calls calls;
    SAXParser parser;
    parser.setContentHandler(&calls);
    const std::string xml = "<a>one\ntwo &amp;&#10;three\r\n<b>four</b> </a>";
    parser.parseMemoryNP(xml.data(), xml.size());
    EXPECT_EQ(calls.calls, "[one\ntwo &\nthree\n][four][ ]");
}

TEST(SAXParserTest, CutsLongTextBetweenCharacters)
{
    class Blocks : public XMLFilterImpl
    {
    public:
        void characters(const char ch[], int start, int length) override
        {
            EXPECT_LE(length, 1024 * 1024);
            EXPECT_NE(ch[start] & 0xC0, 0x80) << "a block begins inside a character";
            text.append(ch + start, static_cast<std::size_t>(length));
            ++blocks;
        }
        std::string text;
        int blocks = 0;
    };

    for (const std::string lead : {"", "x", "xy"})
    {
        const std::string text = lead + repeated("\xE2\x82\xAC", 1000000);
        const std::string xml = "<a>" + text + "</a>";
        Blocks blocks;
        SAXParser parser;
        parser.setContentHandler(&blocks);
        parser.parseMemoryNP(xml.data(), xml.size());
        EXPECT_TRUE(blocks.text == text) << lead;
        EXPECT_EQ(blocks.blocks, 3) << lead;
    }
}

TEST(SAXParserTest, ReadsEveryEncoding)
{
    const struct
    {
        const char* description;
        std::string xml;
        const char* encoding;
        const char* value;
    } CASES[] = {
        {"UTF-8", "<a>\xC3\xA4\xF0\x9F\x98\x80</a>", "", "\xC3\xA4\xF0\x9F\x98\x80"},
        {"UTF-8 with byte order mark", "\xEF\xBB\xBF<a>\xC3\xA4</a>", "", "\xC3\xA4"},
        {"declared ISO-8859-1", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE4</a>", "", "\xC3\xA4"},
        {"declared US-ASCII", "<?xml version='1.0' encoding='us-ascii'?><a>a</a>", "", "a"},
        {"UTF-16 big-endian", std::string("\xFE\xFF\0<\0a\0>\0\xE4\0<\0/\0a\0>", 18), "", "\xC3\xA4"},
        {"UTF-16 little-endian", std::string("\xFF\xFE<\0a\0>\0\xE4\0<\0/\0a\0>\0", 18), "", "\xC3\xA4"},
        {"told ISO-8859-1", "<a>\xE4</a>", "ISO-8859-1", "\xC3\xA4"},
        {"told UTF-8, declared otherwise", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xC3\xA4</a>", "UTF-8",
         "\xC3\xA4"},
    };
    for (const auto& row : CASES)
    {
        std::istringstream stream(row.xml);
        InputSource source(stream);
        source.setEncoding(row.encoding);
        EventRecorder recorder;
        SAXParser parser;
        recorder.attachTo(parser);
        parser.parse(&source);
        EXPECT_EQ(recorder.events(), std::string("start document\n<a\n\"") + row.value + "\n>a\nend document\n")
            << row.description;
    }
}

TEST(SAXParserTest, ACharacterStreamIsUTF8WhateverTheDocumentSays)
{
    std::istringstream stream("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xC3\xA4</a>");
    InputSource source;
    source.setCharacterStream(&stream);
    EventRecorder recorder;
    SAXParser parser;
    recorder.attachTo(parser);
    parser.parse(&source);
    EXPECT_EQ(recorder.events(), "start document\n<a\n\"\xC3\xA4\n>a\nend document\n");
}

TEST(SAXParserTest, ReadsStreamsOfAnyBlockSize)
{
    const std::string xml = "<a>" + repeated("<b c='d'>text &amp; more</b>\n", 5000) + "</a>";
    const std::string expected = eventsOfXML(xml);
    for (const std::size_t blockSize : {1u, 2u, 3u, 5u, 4096u, 65536u, 1000000u})
    {
        BlockInputStream stream(xml, blockSize);
        EXPECT_TRUE(eventsOfXML(stream) == expected) << blockSize;
    }
}

TEST(SAXParserTest, FailureToReadIsNotTheEndOfTheDocument)
{
    BlockInputStream stream("<a/>", 2, BlockInputStream::THROWS);
    EXPECT_VESK_THROW(eventsOfXML(stream), IOException, "Cannot read the XML document");
}

// A token is scanned from its start again whenever more of it has come: the blocks have to grow.
TEST(SAXParserTest, AHugeTokenIsReadInFewBlocks)
{
    class CountingBuffer : public std::stringbuf
    {
    public:
        using std::stringbuf::stringbuf;

        std::streamsize xsgetn(char* data, std::streamsize size) override
        {
            ++reads;
            return std::stringbuf::xsgetn(data, size);
        }
        int reads = 0;
    };

    const std::string value(16 * 1024 * 1024, 'v');
    CountingBuffer buffer("<a b='" + value + "'/>", std::ios::in);
    std::istream stream(&buffer);
    EXPECT_TRUE(eventsOfXML(stream) == "start document\n<a\n @b=" + value + "\n>a\nend document\n");
    EXPECT_LE(buffer.reads, 12);
}

TEST(SAXParserTest, TellsWhereADocumentIsWrong)
{
    const struct
    {
        const char* xml;
        const char* message;
        int line;
        int column;
    } CASES[] = {
        {"", "no element found (line 1, column 1)", 1, 1},
        {"<a>", "no element found (line 1, column 4)", 1, 4},
        {"<a>\n<b>\n  </a>", "mismatched tag (line 3, column 5)", 3, 5},
        {"<a>\n&e;</a>", "undefined entity (line 2, column 1)", 2, 1},
        {"<a b='1' b='2'/>", "duplicate attribute (line 1, column 10)", 1, 10},
        {"<p:a/>", "unbound prefix (line 1, column 1)", 1, 1},
        {"<a xmlns:p='u' xmlns:q='u' p:b='' q:b=''/>", "duplicate attribute (line 1, column 1)", 1, 1},
        {"<a xmlns:p=''/>", "must not undeclare prefix (line 1, column 1)", 1, 1},
        {"<a>\x01</a>", "not well-formed (invalid token) (line 1, column 4)", 1, 4},
        {"<a>\xC3\x28</a>", "not well-formed (invalid token) (line 1, column 4)", 1, 4},
        {"<a/>\n<b/>", "junk after document element (line 2, column 1)", 2, 1},
        {"<?xml version='1.0' encoding='EBCDIC'?><a/>", "unknown encoding (line 1, column 31)", 1, 31},
    };
    for (const auto& row : CASES)
    {
        SCOPED_TRACE(row.xml);
        try
        {
            eventsOfXML(std::string(row.xml));
            ADD_FAILURE() << "nothing is thrown";
        }
        catch (const SAXParseException& exception)
        {
            EXPECT_EQ(exception.message(), row.message);
            EXPECT_EQ(exception.getLineNumber(), row.line);
            EXPECT_EQ(exception.getColumnNumber(), row.column);
            EXPECT_STREQ(exception.className(), "SAXParseException");
        }
    }
}

TEST(SAXParserTest, NamesTheDocumentThatIsWrong)
{
    std::istringstream stream("<a>");
    InputSource source(stream);
    source.setSystemId("file.xml");
    source.setPublicId("public");
    SAXParser parser;
    try
    {
        parser.parse(&source);
        ADD_FAILURE() << "nothing is thrown";
    }
    catch (const SAXParseException& exception)
    {
        EXPECT_EQ(exception.message(), "no element found (file.xml, line 1, column 4)");
        EXPECT_EQ(exception.getSystemId(), "file.xml");
        EXPECT_EQ(exception.getPublicId(), "public");
        const std::unique_ptr<Exception> copy(exception.clone());
        EXPECT_EQ(dynamic_cast<SAXParseException&>(*copy).getLineNumber(), 1);
        EXPECT_THROW(copy->rethrow(), SAXParseException);
    }
}

TEST(SAXParserTest, TheErrorHandlerIsToldFirst)
{
    class Handler : public XMLFilterImpl
    {
    public:
        void fatalError(const SAXException& exception) override { told = exception.message(); }
        std::string told;
    };
    Handler handler;
    SAXParser parser;
    parser.setErrorHandler(&handler);
    EXPECT_THROW(parser.parseMemoryNP("<a>", 3), SAXParseException);
    EXPECT_EQ(handler.told, "no element found (line 1, column 4)");
}

TEST(SAXParserTest, TheLocatorFollowsTheEvents)
{
    class Handler : public XMLFilterImpl
    {
    public:
        void setDocumentLocator(const Locator* locator) override { _locator = locator; }
        void startElement(const std::string&, const std::string& name, const std::string&, const Attributes&) override
        {
            places += name + " " + std::to_string(_locator->getLineNumber()) + ":" +
                      std::to_string(_locator->getColumnNumber()) + "\n";
        }
        const Locator* _locator = nullptr;
        std::string places;
    };
    Handler handler;
    SAXParser parser;
    parser.setContentHandler(&handler);
    const std::string xml = "<a>\n\xC3\xA4<b\n/></a>";
    parser.parseMemoryNP(xml.data(), xml.size());
    EXPECT_EQ(handler.places, "a 1:1\nb 2:2\n");
    EXPECT_EQ(handler._locator->getLineNumber(), -1) << "no document is being parsed";
}

namespace
{
/// Throws when it has been called often enough.
class ThrowingHandler : public EventRecorder, public DeclHandler
{
public:
    explicit ThrowingHandler(int calls)
        : _calls(calls)
    {
    }

    void startDocument() override { count(); }
    void endDocument() override { count(); }
    void startElement(const std::string&, const std::string&, const std::string&, const Attributes&) override
    {
        count();
    }
    void endElement(const std::string&, const std::string&, const std::string&) override { count(); }
    void characters(const char*, int, int) override { count(); }
    void processingInstruction(const std::string&, const std::string&) override { count(); }
    void startPrefixMapping(const std::string&, const std::string&) override { count(); }
    void endPrefixMapping(const std::string&) override { count(); }
    void skippedEntity(const std::string&) override { count(); }
    void startDTD(const std::string&, const std::string&, const std::string&) override { count(); }
    void endDTD() override { count(); }
    void startCDATA() override { count(); }
    void endCDATA() override { count(); }
    void comment(const char*, int, int) override { count(); }
    void notationDecl(const std::string&, const std::string*, const std::string*) override { count(); }
    void unparsedEntityDecl(const std::string&, const std::string*, const std::string&, const std::string&) override
    {
        count();
    }
    void attributeDecl(const std::string&, const std::string&, const std::string&, const std::string*,
                       const std::string*) override
    {
        count();
    }
    void elementDecl(const std::string&, const std::string&) override { count(); }
    void externalEntityDecl(const std::string&, const std::string*, const std::string&) override { count(); }
    void internalEntityDecl(const std::string&, const std::string&) override { count(); }

    int calls() const { return _made; }

private:
    void count()
    {
        if (++_made == _calls)
            throw std::runtime_error("handler");
    }

    const int _calls;
    int _made = 0;
};
} // namespace

TEST(SAXParserTest, ExceptionsOfHandlersReachTheCallerFromEveryCallback)
{
    const std::string xml = "<!DOCTYPE a SYSTEM 's' [<!ELEMENT a ANY><!ATTLIST a b CDATA ''><!NOTATION n SYSTEM 'n'>"
                            "<!ENTITY u SYSTEM 'u' NDATA n><!ENTITY x SYSTEM 'x'><!ENTITY i 'i'><?pi?>]>"
                            "<a xmlns:p='u'>&x;&unknown;<![CDATA[c]]>text<b/><!--c--><?pi?></a>";
    constexpr int CALLBACKS = 26;
    SAXParser parser;
    int calls = 1;
    for (;; ++calls)
    {
        ThrowingHandler handler(calls);
        handler.attachTo(parser);
        parser.setProperty(XMLReader::PROPERTY_DECLARATION_HANDLER, static_cast<DeclHandler*>(&handler));
        try
        {
            parser.parseMemoryNP(xml.data(), xml.size());
            EXPECT_EQ(handler.calls(), calls - 1);
            break;
        }
        catch (const std::runtime_error& exception)
        {
            EXPECT_STREQ(exception.what(), "handler");
            EXPECT_EQ(handler.calls(), calls) << "an event followed the failure";
        }
        parser.setProperty(XMLReader::PROPERTY_DECLARATION_HANDLER, static_cast<void*>(nullptr));
        EXPECT_EQ(events(parser, "<a/>"), "start document\n<a a\n>a a\nend document\n");
    }
    EXPECT_EQ(calls - 1, CALLBACKS);
}

TEST(SAXParserTest, OneDocumentAtATime)
{
    class Handler : public XMLFilterImpl
    {
    public:
        explicit Handler(SAXParser& parser)
            : _parser(parser)
        {
        }
        void startElement(const std::string&, const std::string&, const std::string&, const Attributes&) override
        {
            _parser.parseMemoryNP("<b/>", 4);
        }
        SAXParser& _parser;
    };
    SAXParser parser;
    Handler handler(parser);
    parser.setContentHandler(&handler);
    EXPECT_VESK_THROW(parser.parseMemoryNP("<a/>", 4), InvalidAccessException,
                      "The parser is already parsing a document");
    EXPECT_EQ(events(parser, "<a/>"), "start document\n<a a\n>a a\nend document\n");
}

TEST(SAXParserTest, ReportsDeclarations)
{
    class Declarations : public DeclHandler
    {
    public:
        void attributeDecl(const std::string& element, const std::string& attribute, const std::string& type,
                           const std::string* mode, const std::string* value) override
        {
            text += element + "@" + attribute + " " + type + " " + (mode ? *mode : "-") + " " + (value ? *value : "-") +
                    "\n";
        }
        void elementDecl(const std::string& name, const std::string& model) override
        {
            text += name + " " + model + "\n";
        }
        void externalEntityDecl(const std::string& name, const std::string* publicId,
                                const std::string& systemId) override
        {
            text += name + " " + (publicId ? *publicId : "-") + " " + systemId + "\n";
        }
        void internalEntityDecl(const std::string& name, const std::string& value) override
        {
            text += name + " '" + value + "'\n";
        }
        std::string text;
    };
    Declarations declarations;
    SAXParser parser;
    parser.setProperty(XMLReader::PROPERTY_DECLARATION_HANDLER, static_cast<DeclHandler*>(&declarations));
    EXPECT_EQ(parser.getProperty(XMLReader::PROPERTY_DECLARATION_HANDLER), static_cast<DeclHandler*>(&declarations));
    const std::string xml =
        "<!DOCTYPE a [<!ELEMENT a (b, (c | d+)*, e?)><!ELEMENT b EMPTY><!ELEMENT c ANY><!ELEMENT d (#PCDATA)>"
        "<!ELEMENT e (#PCDATA | b | c)*><!ATTLIST a w CDATA #REQUIRED x (y|z) 'y' v ID #IMPLIED u CDATA #FIXED 'f'>"
        "<!ENTITY i '&#65;'><!ENTITY % p '1'><!ENTITY x PUBLIC 'xp' 'xs'>]><a w=''/>";
    parser.parseMemoryNP(xml.data(), xml.size());
    EXPECT_EQ(declarations.text, "a (b,(c|d+)*,e?)\nb EMPTY\nc ANY\nd (#PCDATA)\ne (#PCDATA|b|c)*\n"
                                 "a@w CDATA #REQUIRED -\na@x (y|z) - y\na@v ID #IMPLIED -\na@u CDATA #FIXED f\n"
                                 "i 'A'\n%p '1'\nx xp xs\n");
}

TEST(SAXParserTest, ExternalEntitiesNeedTheFeatureAndAResolver)
{
    const std::string xml = "<!DOCTYPE a [<!ENTITY x PUBLIC 'p' 'x.ent'><!ENTITY gone SYSTEM 'gone.ent'>]>"
                            "<a>1&x;2&gone;3</a>";
    const std::string skipped = "start document\nstart DTD a [] []\nend DTD\n<a a\n\"1\nskipped &x\n\"2\n"
                                "skipped &gone\n\"3\n>a a\nend document\n";
    SAXParser parser;
    MemoryResolver resolver;
    resolver.documents["x.ent"] = "<?xml encoding='UTF-8'?>in <b/>&x2;";
    EXPECT_EQ(events(parser, xml), skipped);
    parser.setFeature(XMLReader::FEATURE_EXTERNAL_GENERAL_ENTITIES, true);
    EXPECT_EQ(events(parser, xml), skipped);
    parser.setEntityResolver(&resolver);
    EXPECT_THROW(events(parser, xml), SAXParseException) << "x2 is not declared";

    resolver.asked.clear();
    resolver.documents["x.ent"] = "<?xml encoding='UTF-8'?>in <b/>";
    EXPECT_EQ(events(parser, xml), "start document\nstart DTD a [] []\nend DTD\n<a a\n\"1in \n<b b\n>b b\n\"2\n"
                                   "skipped &gone\n\"3\n>a a\nend document\n");
    EXPECT_EQ(resolver.asked, "x.ent p\ngone.ent\n");
    EXPECT_EQ(resolver.lent, 0);

    parser.setFeature(XMLReader::FEATURE_EXTERNAL_GENERAL_ENTITIES, false);
    EXPECT_EQ(events(parser, xml), skipped);
}

TEST(SAXParserTest, AnExternalSubsetNeedsItsOwnFeature)
{
    const std::string xml = "<!DOCTYPE a SYSTEM 'a.dtd'><a>&e;</a>";
    SAXParser parser;
    MemoryResolver resolver;
    resolver.documents["a.dtd"] = "<!ENTITY e 'text'><!ATTLIST a b CDATA 'default'>";
    parser.setEntityResolver(&resolver);
    parser.setFeature(XMLReader::FEATURE_EXTERNAL_GENERAL_ENTITIES, true);
    EXPECT_EQ(events(parser, xml), "start document\nstart DTD a [] [a.dtd]\nskipped &[dtd]\nend DTD\n<a a\n"
                                   "skipped &e\n>a a\nend document\n");
    EXPECT_EQ(resolver.asked, "");
    parser.setFeature(XMLReader::FEATURE_EXTERNAL_PARAMETER_ENTITIES, true);
    EXPECT_EQ(events(parser, xml), "start document\nstart DTD a [] [a.dtd]\nend DTD\n<a a\n @b b=default\n\"text\n"
                                   ">a a\nend document\n");
    EXPECT_EQ(resolver.asked, "a.dtd\n");
    EXPECT_EQ(resolver.lent, 0);
}

TEST(SAXParserTest, InternalParameterEntitiesAreAlwaysExpanded)
{
    static const struct
    {
        const char* declarations;
        const char* events; // of the root element and its content
    } CASES[] = {
        {"<!ENTITY % x \"<!ATTLIST a k CDATA 'v'>\">%x;", "<a a\n @b b=1\n @k k=v\n>a a\n"},
        {"<!ENTITY % x '&#37;y;'><!ENTITY % y \"<!ATTLIST a k CDATA 'v'>\">%x;", "<a a\n @b b=1\n @k k=v\n>a a\n"},
        {"<!ENTITY % x ''>%x;<!ATTLIST a k CDATA 'v'>", "<a a\n @b b=1\n @k k=v\n>a a\n"},
    };
    for (const char* const declaration : {"", "<?xml version='1.0' standalone='yes'?>"})
    {
        for (const auto& row : CASES)
        {
            EXPECT_EQ(events(std::string(declaration) + "<!DOCTYPE a [" + row.declarations + "]><a b='1'/>"),
                      std::string("start document\nstart DTD a [] []\nend DTD\n") + row.events + "end document\n")
                << declaration << row.declarations;
        }
    }
    EXPECT_EQ(events("<!DOCTYPE a [<!ENTITY % x \"<!ENTITY y 'Y'>\">%x;]><a b='&y;'>&y;</a>"),
              "start document\nstart DTD a [] []\nend DTD\n<a a\n @b b=Y\n\"Y\n>a a\nend document\n");
}

TEST(SAXParserTest, ReportsParameterEntitiesThatItDoesNotRead)
{
    const std::string notRead = "<!DOCTYPE a [<!ENTITY % x SYSTEM 'x.ent'>%x;<!ATTLIST a behind CDATA 'v'>]><a/>";
    const std::string skipped = "start document\nstart DTD a [] []\nskipped &%x\nend DTD\n<a a\n>a a\nend document\n";
    const std::string read = "start document\nstart DTD a [] []\nend DTD\n<a a\n @behind behind=v\n @in in=x\n>a a\n"
                             "end document\n";
    SAXParser parser;
    MemoryResolver resolver;
    resolver.documents["x.ent"] = "<!ATTLIST a in CDATA 'x'>";
    EXPECT_EQ(events(parser, notRead), skipped);
    parser.setFeature(XMLReader::FEATURE_EXTERNAL_PARAMETER_ENTITIES, true);
    EXPECT_EQ(events(parser, notRead), skipped) << "without a resolver";
    parser.setEntityResolver(&resolver);
    EXPECT_EQ(events(parser, notRead), read);
    EXPECT_EQ(resolver.asked, "x.ent\n");

    EXPECT_EQ(events(parser, "<?xml version='1.0' standalone='yes'?>" + notRead),
              "start document\nstart DTD a [] []\nskipped &%x\nend DTD\n<a a\n @behind behind=v\n>a a\n"
              "end document\n");
    EXPECT_EQ(events(parser, notRead), read) << "after a standalone document";
    parser.setFeature(XMLReader::FEATURE_EXTERNAL_PARAMETER_ENTITIES, false);
    resolver.asked.clear();
    EXPECT_EQ(events(parser, notRead), skipped);
    EXPECT_EQ(resolver.asked, "");

    EXPECT_EQ(events("<!DOCTYPE a [<!ENTITY % x SYSTEM 'x'><!ENTITY % y \"<!ENTITY e '1&#37;x;2'>\">%y;]><a/>"),
              skipped)
        << "in the value of an entity";
    EXPECT_EQ(events("<!DOCTYPE a [%x;]><a/>"), skipped) << "not declared";
}

TEST(SAXParserTest, WarnsOfReferencesInAttributesThatReadAsNothing)
{
    class Handler : public XMLFilterImpl
    {
    public:
        void warning(const SAXException& exception) override { told += exception.message() + "\n"; }
        std::string told;
    };
    static const struct
    {
        const char* content;
        const char* warnings;
    } CASES[] = {
        {"<a b='&known;&amp;&#38;gone;'>&gone;</a>", ""},
        {"<a b='1&gone;2'/>", "&gone; 2 1\n"},
        {"<a>\n<b x='' y='&lt;&gone;'/></a>", "&gone; 3 1\n"},
        {"<a b='&outer;'><c d='&outer;'/></a>", "&lost; 2 1\n&lost; 2 16\n"},
        {"<a>&tag;</a>", "&lost; 2 4\n"},
        {"<?p &gone;?><a><!-- &gone; --><![CDATA[<b c='&gone;'/>]]></a>", ""},
    };
    for (const auto& c : CASES)
    {
        Handler handler;
        SAXParser parser;
        parser.setErrorHandler(&handler);
        const std::string xml =
            "<!DOCTYPE a SYSTEM 's' [<!ENTITY known 'k'><!ENTITY outer '&inner;'><!ENTITY inner '&lost;'>"
            "<!ENTITY tag '<b c=\"&lost;\"/>'>]>\n" +
            std::string(c.content);
        parser.parseMemoryNP(xml.data(), xml.size());
        std::string expected;
        std::istringstream warnings(c.warnings);
        std::string name;
        std::string line;
        std::string column;
        while (warnings >> name >> line >> column)
        {
            expected += "the reference \"" + name + "\" in an attribute value cannot be expanded (line " + line +
                        ", column " + column + ")\n";
        }
        EXPECT_EQ(handler.told, expected) << xml;
    }
}

TEST(SAXParserTest, ErrorsInExternalEntitiesNameThem)
{
    SAXParser parser;
    MemoryResolver resolver;
    resolver.documents["base/x.ent"] = "\n <b>";
    parser.setEntityResolver(&resolver);
    parser.setFeature(XMLReader::FEATURE_EXTERNAL_GENERAL_ENTITIES, true);
    std::istringstream stream("<!DOCTYPE a [<!ENTITY x SYSTEM 'x.ent'>]><a>&x;</a>");
    InputSource source(stream);
    source.setSystemId("base/a.xml");
    EXPECT_VESK_THROW(parser.parse(&source), SAXParseException, "asynchronous entity (base/x.ent, line 2, column 5)");
    EXPECT_EQ(resolver.lent, 0);
}

TEST(SAXParserTest, HostileEntitiesEndInAnException)
{
    constexpr int LEVELS = 100000;
    std::string chain = "<!DOCTYPE a [<!ENTITY e0 'x'>";
    for (int i = 1; i < LEVELS; ++i)
        chain += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";'>";
    chain += "]><a>&e" + std::to_string(LEVELS - 1) + ";</a>";
    EXPECT_THROW(events(chain), SAXParseException);

    std::string laughs = "<!DOCTYPE a [<!ENTITY e0 '" + std::string(100, 'x') + "'>";
    for (int i = 1; i < 20; ++i)
        laughs += "<!ENTITY e" + std::to_string(i) + " '" + repeated("&e" + std::to_string(i - 1) + ";", 10) + "'>";
    laughs += "]><a>&e19;</a>";
    EXPECT_THROW(events(laughs), SAXParseException);

    // Between declarations, parameter entities unfold in the internal subset as well.
    chain = "<!DOCTYPE a [<!ENTITY % e0 '<?p?>'>";
    for (int i = 1; i < LEVELS; ++i)
        chain += "<!ENTITY % e" + std::to_string(i) + " '&#37;e" + std::to_string(i - 1) + ";'>";
    EXPECT_THROW(events(chain + "%e" + std::to_string(LEVELS - 1) + ";]><a/>"), SAXParseException);

    laughs = "<!DOCTYPE a [<!ENTITY % e0 '" + std::string(100, ' ') + "'>";
    for (int i = 1; i < 20; ++i)
        laughs +=
            "<!ENTITY % e" + std::to_string(i) + " '" + repeated("&#37;e" + std::to_string(i - 1) + ";", 10) + "'>";
    EXPECT_NO_THROW(events(laughs + "%e3;]><a/>"));
    EXPECT_THROW(events(laughs + "%e19;]><a/>"), SAXParseException);

    SAXParser parser;
    MemoryResolver resolver;
    std::string declarations;
    for (int i = 0; i < 1000; ++i)
    {
        declarations += "<!ENTITY x" + std::to_string(i) + " SYSTEM 'x" + std::to_string(i) + "'>";
        resolver.documents["x" + std::to_string(i)] = "&x" + std::to_string(i + 1) + ";";
    }
    parser.setEntityResolver(&resolver);
    parser.setFeature(XMLReader::FEATURE_EXTERNAL_GENERAL_ENTITIES, true);
    EXPECT_VESK_THROW(events(parser, "<!DOCTYPE a [" + declarations + "]><a>&x0;</a>"), SAXParseException,
                      "external entities nested too deeply (x31, line 1, column 1)");
    EXPECT_EQ(resolver.lent, 0);
}

TEST(SAXParserTest, HugeNamespaceNamesAreRefused)
{
    const std::string longest(16 * 1024, 'u');
    EXPECT_NO_THROW(events("<a xmlns='" + longest + "'/>"));
    EXPECT_VESK_THROW(events("<a xmlns='" + longest + "u'/>"), SAXParseException,
                      "namespace name too long (line 1, column 1)");
}

TEST(SAXParserTest, AMillionNestedElementsAreParsed)
{
    constexpr int DEPTH = 1000000;
    const std::string xml = repeated("<a>", DEPTH) + repeated("</a>", DEPTH);
    SAXParser parser;
    XMLFilterImpl handler;
    parser.setContentHandler(&handler);
    EXPECT_NO_THROW(parser.parseMemoryNP(xml.data(), xml.size()));
}

// Names are found by the ends of their text; all of these have the same end.
TEST(SAXParserTest, ManySimilarNamesAreToldApart)
{
    std::string xml = "<root xmlns:prefix='urn:names'>";
    std::string expected = "start document\nmap prefix=urn:names\n<root\n";
    for (int i = 10000; i < 15000; ++i)
    {
        const std::string name = "n" + std::to_string(i) + "-and-then-the-same-end";
        xml += "<prefix:" + name + "/><" + name + "/>";
        expected += "<{urn:names}" + name + "\n>{urn:names}" + name + "\n<" + name + "\n>" + name + "\n";
    }
    EXPECT_TRUE(eventsOfXML(xml + "</root>") == expected + ">root\nunmap prefix\nend document\n");
}

TEST(SAXParserTest, OpensSystemIdentifiers)
{
    const std::string file = std::string(VESK_TEST_DATA) + "/soap.xml";
    std::string byName;
    for (const std::string& systemId : {file, "file://" + file})
    {
        SAXParser parser;
        EventRecorder recorder;
        recorder.attachTo(parser);
        InputSource source(systemId);
        parser.parse(&source);
        byName = recorder.events();
        EXPECT_NE(byName.find("start document\n"), std::string::npos);
    }

    MemoryResolver resolver;
    resolver.documents["memory"] = "<a/>";
    SAXParser parser;
    EventRecorder recorder;
    recorder.attachTo(parser);
    parser.setEntityResolver(&resolver);
    parser.parse("memory");
    EXPECT_EQ(recorder.events(), "start document\n<a\n>a\nend document\n");
    EXPECT_EQ(resolver.lent, 0);

    EventRecorder fromFile;
    fromFile.attachTo(parser);
    parser.parse(file); // the resolver does not know it
    EXPECT_EQ(fromFile.events(), byName);
    EXPECT_VESK_THROW(parser.parse("/no/such/file"), SAXException, "Cannot resolve system identifier: /no/such/file");
}

TEST(SAXParserTest, KnowsItsFeaturesAndProperties)
{
    SAXParser parser;
    EXPECT_TRUE(parser.getFeature(XMLReader::FEATURE_NAMESPACES));
    EXPECT_NO_THROW(parser.setFeature(XMLReader::FEATURE_NAMESPACES, true));
    EXPECT_VESK_THROW(parser.setFeature(XMLReader::FEATURE_NAMESPACES, false), SAXNotSupportedException,
                      XMLReader::FEATURE_NAMESPACES + ": namespace support cannot be disabled");
    for (const std::string& feature :
         {XMLReader::FEATURE_NAMESPACE_PREFIXES, XMLReader::FEATURE_EXTERNAL_GENERAL_ENTITIES,
          XMLReader::FEATURE_EXTERNAL_PARAMETER_ENTITIES})
    {
        EXPECT_FALSE(parser.getFeature(feature)) << feature;
        parser.setFeature(feature, true);
        EXPECT_TRUE(parser.getFeature(feature)) << feature;
    }
    EXPECT_VESK_THROW(parser.setFeature("f", true), SAXNotRecognizedException, "f");
    EXPECT_VESK_THROW(parser.getFeature("f"), SAXNotRecognizedException, "f");
    EXPECT_VESK_THROW(parser.setProperty(XMLReader::PROPERTY_LEXICAL_HANDLER, "x"), SAXNotSupportedException,
                      "property does not take a string value: " + XMLReader::PROPERTY_LEXICAL_HANDLER);
    EXPECT_VESK_THROW(parser.setProperty("p", "x"), SAXNotRecognizedException, "p");
    EXPECT_VESK_THROW(parser.setProperty("p", static_cast<void*>(nullptr)), SAXNotRecognizedException, "p");
    EXPECT_VESK_THROW(parser.getProperty("p"), SAXNotRecognizedException, "p");
}
