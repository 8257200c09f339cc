// SPDX-License-Identifier: MIT
#include "Stopwatch.h"
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <ctime>

namespace Vesk::Benchmarks
{

namespace
{

double processorSeconds()
{
    std::timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

double secondsOf(const std::function<void()>& task, int runs)
{
    const double start = processorSeconds();
    for (int run = 0; run < runs; ++run)
        task();
    return (processorSeconds() - start) / runs;
}

double median(std::vector<double>& values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace

Stopwatch::Stopwatch(int repeats, double sampleSeconds)
    : _repeats(repeats),
      _sampleSeconds(sampleSeconds)
{
}

std::vector<double> Stopwatch::measure(const Tasks& tasks)
{
    std::vector<int> runs;
    for (const auto& task : tasks)
    {
        const double warm = std::min(secondsOf(task, 1), secondsOf(task, 3));
        runs.push_back(std::max(1, static_cast<int>(std::ceil(_sampleSeconds / std::max(warm, 1e-7)))));
    }
    std::vector<std::vector<double>> samples(tasks.size());
    for (int repeat = 0; repeat < _repeats; ++repeat)
    {
        for (std::size_t i = 0; i < tasks.size(); ++i)
            samples[i].push_back(secondsOf(tasks[i], runs[i]));
    }
    std::vector<double> medians;
    for (std::vector<double>& sample : samples)
        medians.push_back(median(sample));
    return medians;
}

} // namespace Vesk::Benchmarks
