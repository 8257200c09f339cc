// SPDX-License-Identifier: MIT
//
// Typed values without a parser or writer around them: from octets to values and back, and between values and text.

#include "../report/Sink.h"
#include "Vesk/FastInfoset/BitStreamReader.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/DoubleEncoding.h"
#include "Vesk/FastInfoset/FloatEncoding.h"
#include "Vesk/FastInfoset/IntEncoding.h"
#include <benchmark/benchmark.h>
#include <string>
#include <vector>

using namespace Vesk::FastInfoset;
using Vesk::Benchmarks::Sink;

namespace
{

constexpr int VALUE_COUNT = 10000;

// A length may start here.
constexpr int START_BIT = 1;

template <class Class, class Value>
Class makeValues()
{
    std::vector<Value> values;
    for (int i = 0; i < VALUE_COUNT; ++i)
        values.push_back(static_cast<Value>(i * 7919 % 100003) / Value(8));
    return Class(std::move(values));
}

template <class Encoding>
std::string encoded(const Encoding& values)
{
    Sink sink;
    {
        BitStreamWriter writer(sink.stream(), false);
        writer.writeBits(START_BIT, false);
        values.write(writer);
    }
    return sink.octets();
}

template <class Class, class Value>
void decodeValues(benchmark::State& state)
{
    const std::string octets = encoded(makeValues<Class, Value>());
    std::vector<Value> values;
    for (auto _ : state)
    {
        BitStreamReader reader(octets.data(), octets.size());
        reader.skip(START_BIT);
        Class::decode(reader, values);
        benchmark::DoNotOptimize(values.data());
    }
    state.SetItemsProcessed(state.iterations() * VALUE_COUNT);
}
BENCHMARK_TEMPLATE(decodeValues, IntEncoding, int);
BENCHMARK_TEMPLATE(decodeValues, FloatEncoding, float);
BENCHMARK_TEMPLATE(decodeValues, DoubleEncoding, double);

template <class Class, class Value>
void encodeValues(benchmark::State& state)
{
    const Class values = makeValues<Class, Value>();
    Sink sink;
    for (auto _ : state)
    {
        sink.clear();
        BitStreamWriter writer(sink.stream(), false);
        writer.writeBits(START_BIT, false);
        values.write(writer);
    }
    state.SetItemsProcessed(state.iterations() * VALUE_COUNT);
}
BENCHMARK_TEMPLATE(encodeValues, IntEncoding, int);
BENCHMARK_TEMPLATE(encodeValues, FloatEncoding, float);
BENCHMARK_TEMPLATE(encodeValues, DoubleEncoding, double);

template <class Class, class Value>
void valuesToText(benchmark::State& state)
{
    const Class values = makeValues<Class, Value>();
    std::string text;
    for (auto _ : state)
    {
        values.text(text);
        benchmark::DoNotOptimize(text.data());
    }
    state.SetItemsProcessed(state.iterations() * VALUE_COUNT);
}
BENCHMARK_TEMPLATE(valuesToText, IntEncoding, int);
BENCHMARK_TEMPLATE(valuesToText, FloatEncoding, float);
BENCHMARK_TEMPLATE(valuesToText, DoubleEncoding, double);

template <class Class, class Value>
void textToValues(benchmark::State& state)
{
    std::string text;
    makeValues<Class, Value>().text(text);
    std::vector<Value> values;
    for (auto _ : state)
    {
        Class::parse(text, values);
        benchmark::DoNotOptimize(values.data());
    }
    state.SetItemsProcessed(state.iterations() * VALUE_COUNT);
}
BENCHMARK_TEMPLATE(textToValues, IntEncoding, int);
BENCHMARK_TEMPLATE(textToValues, FloatEncoding, float);
BENCHMARK_TEMPLATE(textToValues, DoubleEncoding, double);

} // namespace
