// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_INSTRUCTIONCOUNTER_H
#define VESK_BENCHMARKS_INSTRUCTIONCOUNTER_H

#include "Meter.h"
#include <string>

namespace Vesk::Benchmarks
{

/// Counts the instructions of tasks, in a program that runs under callgrind. Unlike times they can be compared between
/// runs and machines; only hash tables, whose hash differs from process to process, make them vary a little.
class InstructionCounter : public Meter
{
public:
    /// outFile is what callgrind was told as --callgrind-out-file. Throws RuntimeException if the program does not run
    /// under callgrind or was built without its header.
    explicit InstructionCounter(const std::string& outFile);

    std::vector<double> measure(const Tasks& tasks) override;

private:
    double countOf(const std::function<void()>& task);

    std::string _outFile;
    int _dumps = 0;
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_INSTRUCTIONCOUNTER_H
