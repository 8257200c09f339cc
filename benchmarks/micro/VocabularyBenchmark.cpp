// SPDX-License-Identifier: MIT
//
// The tables of a document: entering values, finding them, fetching them by index, and starting again.

#include "Vesk/FastInfoset/HashVocabulary.h"
#include "Vesk/FastInfoset/MapVocabulary.h"
#include "Vesk/FastInfoset/VectorVocabulary.h"
#include <benchmark/benchmark.h>
#include <memory>
#include <string>
#include <vector>

using namespace Vesk::FastInfoset;

namespace
{

constexpr unsigned int HASH_TABLE_SIZE = 40009;

// Strings like those that documents repeat.
std::vector<std::string> values(std::int64_t count)
{
    std::vector<std::string> result;
    for (std::int64_t i = 0; i < count; ++i)
        result.push_back("value" + std::to_string(i));
    return result;
}

template <class Table>
std::unique_ptr<Table> makeTable()
{
    return std::make_unique<Table>();
}
template <>
std::unique_ptr<HashVocabulary<std::string>> makeTable()
{
    return std::make_unique<HashVocabulary<std::string>>(HASH_TABLE_SIZE);
}

template <class Table>
void enter(Table& table, const std::vector<std::string>& strings)
{
    bool found = false;
    for (const std::string& string : strings)
        benchmark::DoNotOptimize(table.index(string, found));
}

// In all of them range(0) is the number of values.

template <class Table>
void enterAndReset(benchmark::State& state)
{
    const std::vector<std::string> strings = values(state.range(0));
    const auto table = makeTable<Table>();
    for (auto _ : state)
    {
        enter(*table, strings);
        table->reset();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_TEMPLATE(enterAndReset, HashVocabulary<std::string>)->Arg(8)->Arg(512)->Arg(16384);
BENCHMARK_TEMPLATE(enterAndReset, MapVocabulary<std::string>)->Arg(8)->Arg(512)->Arg(16384);
BENCHMARK_TEMPLATE(enterAndReset, VectorVocabulary<std::string>)->Arg(8)->Arg(512)->Arg(16384);

template <class Table>
void findPresent(benchmark::State& state)
{
    const std::vector<std::string> strings = values(state.range(0));
    const auto table = makeTable<Table>();
    enter(*table, strings);
    for (auto _ : state)
        enter(*table, strings);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_TEMPLATE(findPresent, HashVocabulary<std::string>)->Arg(8)->Arg(512)->Arg(16384);
BENCHMARK_TEMPLATE(findPresent, MapVocabulary<std::string>)->Arg(8)->Arg(512)->Arg(16384);

template <class Table>
void findAbsent(benchmark::State& state)
{
    const std::vector<std::string> strings = values(2 * state.range(0));
    const auto table = makeTable<Table>();
    const auto middle = strings.begin() + state.range(0);
    enter(*table, {strings.begin(), middle});
    bool found = false;
    for (auto _ : state)
    {
        for (auto string = middle; string != strings.end(); ++string)
            benchmark::DoNotOptimize(table->exists(*string, found));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_TEMPLATE(findAbsent, HashVocabulary<std::string>)->Arg(8)->Arg(512)->Arg(16384);
BENCHMARK_TEMPLATE(findAbsent, MapVocabulary<std::string>)->Arg(8)->Arg(512)->Arg(16384);

template <class Table>
void fetch(benchmark::State& state)
{
    const auto table = makeTable<Table>();
    enter(*table, values(state.range(0)));
    const auto size = table->size();
    for (auto _ : state)
    {
        for (unsigned int i = 0; i < size; ++i)
            benchmark::DoNotOptimize(table->value(i).data());
    }
    state.SetItemsProcessed(state.iterations() * size);
}
BENCHMARK_TEMPLATE(fetch, HashVocabulary<std::string>)->Arg(512);
BENCHMARK_TEMPLATE(fetch, MapVocabulary<std::string>)->Arg(512);
BENCHMARK_TEMPLATE(fetch, VectorVocabulary<std::string>)->Arg(512);

} // namespace
