// SPDX-License-Identifier: MIT
//
// Bits, whole octets and runs of octets, one call of a primitive at a time.

#include "../report/Sink.h"
#include "Vesk/FastInfoset/BitStreamReader.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/Encoder.h"
#include <benchmark/benchmark.h>
#include <string>

using Vesk::Benchmarks::Sink;
using Vesk::FastInfoset::BitStreamReader;
using Vesk::FastInfoset::BitStreamWriter;
using Vesk::FastInfoset::Encoder;

namespace
{

constexpr std::int64_t OCTETS = 64 * 1024;

std::string octets()
{
    std::string result;
    for (std::int64_t i = 0; i < OCTETS; ++i)
        result += static_cast<char>(i * 131);
    return result;
}

// range(0): bits of a value.
void readBits(benchmark::State& state)
{
    const std::string input = octets();
    const int numOfBits = static_cast<int>(state.range(0));
    for (auto _ : state)
    {
        BitStreamReader reader(input.data(), input.size());
        unsigned int value = 0;
        while (reader.read(value, numOfBits))
            benchmark::DoNotOptimize(value);
    }
    state.SetItemsProcessed(state.iterations() * (OCTETS * 8 / numOfBits));
}
BENCHMARK(readBits)->Arg(1)->Arg(7)->Arg(20);

void readOctet(benchmark::State& state)
{
    const std::string input = octets();
    for (auto _ : state)
    {
        BitStreamReader reader(input.data(), input.size());
        unsigned int octet = 0;
        while (reader.readOctet(octet))
            benchmark::DoNotOptimize(octet);
    }
    state.SetItemsProcessed(state.iterations() * OCTETS);
}
BENCHMARK(readOctet);

// range(0): octets of a string, range(1): bits in front of the first one.
void readString(benchmark::State& state)
{
    const std::string input = octets();
    const auto octetCount = static_cast<unsigned long>(state.range(0));
    const std::int64_t stringCount = OCTETS / state.range(0) - 1;
    std::string text;
    for (auto _ : state)
    {
        BitStreamReader reader(input.data(), input.size());
        reader.skip(static_cast<unsigned long>(state.range(1)));
        for (std::int64_t i = 0; i < stringCount; ++i)
        {
            reader.read(text, octetCount);
            benchmark::DoNotOptimize(text.data());
        }
    }
    state.SetItemsProcessed(state.iterations() * stringCount);
    state.SetBytesProcessed(state.iterations() * stringCount * state.range(0));
}
BENCHMARK(readString)->ArgsProduct({{8, 64, 1024}, {0, 3}});

// Calls write on a writer that gathers, as it does within an event, and hands over after each round.
template <class Write>
void writeInRounds(benchmark::State& state, Write write)
{
    constexpr int CALLS = 64;
    Sink sink;
    BitStreamWriter writer(sink.stream(), false);
    for (auto _ : state)
    {
        sink.clear();
        writer.hold();
        for (int i = 0; i < CALLS; ++i)
            write(writer);
        writer.complete(false);
        writer.release();
    }
    state.SetItemsProcessed(state.iterations() * CALLS);
}

// range(0): bits of a value.
void writeBits(benchmark::State& state)
{
    const int numOfBits = static_cast<int>(state.range(0));
    writeInRounds(state, [numOfBits](BitStreamWriter& writer) { writer.write(0x5A5A5, numOfBits); });
}
BENCHMARK(writeBits)->Arg(1)->Arg(7)->Arg(20);

// range(0): octets of a string.
void writeString(benchmark::State& state)
{
    const std::string text(static_cast<std::size_t>(state.range(0)), 'x');
    writeInRounds(state, [&text](BitStreamWriter& writer) { writer.write(text); });
    state.SetBytesProcessed(state.items_processed() * state.range(0));
}
BENCHMARK(writeString)->Arg(8)->Arg(64)->Arg(1024);

// range(0): the index, of which there are forms of one, two and three octets.
void writeIndex(benchmark::State& state)
{
    const auto index = static_cast<unsigned int>(state.range(0));
    writeInRounds(state,
                  [index](BitStreamWriter& writer)
                  {
                      writer.write(true);
                      Encoder::integer(writer, index);
                  });
}
BENCHMARK(writeIndex)->Arg(1)->Arg(100)->Arg(10000);

} // namespace
