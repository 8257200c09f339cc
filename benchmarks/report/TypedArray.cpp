// SPDX-License-Identifier: MIT
#include "TypedArray.h"
#include "Sink.h"
#include "Vesk/Base64Encoder.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/NumberFormatter.h"
#include <random>
#include <sstream>

namespace Vesk::Benchmarks
{

namespace
{

const char ELEMENT[] = "values";

std::string xmlOf(const std::string& text)
{
    return "<values>" + text + "</values>";
}

template <class Write>
std::string fisOf(Write write)
{
    Sink sink;
    {
        FastInfoset::FastInfosetWriter writer(sink.stream(), false, FastInfoset::DocumentVocabulary::VOC_MAP);
        writer.startDocument();
        writer.startElement("", ELEMENT, "");
        write(writer);
        writer.endElement("", ELEMENT, "");
        writer.endDocument();
    }
    return sink.octets();
}

template <class Value>
TypedArray numbers(TypedArray::Type type, const std::string& name, double goal, const std::vector<Value>& values)
{
    std::string text;
    for (const Value value : values)
    {
        if (!text.empty())
            text += ' ';
        NumberFormatter::append(text, value);
    }
    const auto write = [&values](FastInfoset::FastInfosetWriter& writer)
    {
        for (const Value value : values)
            writer.encodedData(value);
    };
    return {type, name, goal, xmlOf(text), fisOf(write)};
}

TypedArray base64(double goal, const std::string& octets)
{
    std::ostringstream text;
    Base64Encoder encoder(text);
    encoder << octets;
    encoder.close();
    const auto write = [&octets](FastInfoset::FastInfosetWriter& writer)
    {
        writer.binaryData(octets.data(), octets.size());
    };
    return {TypedArray::BASE64, "base64 octets", goal, xmlOf(text.str()), fisOf(write)};
}

template <class Value, class Distribution>
std::vector<Value> randomValues(Distribution distribution)
{
    std::mt19937 generator; // with its default seed, so that every report reads the same
    std::vector<Value> values;
    for (std::size_t i = 0; i < TypedArray::VALUE_COUNT; ++i)
        values.push_back(static_cast<Value>(distribution(generator)));
    return values;
}

} // namespace

std::vector<TypedArray> typedArrays()
{
    const std::uniform_int_distribution<int> integers(-1000000, 1000000);
    const std::uniform_int_distribution<int> octets(-128, 127);
    const std::uniform_real_distribution<double> reals(-1000, 1000);
    const std::vector<char> data = randomValues<char>(octets);
    return {
        numbers(TypedArray::INT, "int", 20, randomValues<int>(integers)),
        numbers(TypedArray::FLOAT, "float", 20, randomValues<float>(reals)),
        numbers(TypedArray::DOUBLE, "double", 20, randomValues<double>(reals)),
        base64(30, std::string(data.begin(), data.end())),
    };
}

bool operator==(const ArrayTally& left, const ArrayTally& right)
{
    return left.count == right.count && left.bits == right.bits;
}

} // namespace Vesk::Benchmarks
