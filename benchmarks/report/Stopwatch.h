// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_STOPWATCH_H
#define VESK_BENCHMARKS_STOPWATCH_H

#include "Meter.h"

namespace Vesk::Benchmarks
{

/// Measures processor time, in seconds. What else the machine does then counts as little as possible.
///
/// Every task runs in each repeat once, in turn, so that slower and faster times of the machine meet all of them; the
/// median of the repeats counts. A short task runs several times in a row, until the sample is long enough.
class Stopwatch : public Meter
{
public:
    Stopwatch(int repeats, double sampleSeconds);

    std::vector<double> measure(const Tasks& tasks) override;

private:
    int _repeats;
    double _sampleSeconds;
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_STOPWATCH_H
