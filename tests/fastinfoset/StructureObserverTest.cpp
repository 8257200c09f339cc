// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/StructureObserver.h"
#include "EventLog.h"
#include "SampleDocuments.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/OctetLocator.h"
#include <filesystem>
#include <fstream>

namespace Vesk::FastInfoset
{

namespace
{

using Structure = StructureObserver::Structure;
using Part = StructureObserver::Part;

/// Writes down what it is told:
///
///     {element start@5+2 name@5.2+6=literal ... }
///
/// @ stands before the octet and bit where a part begins, + before its bits.
class StructureLog : public StructureObserver
{
public:
    void startStructure(Structure structure) override
    {
        _open.push_back(structure);
        add("{" + name(structure));
    }

    void part(const Part& part) override
    {
        EXPECT_EQ(part.beginBit, _endBit) << _log;
        const bool isNameOfLiterals = part.kind == Part::NAME && part.indexing == Indexing::ADDED;
        EXPECT_TRUE(part.endBit > part.beginBit || (isNameOfLiterals && part.endBit == part.beginBit)) << _log;
        _endBit = part.endBit;
        add(kind(part) + "@" + std::to_string(part.beginBit / 8) +
            (part.beginBit % 8 == 0 ? "" : "." + std::to_string(part.beginBit % 8)) + "+" +
            std::to_string(part.endBit - part.beginBit) + details(part));
    }

    void endStructure(Structure structure) override
    {
        ASSERT_FALSE(_open.empty());
        EXPECT_EQ(_open.back(), structure) << _log;
        _open.pop_back();
        add("}");
    }

    unsigned long endBit() const { return _endBit; }
    std::size_t openStructures() const { return _open.size(); }
    const std::string& log() const { return _log; }

private:
    void add(const std::string& word) { _log += (_log.empty() ? "" : " ") + word; }

    static std::string name(Structure structure)
    {
        const char* const names[] = {"document", "header", "data",    "initial",   "table",    "notations",  "notation",
                                     "entities", "entity", "element", "namespace", "mapping",  "attributes", "attr",
                                     "chunk",    "pi",     "comment", "dtd",       "reference"};
        return names[static_cast<int>(structure)];
    }

    static std::string kind(const Part& part)
    {
        const char* const kinds[] = {"declaration", "id",     "version", "flags",      "count",      "start",
                                     "literal",     "string", "name",    "standalone", "terminator", "padding"};
        return kinds[part.kind];
    }

    static std::string details(const Part& part)
    {
        if (part.kind == Part::FLAGS || part.kind == Part::COUNT || part.kind == Part::STANDALONE)
            return "=" + std::to_string(part.value);
        if (part.kind != Part::STRING && part.kind != Part::NAME)
            return "";
        std::string result = part.table == Table::NONE ? "" : ":" + std::to_string(static_cast<int>(part.table));
        if (part.indexing != Indexing::LITERAL)
            result += (part.indexing == Indexing::ADDED ? "+" : "#") + std::to_string(part.index);
        if (part.form != Form::UTF8)
            result += "/" + std::to_string(static_cast<int>(part.form)) + "," + std::to_string(part.formIndex);
        if (part.text)
            result += "='" + *part.text + "'";
        if (part.name)
            result += "='" + *part.name->prefix + "|" + *part.name->namespaceName + "|" + *part.name->localName + "'";
        return result;
    }

