// SPDX-License-Identifier: MIT
#include "InstructionCounter.h"
#include "Vesk/Exception.h"
#include <cstdio>
#include <fstream>

#ifdef VESK_HAS_CALLGRIND
#include <valgrind/callgrind.h>
#endif

namespace Vesk::Benchmarks
{

namespace
{

constexpr int WARM_UPS = 3;

#ifdef VESK_HAS_CALLGRIND
bool isRunningUnderValgrind()
{
    return RUNNING_ON_VALGRIND != 0;
}
void startCounting()
{
    CALLGRIND_START_INSTRUMENTATION;
}
void stopCounting()
{
    CALLGRIND_STOP_INSTRUMENTATION;
    CALLGRIND_DUMP_STATS;
}
#else
bool isRunningUnderValgrind()
{
    return false;
}
void startCounting()
{
}
void stopCounting()
{
}
#endif

} // namespace

InstructionCounter::InstructionCounter(const std::string& outFile)
    : _outFile(outFile)
{
    if (!isRunningUnderValgrind())
        throw RuntimeException("Instructions are counted under callgrind only, with its header at build time");
}

std::vector<double> InstructionCounter::measure(const Tasks& tasks)
{
    std::vector<double> counts;
    for (const auto& task : tasks)
        counts.push_back(countOf(task));
    return counts;
}

// Callgrind numbers its dumps and closes each with a line "totals:".
double InstructionCounter::countOf(const std::function<void()>& task)
{
    // What happens on the first runs only, such as the binding of symbols, does not count. The allocator takes a few
    // runs to sort what the row before has left in it.
    for (int run = 0; run < WARM_UPS; ++run)
        task();
    startCounting();
    task();
    stopCounting();

    const std::string path = _outFile + "." + std::to_string(++_dumps);
    std::ifstream dump(path);
    std::string word;
    double count = 0;
    while (dump >> word)
    {
        if (word == "totals:")
            dump >> count;
    }
    std::remove(path.c_str());
    if (count <= 0)
        throw DataFormatException("No totals in callgrind's output", path);
    return count;
}

} // namespace Vesk::Benchmarks
