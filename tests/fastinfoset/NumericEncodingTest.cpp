// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/NumericEncoding.h"
#include "EncodingTestSupport.h"
#include "ExceptionMatcher.h"
#include "TestStreams.h"
#include "Vesk/FastInfoset/DoubleEncoding.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include "Vesk/FastInfoset/FloatEncoding.h"
#include "Vesk/FastInfoset/IntEncoding.h"
#include "Vesk/FastInfoset/LongEncoding.h"
#include "Vesk/FastInfoset/ShortEncoding.h"
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

namespace Vesk::FastInfoset
{

namespace
{

template <typename Value, typename Bits>
Value fromBits(Bits bits)
{
    static_assert(sizeof(Value) == sizeof(Bits));
    Value value;
    std::memcpy(&value, &bits, sizeof(Value));
    return value;
}

template <typename Value>
bool sameBits(const std::vector<Value>& left, const std::vector<Value>& right)
{
    return left.size() == right.size() && std::memcmp(left.data(), right.data(), left.size() * sizeof(Value)) == 0;
}

/// Writes the values and reads them back, from memory and from a stream.
template <class Class, typename Value>
void expectRoundTrip(const std::vector<Value>& values)
{
    const std::string octets = written(Class(values));
    std::vector<Value> read(3);
    Class::decode(ValueReader(octets), read);
    EXPECT_TRUE(sameBits(read, values));

    BlockInputStream stream(octets + "rest", 1000);
    BitStreamReader reader(stream);
    reader.skip(4);
    const AutoPtr<Encoding> encoding = Class::decode(reader);
    EXPECT_TRUE(sameBits(static_cast<const Class&>(*encoding).values(), values));
    EXPECT_EQ(reader.octetPosition(), octets.size());
}

template <class Class>
std::string textFrom(const std::string& octets)
{
    std::string text("before");
    Class::decode(ValueReader(octets), text);
    return text;
}

} // namespace

TEST(NumericEncodingTest, ValuesAreBigEndian)
{
    EXPECT_EQ(hexOf(written(ShortEncoding(-2))), "01 FF FE");
    EXPECT_EQ(hexOf(written(ShortEncoding(std::vector<short>{1, 0x1234, -32768, 32767}))),
              "07 00 01 12 34 80 00 7F FF");
    EXPECT_EQ(hexOf(written(IntEncoding(0x12345678))), "03 12 34 56 78");
    EXPECT_EQ(hexOf(written(IntEncoding("-1 1 256"))), "08 03 FF FF FF FF 00 00 00 01 00 00 01 00");
    EXPECT_EQ(hexOf(written(LongEncoding(0x0123456789ABCDEFL))), "07 01 23 45 67 89 AB CD EF");
    EXPECT_EQ(hexOf(written(FloatEncoding(1.5f))), "03 3F C0 00 00");
    EXPECT_EQ(hexOf(written(FloatEncoding(-0.0f))), "03 80 00 00 00");
    EXPECT_EQ(hexOf(written(DoubleEncoding(-2.5))), "07 C0 04 00 00 00 00 00 00");
    EXPECT_EQ(textFrom<ShortEncoding>(octetsOf("05 00 01 FF FF 80 00")), "1 -1 -32768");
    EXPECT_EQ(textFrom<IntEncoding>(octetsOf("07 80 00 00 00 7F FF FF FF")), "-2147483648 2147483647");
    EXPECT_EQ(textFrom<LongEncoding>(octetsOf("07 80 00 00 00 00 00 00 00")), "-9223372036854775808");
    EXPECT_EQ(textFrom<FloatEncoding>(octetsOf("07 3F C0 00 00 BF 80 00 00")), "1.5 -1");
    EXPECT_EQ(textFrom<DoubleEncoding>(octetsOf("07 40 04 00 00 00 00 00 00")), "2.5");
}

TEST(NumericEncodingTest, LengthsInAllFormsPrecedeTheValues)
{
    for (const std::size_t count : {1u, 2u, 3u, 66u, 67u, 2047u, 2048u, 2049u, 100000u})
    {
        SCOPED_TRACE(count);
        std::vector<int> values(count);
        for (std::size_t i = 0; i < count; ++i)
            values[i] = static_cast<int>(i * 2654435761u);
        expectRoundTrip<IntEncoding>(values);
    }
}

TEST(NumericEncodingTest, ValuesSurviveAtEveryBitWhereALengthStarts)
{
    const ShortEncoding encoding(std::vector<short>(300, -2));
    for (const int offset : {1, 4, 6})
    {
        SCOPED_TRACE(offset);
        std::ostringstream stream;
        BitStreamWriter writer(stream, false);
        writer.writeBits(offset, true);
        encoding.write(writer);
        std::istringstream source(stream.str());
        BitStreamReader reader(source);
        reader.skip(static_cast<unsigned long>(offset));
        std::vector<short> read;
        ShortEncoding::decode(reader, read);
        EXPECT_EQ(read, encoding.values());
    }
    EXPECT_VESK_THROW(ShortEncoding::decode(*std::make_unique<BitStreamReader>("\x01\x02\x03", 3)),
                      FISEncodingException, "illegal position for nonEmptyOctetString encoding");
}

TEST(NumericEncodingTest, EveryShortSurvives)
{
    std::vector<short> values;
    for (int value = -32768; value <= 32767; ++value)
        values.push_back(static_cast<short>(value));
    expectRoundTrip<ShortEncoding>(values);

    const std::string text = textOf(ShortEncoding(values));
    std::vector<short> parsed;
    ShortEncoding::parse(text, parsed);
    EXPECT_EQ(parsed, values);
}

TEST(NumericEncodingTest, ExtremeValuesSurvive)
{
    expectRoundTrip<IntEncoding>(
        std::vector<int>{std::numeric_limits<int>::min(), -1, 0, 1, std::numeric_limits<int>::max()});
    expectRoundTrip<LongEncoding>(
        std::vector<long>{std::numeric_limits<long>::min(), -1, 0, 1, std::numeric_limits<long>::max()});

    std::vector<float> floats;
    for (const std::uint32_t bits : {0x00000000u, 0x80000000u, 0x00000001u, 0x007FFFFFu, 0x00800000u, 0x7F7FFFFFu,
                                     0x7F800000u, 0xFF800000u, 0x7FC00000u, 0xFFC00001u, 0x7F800001u, 0xFFBFFFFFu})
        floats.push_back(fromBits<float>(bits));
    expectRoundTrip<FloatEncoding>(floats);

    std::vector<double> doubles;
    for (const std::uint64_t bits :
         {0x0000000000000000ul, 0x8000000000000000ul, 0x0000000000000001ul, 0x000FFFFFFFFFFFFFul, 0x0010000000000000ul,
          0x7FEFFFFFFFFFFFFFul, 0x7FF0000000000000ul, 0xFFF0000000000000ul, 0x7FF8000000000000ul, 0xFFF8000000000001ul,
          0x7FF0000000000001ul, 0xFFF7FFFFFFFFFFFFul})
        doubles.push_back(fromBits<double>(bits));
    expectRoundTrip<DoubleEncoding>(doubles);
}

TEST(NumericEncodingTest, RandomBitPatternsSurviveAsOctetsAndDoublesAsText)
{
    std::mt19937_64 random(20240229);
    std::vector<float> floats;
    std::vector<double> doubles;
    for (int i = 0; i < 20000; ++i)
    {
        floats.push_back(fromBits<float>(static_cast<std::uint32_t>(random())));
        doubles.push_back(fromBits<double>(static_cast<std::uint64_t>(random())));
    }
    expectRoundTrip<FloatEncoding>(floats);
    expectRoundTrip<DoubleEncoding>(doubles);

    for (const double value : doubles)
    {
        std::vector<double> parsed;
        const std::string text = textOf(DoubleEncoding(value));
        DoubleEncoding::parse(text, parsed);
        ASSERT_EQ(parsed.size(), 1u) << text;
        EXPECT_TRUE(value == value ? sameBits(parsed, {value}) : parsed[0] != parsed[0]) << text;
    }
}

struct TextCase
{
    const char* text;
    // Octets per class, 0 for a text that it refuses.
    int inShorts;
    int inInts;
    int inLongs;
    int inFloats;
    int inDoubles;
};

const TextCase TEXT_CASES[] = {
    {"", 0, 0, 0, 0, 0},
    {"0", 2, 4, 8, 0, 8},
    {"-0", 0, 0, 0, 0, 8},
    {"1", 2, 4, 8, 4, 8},
    {"1 2 3", 6, 12, 24, 12, 24},
    {"-1 -2", 4, 8, 16, 0, 16},
    {"32767 -32768", 4, 8, 16, 0, 16},
    {"32768", 0, 4, 8, 4, 8},
    {"-32769", 0, 4, 8, 0, 8},
    {"2147483647 -2147483648", 0, 8, 16, 0, 16},
    {"2147483648", 0, 0, 8, 4, 8},
    {"-2147483649", 0, 0, 8, 0, 8},
    {"9223372036854775807", 0, 0, 8, 0, 0},
    {"-9223372036854775808", 0, 0, 8, 0, 0},
    {"9223372036854775808", 0, 0, 0, 0, 0},
    {"1 32768", 0, 8, 16, 8, 16},
    // Only one space between values, and no other separator.
    {"1  2", 0, 0, 0, 0, 0},
    {" 1", 0, 0, 0, 0, 0},
    {"1 ", 0, 0, 0, 0, 0},
    {" ", 0, 0, 0, 0, 0},
    {"1\t2", 0, 0, 0, 0, 0},
    {"1\n2", 0, 0, 0, 0, 0},
    {"1,2", 0, 0, 0, 0, 0},
    // Only the spelling in which the value would be printed.
    {"+1", 0, 0, 0, 0, 0},
    {"01", 0, 0, 0, 0, 0},
    {"1,000", 0, 0, 0, 0, 0},
    {"0x1", 0, 0, 0, 0, 0},
    {"-", 0, 0, 0, 0, 0},
    {"1 a", 0, 0, 0, 0, 0},
    {"1.0", 0, 0, 0, 0, 0},
    {"1.", 0, 0, 0, 0, 0},
    {".5", 0, 0, 0, 0, 0},
    {"1.50", 0, 0, 0, 0, 0},
    {"1.5", 0, 0, 0, 4, 8},
    {"-1.5", 0, 0, 0, 0, 8},
    {"0.000000000000001", 0, 0, 0, 4, 8},
    {"1e-15", 0, 0, 0, 0, 0},
    {"1e-16", 0, 0, 0, 4, 8},
    {"1E-16", 0, 0, 0, 0, 0},
    {"100000000000000", 0, 0, 8, 4, 8},
    {"1e15", 0, 0, 0, 4, 8},
    {"1e+15", 0, 0, 0, 0, 0},
    {"1000000000000000", 0, 0, 8, 0, 0},
    // Floats are normal and positive.
    {"1.1754943508222875e-38", 0, 0, 0, 4, 8},
    {"1.1754943508222874e-38", 0, 0, 0, 0, 8},
    {"3.4028234663852886e38", 0, 0, 0, 4, 8},
    {"3.402823466385289e38", 0, 0, 0, 0, 8},
    {"5e-324", 0, 0, 0, 0, 8},
    {"1.7976931348623157e308", 0, 0, 0, 0, 8},
    {"1e309", 0, 0, 0, 0, 0},
    {"INF", 0, 0, 0, 0, 8},
    {"-INF", 0, 0, 0, 0, 8},
    {"NaN", 0, 0, 0, 0, 8},
    {"nan", 0, 0, 0, 0, 0},
    {"-NaN", 0, 0, 0, 0, 0},
    {"inf", 0, 0, 0, 0, 0},
};

template <class Class>
void expectParsed(const char* name, const std::string& text, int octetCount)
{
    SCOPED_TRACE(testing::Message() << name << " of \"" << text << '"');
    EXPECT_EQ(Class::check(text), octetCount);
    if (octetCount > 0)
    {
        const Class encoding(text);
        EXPECT_EQ(encoding.Encoding::content(), "");
        EXPECT_EQ(hexOf(encoded(&Class::encode, text)), hexOf(written(encoding)));
    }
    else
    {
        const std::string message =
            (text.empty() ? std::string("Illegal (empty) data for ") : "Illegal value string for ") + name;
        EXPECT_VESK_THROW(Class{text}, FISEncodingException, message);
        EXPECT_VESK_THROW(encoded(&Class::encode, text), FISEncodingException, message);
    }
}

TEST(NumericEncodingTest, AcceptsOnlyTextThatComesBack)
{
    for (const TextCase& row : TEXT_CASES)
    {
        expectParsed<ShortEncoding>("ShortEncoding", row.text, row.inShorts);
        expectParsed<IntEncoding>("IntEncoding", row.text, row.inInts);
        expectParsed<LongEncoding>("LongEncoding", row.text, row.inLongs);
        expectParsed<FloatEncoding>("FloatEncoding", row.text, row.inFloats);
        expectParsed<DoubleEncoding>("DoubleEncoding", row.text, row.inDoubles);
        if (row.inLongs > 0)
        {
            EXPECT_EQ(textOf(LongEncoding(row.text)), row.text);
        }
        if (row.inDoubles > 0)
        {
            EXPECT_EQ(textOf(DoubleEncoding(row.text)), row.text);
        }
    }
}

TEST(NumericEncodingTest, ParsingIsAllOrNothing)
{
    std::vector<int> values{1, 2};
    IntEncoding::parse("3 4 x", values);
    EXPECT_TRUE(values.empty());
    IntEncoding::parse("5 6", values);
    EXPECT_EQ(values, (std::vector<int>{5, 6}));
    IntEncoding::parse("", values);
    EXPECT_TRUE(values.empty());
}

TEST(NumericEncodingTest, FloatsArePrintedWithSmallerExponentBoundsThanTheyAreParsed)
{
    EXPECT_EQ(textOf(FloatEncoding("100000")), "100000");
    EXPECT_EQ(textOf(FloatEncoding("1000000")), "1e6");
    EXPECT_EQ(textOf(FloatEncoding("0.000001")), "0.000001");
    EXPECT_EQ(textOf(FloatEncoding("0.0000001")), "1e-7");
    EXPECT_EQ(textOf(FloatEncoding("1.23456789")), "1.2345679");
    EXPECT_EQ(textOf(FloatEncoding(-0.0f)), "-0");
}

TEST(NumericEncodingTest, EmptyVectorsAreRefused)
{
    EXPECT_VESK_THROW(ShortEncoding(std::vector<short>()), FISEncodingException,
                      "Illegal (empty) data for ShortEncoding");
    EXPECT_VESK_THROW(IntEncoding(std::vector<int>()), FISEncodingException, "Illegal (empty) data for IntEncoding");
    EXPECT_VESK_THROW(LongEncoding(std::vector<long>()), FISEncodingException, "Illegal (empty) data for LongEncoding");
    EXPECT_VESK_THROW(FloatEncoding(std::vector<float>()), FISEncodingException,
                      "Illegal (empty) data for FloatEncoding");
    EXPECT_VESK_THROW(DoubleEncoding(std::vector<double>()), FISEncodingException,
                      "Illegal (empty) data for DoubleEncoding");
}

/// Values of one class that are given as octets with another length than they need, or cut off.
template <class Class, typename Value, class TextException = FISEncodingException>
void expectBadLengthsRefused(const char* sizeMessage, const char* endMessage)
{
    const std::string octets(16, '\x01');
    std::vector<Value> values;
    std::string text;
    for (std::size_t size = 1; size <= 8; ++size)
    {
        SCOPED_TRACE(testing::Message() << "length " << size);
        const std::string value = static_cast<char>(size - 1) + octets;
        if (size % sizeof(Value) != 0)
        {
            EXPECT_VESK_THROW(Class::decode(ValueReader(value), values), FISEncodingException, sizeMessage);
            EXPECT_VESK_THROW(Class::decode(ValueReader(value)), FISEncodingException, sizeMessage);
            EXPECT_VESK_THROW(Class::decode(ValueReader(value), text), TextException, sizeMessage);
            continue;
        }
        Class::decode(ValueReader(value), values);
        EXPECT_EQ(values.size(), size / sizeof(Value));
        for (std::size_t cut = 1; cut <= size; ++cut)
        {
            EXPECT_VESK_THROW(Class::decode(ValueReader(value.substr(0, cut)), values), FISParseException, endMessage);
            EXPECT_VESK_THROW(Class::decode(ValueReader(value.substr(0, cut))), FISParseException, endMessage);
            EXPECT_VESK_THROW(Class::decode(ValueReader(value.substr(0, cut)), text), FISParseException, endMessage);
        }
    }

    // 20 octets, 2^32 - 8 of which claim to follow: 0C and the length less 265.
    const std::string hostile = octetsOf("0C FF FF FE EF") + std::string(15, '\x01');
    std::vector<Value> few;
    EXPECT_VESK_THROW(Class::decode(ValueReader(hostile), few), FISParseException, endMessage);
    EXPECT_LE(few.capacity() * sizeof(Value), 65536u);
    EXPECT_VESK_THROW(Class::decode(ValueReader(hostile)), FISParseException, endMessage);
}

TEST(NumericEncodingTest, BadLengthsAreRefused)
{
    expectBadLengthsRefused<ShortEncoding, short>("Illegal size entry for Vesk::Int16 value",
                                                  "Unexpected end of stream while decoding short values");
    expectBadLengthsRefused<IntEncoding, int, FISException>("Illegal size entry for Vesk::Int32 value",
                                                            "Unexpected end of stream while decoding int values");
    expectBadLengthsRefused<LongEncoding, long>("Illegal size entry for Vesk::Int64 value",
                                                "Unexpected end of stream while decoding long values");
    expectBadLengthsRefused<FloatEncoding, float>("Illegal size entry for float value",
                                                  "Unexpected end of stream while decoding float values");
    expectBadLengthsRefused<DoubleEncoding, double>("Illegal size entry for double value",
                                                    "Unexpected end of stream while decoding double values");
}

} // namespace Vesk::FastInfoset