    std::string _log;
    std::vector<Structure> _open;
    unsigned long _endBit = 0;
};

/// What an observer hears of the octets, and what the parse threw, if anything.
std::string structuresOf(const std::string& octets, std::size_t blockSize = 0)
{
    FastInfosetParser parser;
    StructureLog log;
    parser.setStructureObserver(&log);
    const std::string failure = failureOf([&] { parseOctets(parser, octets, blockSize); });
    if (failure.empty())
    {
        EXPECT_EQ(log.endBit(), 8 * octets.size()) << log.log();
        EXPECT_EQ(log.openStructures(), 0u) << log.log();
    }
    return log.log() + (failure.empty() ? "" : " " + failure);
}

std::vector<std::string> convertedDocuments()
{
    std::vector<std::string> documents;
    for (const auto& entry : std::filesystem::directory_iterator(VESK_TEST_DATA))
    {
        for (const int maxIndexedLength : {0, 16, 64})
        {
            std::ifstream xml(entry.path(), std::ios::binary);
            std::ostringstream out;
            Converter::convertToFIS(xml, out, maxIndexedLength, 0);
            documents.push_back(out.str());
        }
    }
    return documents;
}

/// The octets read at each event.
class OffsetLog : public EventLog
{
public:
    const std::string& offsets() const { return _offsets; }

protected:
    void afterEvent() override
    {
        const auto* octetLocator = dynamic_cast<const OctetLocator*>(locator());
        ASSERT_NE(octetLocator, nullptr);
        EXPECT_EQ(octetLocator->getLineNumber(), -1);
        EXPECT_EQ(octetLocator->getColumnNumber(), -1);
        _offsets += (_offsets.empty() ? "" : " ") + std::to_string(octetLocator->octetOffset());
    }

private:
    std::string _offsets;
};

struct StructureCase
{
    const char* octets;
    const char* structures;
};

} // namespace

TEST(StructureObserverTest, EveryStructureIsToldWithItsPlace)
{
    const std::string start = "E0 00 00 01 ";
    const std::string header = "{document {header id@0+16 version@2+16 flags@4+8=";
    const StructureCase cases[] = {
        // names and values as literals, then as indexes
        {"00 78 CF 00 'p' 00 'u' CC F0 3F 81 81 00 'a' 7C 00 'b' 48 00 'cdefghijk' 00 80 FF F0",
         "0 } {element start@5+8 {namespace {mapping start@6+8 string@7+16:2+2='p' string@9+16:3+2='u' } "
         "{mapping start@11+8 } terminator@12+4 } padding@12.4+6 literal@13.2+6 string@14+8:2#2='p' "
         "string@15+8:3#2='u' string@16+16:4+1='a' name@18+0:10+1='p|u|a' "
         "{attributes {attr start@18+1 literal@18.1+7 string@19+16:4+2='b' name@21+0:11+1='||b' "
         "string@21+88:7+1='cdefghijk' } "
         "{attr start@32+1 name@32.1+7:11#1='||b' string@33+8:7#1='cdefghijk' } terminator@34+4 } terminator@34.4+4 } "
         "terminator@35+4 padding@35.4+4 }"},
        // every form of content
        {"00 3C 00 'a' 80 'x' 90 'y' A0 [10 0 0 01 01] 00 68 [10 0 0 10 00] [000001 00] 29"
         "8C [000001 10] 00 00 01 02 9C [001001 00] 'y' F0 00 FF",
         "0 } {element start@5+2 literal@5.2+6 string@6+16:4+1='a' name@8+0:10+1='||a' "
         "{chunk start@8+2 string@8.2+14:9='x' } {chunk start@10+2 string@10.2+14:9+1='y' } "
         "{chunk start@12+2 string@12.2+6:9#1='y' } {chunk start@13+2 string@13.2+22:9/1,0='h' } "
         "{chunk start@16+2 string@16.2+22:9/2,2='12' } {chunk start@19+2 string@19.2+46:9/3,2='AAEC' } "
         "{chunk start@25+2 string@25.2+22:9+2/3,10='y' } terminator@28+4 } padding@28.4+4 "
         "{element start@29+2 name@29.2+6:10#1='||a' terminator@30+4 } terminator@30.4+4 }"},
        // the rarer items
        {"00 E2 41 'hi' E1 00 't' 40 'd' C6 02 'sys' E1 80 81 F0 CB 80 80 80 3C 00 'a' FF",
         "0 } {comment start@5+8 string@6+24:8+1='hi' } {pi start@9+8 string@10+16:5+1='t' string@12+16:8+2='d' } "
         "{dtd start@14+8 string@15+32:6+1='sys' {pi start@19+8 string@20+8:5#1='t' string@21+8:8#2='d' } "
         "terminator@22+4 } padding@22.4+4 "
         "{reference start@23+8 string@24+8:5#1='t' string@25+8:6#1='sys' string@26+8:6#1='sys' } "
         "{element start@27+2 literal@27.2+6 string@28+16:4+1='a' name@30+0:10+1='||a' terminator@30+4 } "
         "terminator@30.4+4 }"},
        // all that a header can hold
        {"[0 1111111] 00 00 'i' 00 'd' [000 01111] [11111111] 00 01 'ab' 00 00 'u' 00 00 'p' 00 00 'u' 01 00 'a' 00 'b'"
         "00 00 't' 00 02 'sys' 01 00 '1' 11 00 '2' 00 [00 11 0000] [0000 0000] [0011 0 011] 00 00 00 05 00 00 'x'"
         "00 [000000 11] 01 01 00 00 [000000 01] 01 05"
         "C3 00 'n' 80 02 'pub' F0 D1 00 'e' 80 81 81 F0 04 'UTF-8' 01 42 '1.0' F0",
         "127 {data count@5+8=1 string@6+16='i' string@8+16='d' } {initial flags@10+16=4095 "
         "{table count@12+8=1 string@13+24:0+16='ab' } {table count@16+8=1 string@17+16:1='u' } "
         "{table count@19+8=1 string@20+16:2+2='p' } {table count@22+8=1 string@23+16:3+2='u' } "
         "{table count@25+8=2 string@26+16:4+1='a' string@28+16:4+2='b' } {table count@30+8=1 string@31+16:5+1='t' } "
         "{table count@33+8=1 string@34+32:6+1='sys' } "
         "{table count@38+8=2 string@39+16:7+1='1' string@41+24:7+2/1,0='2' } "
         "{table count@44+8=1 string@45+56:9+1/3,4='5' } {table count@52+8=1 string@53+16:8+1='x' } "
         "{table count@55+8=1 name@56+32:10+1='p|u|a' } {table count@60+8=1 name@61+24:11+1 } } "
         "{notations {notation start@64+8 string@65+16:5+2='n' string@67+8:6#1='sys' string@68+32:6+2='pub' } "
         "terminator@72+4 padding@72.4+4 } "
         "{entities {entity start@73+8 string@74+16:5+3='e' string@76+8:6#1='sys' string@77+8:6#2='pub' "
         "string@78+8:5#2='n' } terminator@79+4 padding@79.4+4 } "
         "string@80+48='UTF-8' standalone@86+8=1 string@87+32:8+2='1.0' } terminator@91+4 padding@91.4+4 }"},
        // what is open when a document fails: a local name that there is none of
        {"00 3C 00 'a' 3C 85 F0", "0 } {element start@5+2 literal@5.2+6 string@6+16:4+1='a' name@8+0:10+1='||a' "
                                  "{element start@8+2 literal@8.2+6 string@9+8:4#6 !std(index out of range)"},
    };
    for (const StructureCase& row : cases)
    {
        const std::string octets = octetsOf(start + row.octets);
        EXPECT_EQ(structuresOf(octets), header + row.structures) << row.octets;
        EXPECT_EQ(structuresOf(octets, 1), header + row.structures) << row.octets;
    }
}

TEST(StructureObserverTest, PartsCoverEveryDocument)
{
    std::vector<std::string> documents = sampleDocuments();
    for (const std::string& document : convertedDocuments())
        documents.push_back(document);
    for (const std::string& octets : documents)
    {
        const std::string structures = structuresOf(octets);
        EXPECT_EQ(structures.find('!'), std::string::npos) << structures;
        EXPECT_EQ(structuresOf(octets, 3), structures);
    }
}

TEST(StructureObserverTest, AnObservedParserReportsTheSameEvents)
{
    FastInfosetParser parser;
    FastInfosetParser observed;
    for (const std::string& octets : sampleDocuments())
    {
        const auto expectSame = [&](const std::string& document)
        {
            StructureLog log;
            observed.setStructureObserver(&log);
            EXPECT_EQ(eventsOf<TypedEventLog>(observed, document), eventsOf<TypedEventLog>(parser, document))
                << hexOf(document);
            EXPECT_LE(log.endBit(), 8 * document.size());
            EXPECT_EQ(observed.octetOffset(), parser.octetOffset()) << hexOf(document);
        };
        for (std::size_t size = 0; size <= octets.size(); ++size)
            expectSame(octets.substr(0, size));
        for (std::size_t bit = 0; bit < 8 * octets.size(); ++bit)
        {
            std::string flipped = octets;
            flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (0x80 >> (bit % 8)));
            expectSame(flipped);
        }
    }
}

