// SPDX-License-Identifier: MIT
#ifndef VESKFI_TIMING_H
#define VESKFI_TIMING_H

#include <algorithm>
#include <chrono>

namespace Vesk::Tool
{

/// How long the action takes: the fastest of at least one run, and of up to 15 as long as they take no more than a tenth
/// of a second together. On a machine that does other things, too, the fastest run is the one least disturbed.
template <class Action>
double fastestSeconds(Action action)
{
    using Clock = std::chrono::steady_clock;
    constexpr int MAX_RUNS = 15;
    constexpr double ENOUGH_SECONDS = 0.1;
    double fastest = 0;
    double total = 0;
    for (int run = 0; run < MAX_RUNS && total < ENOUGH_SECONDS; ++run)
    {
        const Clock::time_point start = Clock::now();
        action();
        const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
        fastest = run == 0 ? seconds : std::min(fastest, seconds);
        total += seconds;
    }
    return fastest;
}

} // namespace Vesk::Tool

#endif // VESKFI_TIMING_H
