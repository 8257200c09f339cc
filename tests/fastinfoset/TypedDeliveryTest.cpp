// SPDX-License-Identifier: MIT
#include "EventLog.h"
#include "SampleDocuments.h"
#include "Vesk/FastInfoset/FISArrayHandler.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include <limits>
#include <sstream>
#include <vector>

// Numbers on their way from the document to handlers that take them in arrays.

namespace Vesk::FastInfoset
{

namespace
{

/// Logs the numbers of an array one by one, as TypedEventLog does.
class ArrayEventLog : public TypedEventLog, public FISArrayHandler
{
public:
    using TypedEventLog::TypedEventLog;

    void encodedData(short) override { ADD_FAILURE() << "a short by itself"; }
    void encodedData(int) override { ADD_FAILURE() << "an int by itself"; }
    void encodedData(long) override { ADD_FAILURE() << "a long by itself"; }
    void encodedData(float) override { ADD_FAILURE() << "a float by itself"; }
    void encodedData(double) override { ADD_FAILURE() << "a double by itself"; }
    using TypedEventLog::encodedData;

    void encodedArray(const short* values, std::size_t count) override { log(values, count); }
    void encodedArray(const int* values, std::size_t count) override { log(values, count); }
    void encodedArray(const long* values, std::size_t count) override { log(values, count); }
    void encodedArray(const float* values, std::size_t count) override { log(values, count); }
    void encodedArray(const double* values, std::size_t count) override { log(values, count); }

private:
    template <class Value>
    void log(const Value* values, std::size_t count)
    {
        EXPECT_GT(count, 0u);
        EXPECT_LE(count * sizeof(Value), 8192u);
        for (std::size_t i = 0; i < count; ++i)
            TypedEventLog::encodedData(values[i]);
    }
};

template <class Value>
std::string documentOf(const std::vector<Value>& values)
{
    std::ostringstream stream;
    FastInfosetWriter writer(stream);
    writer.startDocument();
    writer.startElement("", "e", "");
    for (const Value value : values)
        writer.encodedData(value);
    writer.endElement("", "e", "");
    writer.endDocument();
    return stream.str();
}

template <class Value>
void expectSameInArrays()
{
    std::vector<Value> values = {0, 1, std::numeric_limits<Value>::lowest(), std::numeric_limits<Value>::max()};
    for (int i = 0; i < 10000; ++i) // more than an array holds
        values.push_back(static_cast<Value>(i * 3));
    const std::string octets = documentOf(values);
    FastInfosetParser parser;
    const std::string expected = eventsOf<TypedEventLog>(parser, octets);
    EXPECT_EQ(expected.find('!'), std::string::npos);
    EXPECT_EQ(eventsOf<ArrayEventLog>(parser, octets), expected);
    EXPECT_EQ(eventsOf<ArrayEventLog>(parser, octets, 1000), expected) << "from a stream";

    const std::string cut = octets.substr(0, octets.size() - 10);
    const std::string failed = eventsOf<TypedEventLog>(parser, cut);
    EXPECT_NE(failed.find("<e> !"), std::string::npos) << "no part of a value that is cut off: " << failed;
    EXPECT_EQ(eventsOf<ArrayEventLog>(parser, cut), failed);
    EXPECT_EQ(eventsOf<ArrayEventLog>(parser, cut, 1000), failed) << "from a stream";
}

} // namespace

TEST(TypedDeliveryTest, ArraysHoldTheValuesThatComeOneByOne)
{
    expectSameInArrays<short>();
    expectSameInArrays<int>();
    expectSameInArrays<long>();
    expectSameInArrays<float>();
    expectSameInArrays<double>();
}

TEST(TypedDeliveryTest, AllElseOfADocumentStaysTheSame)
{
    FastInfosetParser parser;
    for (const std::string& octets : sampleDocuments())
        EXPECT_EQ(eventsOf<ArrayEventLog>(parser, octets), eventsOf<TypedEventLog>(parser, octets));
}

TEST(TypedDeliveryTest, NumbersThatEnterATableComeInArraysAsWell)
{
    const std::string octets =
        octetsOf("E0 00 00 01 00 [10 0 1 11 00] [000011 10] 05 00 00 00 01 00 00 00 02 [10 1 00000] FF");
    FastInfosetParser parser;
    const std::string expected = eventsOf<TypedEventLog>(parser, octets);
    EXPECT_NE(expected.find("int=1 int=2 \"1 2\""), std::string::npos) << expected;
    EXPECT_EQ(eventsOf<ArrayEventLog>(parser, octets), expected);
}

} // namespace Vesk::FastInfoset