TEST(StructureObserverTest, NobodyIsToldAfterTheObserverIsTakenAway)
{
    const std::string octets = sampleDocuments().front();
    FastInfosetParser parser;
    StructureLog log;
    parser.setStructureObserver(&log);
    EXPECT_EQ(parser.getStructureObserver(), &log);
    parseOctets(parser, octets, 0);
    const std::string structures = log.log();
    parser.setStructureObserver(nullptr);
    parseOctets(parser, octets, 0);
    EXPECT_EQ(log.log(), structures);
}

TEST(OctetLocatorTest, EventsStandBehindTheirOctets)
{
    FastInfosetParser parser;
    EXPECT_EQ(parser.octetOffset(), 0u);
    const std::string octets = octetsOf("'<?xml?>' E0 00 00 01 00 7C 00 'a' 78 00 'b' 40 '1' F0 80 'x' E2 41 'hi' FF");
    for (const std::size_t blockSize : {0u, 1u, 1024u})
    {
        OffsetLog log;
        log.attachTo(parser);
        parseOctets(parser, octets, blockSize);
        EXPECT_EQ(log.events(), "declaration=yes vocabulary start <a b=\"1\"> \"x\" #hi# </a> end");
        EXPECT_EQ(log.offsets(), "11 12 12 21 23 27 28 28");
        EXPECT_EQ(parser.octetOffset(), octets.size());
    }
}

