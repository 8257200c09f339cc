// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_RUNNER_H
#define VESK_BENCHMARKS_RUNNER_H

#include "Meter.h"
#include "Results.h"
#include "TypedArray.h"
#include <string>

namespace Vesk::Benchmarks
{

/// Lets the contestants run and keeps what they cost. A contestant takes part in an item only if it counts there what
/// expat counts; otherwise its row is left out and the reason kept.
class Runner
{
public:
    /// Rows are taken whose names contain the filter. The meter is borrowed.
    Runner(Meter& meter, Unit unit, const std::string& filter);

    void run(const Item& item);

    /// Throws DataFormatException if the two forms do not read the same.
    void run(const TypedArray& array);

    const Results& results() const { return _results; }

private:
    ContestantPtr checked(const Row& row, Workload& workload, const std::string& itemName);

    Meter& _meter;
    std::string _filter;
    Results _results;
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_RUNNER_H
