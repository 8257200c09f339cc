// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_METER_H
#define VESK_BENCHMARKS_METER_H

#include <functional>
#include <vector>

namespace Vesk::Benchmarks
{

/// Measures what tasks cost.
class Meter
{
public:
    using Tasks = std::vector<std::function<void()>>;

    /// The cost of one run of each task, in the meter's unit.
    virtual std::vector<double> measure(const Tasks& tasks) = 0;

    virtual ~Meter() = default;
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_METER_H