TEST(OctetLocatorTest, AFailedParseTellsWhereItStopped)
{
    const struct
    {
        const char* octets;
        unsigned long offset;
    } cases[] = {
        {"E0 01 00 01 00", 2},                      // not the octets that documents start with
        {"E0 00 00 01 00 3C 00 'a' D0 F0", 9},      // no child starts like this
        {"E0 00 00 01 00 3C 00 'a' 3C 85 F0", 10},  // no such local name
        {"E0 00 00 01 00 3C 00 'a' 82 70 'b'", 11}, // a text longer than the document
        {"E0 00 00 01 00 3C 00 'a'", 8},            // nothing where a child should be
    };
    for (const auto& row : cases)
    {
        for (const std::size_t blockSize : {0u, 1u, 1024u})
        {
            FastInfosetParser parser;
            EXPECT_NE(failureOf([&] { parseOctets(parser, octetsOf(row.octets), blockSize); }), "");
            EXPECT_EQ(parser.octetOffset(), row.offset) << row.octets << ", blocks of " << blockSize;
        }
    }
}

TEST(OctetLocatorTest, TheIdentifiersAreThoseOfTheSource)
{
    const std::string octets = octetsOf("E0 00 00 01 00 F0");
    FastInfosetParser parser;
    const auto identifiers = [&](XML::InputSource* source)
    {
        OffsetLog log;
        log.attachTo(parser);
        if (source)
            parser.parse(source);
        else
            parser.parseMemoryNP(octets.data(), octets.size());
        return log.locator()->getPublicId() + "," + log.locator()->getSystemId();
    };
    std::istringstream stream(octets);
    XML::InputSource source(stream);
    source.setPublicId("public");
    source.setSystemId("system");
    EXPECT_EQ(identifiers(&source), "public,system");
    EXPECT_EQ(identifiers(nullptr), ",");
}

} // namespace Vesk::FastInfoset
