// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/BoolEncoding.h"
#include "EncodingTestSupport.h"
#include "ExceptionMatcher.h"
#include "TestStreams.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include <random>

namespace Vesk::FastInfoset
{

namespace
{

const char* const END_MESSAGE = "Unexpected end of stream while decoding boolean values";

std::vector<bool> randomValues(std::size_t count)
{
    std::mt19937 random(static_cast<unsigned int>(count));
    std::vector<bool> values;
    while (values.size() < count)
        values.push_back(random() % 2 == 0);
    return values;
}

/// "101" for true, false, true.
std::string bitsFrom(const std::string& octets)
{
    std::vector<bool> values(5);
    ValueReader reader(octets);
    BoolEncoding::decode(reader, values);
    EXPECT_EQ(reader->octetPosition(), octets.size());
    EXPECT_EQ(reader->bitOffset(), 0);
    std::string bits;
    for (const bool value : values)
        bits += value ? '1' : '0';
    return bits;
}

} // namespace

TEST(BoolEncodingTest, UnusedBitsAreCountedInFront)
{
    EXPECT_EQ(hexOf(written(BoolEncoding("true false true"))), "00 1A");
    EXPECT_EQ(hexOf(written(BoolEncoding(true))), "00 38");
    EXPECT_EQ(hexOf(written(BoolEncoding(false))), "00 30");
    EXPECT_EQ(hexOf(written(BoolEncoding(std::vector<bool>(4, true)))), "00 0F");
    EXPECT_EQ(hexOf(written(BoolEncoding(std::vector<bool>(5, true)))), "01 7F 80");
    EXPECT_EQ(hexOf(written(BoolEncoding(std::vector<bool>(12, true)))), "01 0F FF");
    EXPECT_EQ(hexOf(written(BoolEncoding(std::vector<bool>(13, true)))), "02 7F FF 80");
}

TEST(BoolEncodingTest, AnyNumberOfValuesSurvives)
{
    std::vector<std::size_t> counts{2044, 2045, 65531, 65532, 65533, 200001};
    for (std::size_t count = 1; count <= 64; ++count)
        counts.push_back(count);
    for (const std::size_t count : counts)
    {
        SCOPED_TRACE(count);
        const std::vector<bool> values = randomValues(count);
        const AutoPtr<Encoding> copy = decoded(&BoolEncoding::decode, written(BoolEncoding(values)));
        EXPECT_EQ(static_cast<const BoolEncoding&>(*copy).values(), values);
    }
}

TEST(BoolEncodingTest, WritingFlushesTheStream)
{
    RecordingOutputStream stream;
    BitStreamWriter writer(stream, false);
    writer.writeBits(4, false);
    BoolEncoding(true).write(writer);
    EXPECT_EQ(stream.flushes(), 1);
}

TEST(BoolEncodingTest, TextIsTrueAndFalse)
{
    struct Row
    {
        const char* text;
        int octetCount; // one bit a value, without the count of unused bits
    };
    const Row ROWS[] = {
        {"true", 1},
        {"false", 1},
        {"true true true true true", 1},
        {"true false true false true false true false", 1},
        {"true false true false true false true false true", 2},
        {"True", 0},
        {"TRUE", 0},
        {"1", 0},
        {"0", 0},
        {"yes", 0},
        {"true  false", 0},
        {" true", 0},
        {"true ", 0},
        {"true,false", 0},
        {"truefalse", 0},
        {"tru", 0},
    };
    for (const Row& row : ROWS)
    {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(BoolEncoding::check(row.text), row.octetCount);
        if (row.octetCount > 0)
        {
            EXPECT_EQ(textOf(BoolEncoding(row.text)), row.text);
        }
        else
        {
            EXPECT_VESK_THROW(BoolEncoding{row.text}, FISEncodingException, "Illegal value string for BoolEncoding");
        }
    }
    EXPECT_EQ(BoolEncoding::check(""), 0);
    EXPECT_VESK_THROW(BoolEncoding(""), FISEncodingException, "Illegal (empty) data for BoolEncoding");
    EXPECT_VESK_THROW(BoolEncoding(std::vector<bool>()), FISEncodingException, "Illegal (empty) data for BoolEncoding");
}

TEST(BoolEncodingTest, ALiteralIsTextAndNotAPointer)
{
    EXPECT_EQ(BoolEncoding("false").values(), std::vector<bool>{false});
}

TEST(BoolEncodingTest, ReadsDirectlyToText)
{
    std::string text("before");
    BoolEncoding::decode(ValueReader(octetsOf("00 1A")), text);
    EXPECT_EQ(text, "true false true");
}

TEST(BoolEncodingTest, UnusedBitsAreNotLookedAt)
{
    EXPECT_EQ(bitsFrom(octetsOf("00 1B")), "101");
    EXPECT_EQ(bitsFrom(octetsOf("01 7F FF")), "11111");
}

TEST(BoolEncodingTest, ManyUnusedBitsStillEndWithTheOctetsOfTheValue)
{
    EXPECT_EQ(bitsFrom(octetsOf("01 8A FF")), "1010");
    EXPECT_EQ(bitsFrom(octetsOf("01 9A FF")), "101");
    EXPECT_EQ(bitsFrom(octetsOf("01 CA FF")), "");
    EXPECT_EQ(bitsFrom(octetsOf("02 FA A0 FF")), "10101");
    // 8193 octets, the last of which is unused: octets are read in blocks of 8192.
    EXPECT_EQ(bitsFrom(octetsOf("0C 00 00 1E F8") + std::string(8193, '\xFF')), std::string(8 * 8193 - 4 - 15, '1'));
}

TEST(BoolEncodingTest, AValueWithoutBooleansIsNoObject)
{
    EXPECT_EQ(bitsFrom(octetsOf("00 4F")), "");
    EXPECT_VESK_THROW(BoolEncoding::decode(ValueReader(octetsOf("00 4F"))), FISEncodingException,
                      "Illegal (empty) data for BoolEncoding");
}

TEST(BoolEncodingTest, MoreUnusedBitsThanThereAreEndInTheErrorOfMissingInput)
{
    for (const char* octets : {"00 5F", "00 FF", "01 DF FF", "01 FF FF"})
    {
        SCOPED_TRACE(octets);
        std::vector<bool> values;
        const std::string input = octetsOf(octets) + std::string(100, '\xFF');
        EXPECT_VESK_THROW(BoolEncoding::decode(ValueReader(input), values), FISParseException, END_MESSAGE);
        EXPECT_EQ(values.capacity(), 0u);
    }
}

TEST(BoolEncodingTest, MissingOctetsAreAnError)
{
    const std::string octets = written(BoolEncoding(std::vector<bool>(50, true)));
    for (std::size_t size = 1; size < octets.size(); ++size)
    {
        std::string text;
        EXPECT_VESK_THROW(BoolEncoding::decode(ValueReader(octets.substr(0, size)), text), FISParseException,
                          END_MESSAGE);
    }
    std::vector<bool> values;
    const std::string hostile = octetsOf("0C FF FF FF FF") + std::string(15, '\x01');
    EXPECT_VESK_THROW(BoolEncoding::decode(ValueReader(hostile), values), FISParseException, END_MESSAGE);
    EXPECT_LE(values.capacity(), 8u * 65536u);
}

} // namespace Vesk::FastInfoset
