// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_COST_H
#define VESK_BENCHMARKS_COST_H

#include <functional>

struct Cost
{
    double seconds = 0;
    double memoryOctets = 0; // peak of resident memory, beyond what was there at the start
};

/// Runs the action in a process of its own, so that what ran before does not show. Works on Linux only.
/// Throws std::runtime_error if the action does not end by returning.
Cost measured(const std::function<void()>& action);

#endif // VESK_BENCHMARKS_COST_H
