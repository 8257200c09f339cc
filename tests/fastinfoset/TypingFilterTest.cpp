// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/TypingFilter.h"
#include "EventLog.h"
#include "EventRecorder.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include <gtest/gtest.h>
#include <random>
#include <sstream>

namespace Vesk::FastInfoset
{

namespace
{

const std::string NUL_UUID = "00000000-0000-0000-0000-000000000000";
const std::string UUID_TEXT = "0123ABCD-4567-89EF-0123-456789ABCDEF";

std::string encoded(const std::string& xml, int maxIndexedLength, int options)
{
    std::istringstream in(xml);
    std::ostringstream out;
    XML::SAXParser parser;
    XML::InputSource source(in);
    Converter::convertToFIS(parser, source, out, maxIndexedLength, options);
    return out.str();
}

std::string typed(const std::string& xml, int maxIndexedLength = 0)
{
    return encoded(xml, maxIndexedLength, Converter::TYPED);
}

/// The typed calls and texts of a document of one element "a".
std::string contentOf(const std::string& fis)
{
    static const std::string BEFORE = "declaration=no vocabulary start <a> ";
    static const std::string AFTER = " </a> end";
    std::string events = eventsOf<TypedEventLog>(fis);
    const std::string::size_type before = events.find(BEFORE);
    const std::string::size_type after = events.rfind(AFTER);
    if (before == std::string::npos || after == std::string::npos)
        return "unexpected: " + events;
    return events.substr(before + BEFORE.size(), after - before - BEFORE.size());
}

std::string decoded(const std::string& fis)
{
    std::istringstream in(fis);
    std::ostringstream out;
    Converter::convertToXML(in, out, 0);
    return out.str();
}

} // namespace

TEST(TypingFilterTest, TextThatIsShorterAsValuesBecomesValues)
{
    static const struct
    {
        std::string text;
        std::string events;
    } CASES[] = {
        {"123", "short=123"},
        {"-32768", "short=-32768"},
        {"32767 32768", "int=32767 int=32768"},
        {"10 -20 30 -40", "short=10 short=-20 short=30 short=-40"},
        {"-2147483648", "int=-2147483648"},
        {"2147483648", "long=2147483648"},
        {"-9223372036854775808", "long=-9223372036854775808"},
        {"12345678901 -23456789012", "long=12345678901 long=-23456789012"},
        {"0.125", "\"0.125\""}, // four octets and the algorithm
        {"0.1256", "float=0.1256"},
        {"-0.5 -0 1.5e-7", "float=-0.5 float=-0 float=1.5e-7"},
        {"0.123456 NaN INF -INF", "float=0.123456 float=NaN float=INF float=-INF"},
        {"3.141592653589793", "double=3.141592653589793"},
        {"3.4028235e38", "float=3.4028235e38"},
        {"1.7976931348623157e308 0.5", "double=1.7976931348623157e308 double=0.5"},
        {"100000.5 1e6", "float=100000.5 float=1e6"},
        {"1234567.25 0.5123456", "double=1234567.25 double=0.5123456"}, // a float has fewer digits
        {"true", "bool=true"},
        {"false true false", "bool=false bool=true bool=false"},
        {UUID_TEXT, "uuid=0123abcd-4567-89ef-0123-456789abcdef"},
        {UUID_TEXT + " " + NUL_UUID, "uuid=0123abcd-4567-89ef-0123-456789abcdef uuid=" + NUL_UUID},
        {"0123456789ABCDEF0123", "binary=01 23 45 67 89 AB CD EF 01 23"},
        {"AAECAwQFBgc=", "binary=00 01 02 03 04 05 06 07"},
        {"AAECAwQFBgcICQ==", "binary=00 01 02 03 04 05 06 07 08 09"},
    };
    for (const auto& c : CASES)
    {
        const std::string xml = "<a>" + c.text + "</a>";
        const std::string fis = typed(xml);
        EXPECT_EQ(contentOf(fis), c.events) << c.text;
        EXPECT_EQ(decoded(fis), xml);
        EXPECT_EQ(fis.size() < encoded(xml, 0, 0).size(), c.events.front() != '"') << c.text;
    }
}

TEST(TypingFilterTest, TextThatNoValueGivesBackStaysText)
{
    static const std::string TEXTS[] = {
        "",
        " ",
        "12",
        "01234",
        "+123456",
        "-0 -0",
        "123456 ",
        " 123456",
        "12345  6789",
        "123456\n",
        "1,234,567",
        "123456.0",
        "0.50000000",
        "1E1000000",
        "1.5e+10",
        "1e400 1e400",
        "nan nan nan",
        "-Infinity",
        "TRUE",
        "true,false",
        "truefalse!",
        "true  true",
        "abcdef0102",
        "AAECAwQFBgc",
        "AAECAwQFBgd=",
        "AAEC AwQF BgcI",
        "AA==AAECAw==",
        "=AAECAwQ",
        "0123abcd-4567-89ef-0123-456789abcdef", // in upper case only
        "0123ABCD456789EF0123456789ABCDEF0123ABCD-4567-89EF-0123-456789ABCD",
        "9223372036854775808!",
    };
    for (const std::string& text : TEXTS)
    {
        const std::string xml = text.empty() ? "<a/>" : "<a>" + text + "</a>";
        const std::string fis = typed(xml);
        EXPECT_EQ(fis, encoded(xml, 0, 0)) << text;
        EXPECT_EQ(decoded(fis), xml);
    }
}

// Where one value would come to stand beside another, or text beside a value, nothing may be inserted or lost.
TEST(TypingFilterTest, RunsEndAtTagsCommentsAndInstructionsOnly)
{
    static const struct
    {
        const char* content;
        const char* events;
    } CASES[] = {
        {"1234<b/>5678", "short=1234 <b> </b> short=5678"},
        {"1234<!--c-->5678", "short=1234 #c# short=5678"},
        {"1234<?p d?>5678", "short=1234 ?p d? short=5678"},
        {"12345&#54;7890", "int=1234567890"},
        {"12345<![CDATA[6]]>7890", "\"12345\" cdata( \"6\" cdata) \"7890\""},
        {"12345<![CDATA[67890]]>", "\"12345\" cdata( \"67890\" cdata)"},
        {"<![CDATA[12345]]>67890", "cdata( \"12345\" cdata) \"67890\""},
        {"12345<![CDATA[]]>67890", "\"12345\" \"67890\""},
        {"<![CDATA[1]]><b/>1234", "cdata( \"1\" cdata) <b> </b> short=1234"},
    };
    for (const auto& c : CASES)
    {
        const std::string xml = "<a>" + std::string(c.content) + "</a>";
        const std::string fis = typed(xml);
        EXPECT_EQ(contentOf(fis), c.events) << xml;
        EXPECT_EQ(eventsOfXML(decoded(fis)), eventsOfXML(xml)) << xml;
    }
}

TEST(TypingFilterTest, SkippedEntitiesKeepTheTextAroundThem)
{
    const std::string fis = typed("<!DOCTYPE a SYSTEM 's'><a>12345&e;67890</a>");
    EXPECT_NE(eventsOf<TypedEventLog>(fis).find("<a> \"12345\" \"67890\" </a>"), std::string::npos);
}

TEST(TypingFilterTest, TextInPiecesIsOneText)
{
    std::ostringstream out;
    {
        FastInfosetWriter writer(out, false, DocumentVocabulary::VOC_MAP);
        TypingFilter filter(writer, 0);
        filter.startDocument();
        writer.startElement("", "a", "a");
        for (const std::string piece : {"-1", "23", " ", "4", "56"})
            filter.characters(piece.c_str(), 0, static_cast<int>(piece.size()));
        filter.ignorableWhitespace(" 7", 0, 2);
        filter.endElement("", "a", "a");
        for (const std::string piece : {"1234", "!"})
            filter.characters(piece.c_str(), 0, static_cast<int>(piece.size()));
        filter.endDocument();
    }
    const std::string events = eventsOf<TypedEventLog>(out.str());
    EXPECT_NE(events.find("short=-123 short=456 short=7 </a> \"1234\" \"!\" end"), std::string::npos) << events;
}

TEST(TypingFilterTest, ShortTextThatRepeatsIsIndexedInstead)
{
    std::string repeating = "<a>";
    std::string distinct = "<a>";
    for (int i = 0; i < 1000; ++i)
    {
        repeating += "<b>123456</b><c>true</c>";
        distinct += "<b>" + std::to_string(100000 + i) + "</b>";
    }
    repeating += "</a>";
    distinct += "</a>";
    constexpr std::size_t TRIED_OCTETS = 32;
    EXPECT_LE(typed(repeating, 16).size(), encoded(repeating, 16, 0).size() + TRIED_OCTETS);
    EXPECT_EQ(typed(distinct, 16), typed(distinct, 0)) << "all are values";
    EXPECT_LT(typed(repeating, 16).size(), typed(repeating, 0).size());
}

// Lists near the limits of every kind, with errors strewn in, come back as the text that they were.
TEST(TypingFilterTest, RandomTextsComeBackUnchanged)
{
    std::mt19937 random(20240607);
    const auto pick = [&random](std::size_t count)
    {
        return static_cast<std::size_t>(random() % count);
    };
    static const std::string TOKENS[] = {
        "0",     "-1",  "32768", "2147483648", "1e6",       "0.1",  "1.17549435e-38",    "1e-45", "5e-324", "true",
        "false", "NaN", "-INF",  "16777217",   "999999.94", "1e15", "100000000000000.5", "AAAA",  "A+/=",   UUID_TEXT};
    for (int i = 0; i < 20000; ++i)
    {
        std::string text;
        const std::string& favourite = TOKENS[pick(std::size(TOKENS))];
        for (std::size_t count = 1 + pick(6); count > 0; --count)
            text += (pick(4) == 0 ? TOKENS[pick(std::size(TOKENS))] : favourite) + (count > 1 ? " " : "");
        if (pick(4) == 0)
            text[pick(text.size())] = "0159.-eE +/=aFx"[pick(15)];
        const std::string xml = "<a>" + text + "</a>";
        const std::string fis = typed(xml);
        ASSERT_EQ(decoded(fis), xml);
        ASSERT_LE(fis.size(), encoded(xml, 0, 0).size()) << text;
    }
}

} // namespace Vesk::FastInfoset
