// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_CONTESTANT_H
#define VESK_BENCHMARKS_CONTESTANT_H

#include "ExpatTally.h"
#include "Workload.h"
#include <cstddef>

namespace Vesk::Benchmarks
{

/// One way to do a piece of work on the documents of an item: a row of the report.
class Contestant
{
public:
    /// The workload is borrowed.
    explicit Contestant(Workload& workload)
        : _workload(workload)
    {
    }

    Contestant(const Contestant&) = delete;
    Contestant& operator=(const Contestant&) = delete;
    virtual ~Contestant() = default;

    /// Works through all documents. This is what is measured.
    void run();

    /// Works through all documents and returns what was counted in them.
    Tally tally();

    /// Which of expat's tallies this one has to equal.
    virtual ExpatTally::Names names() const { return ExpatTally::EXPANDED; }

protected:
    Workload& workload() { return _workload; }

private:
    virtual void process(std::size_t document) = 0;

    /// Of the document that was processed last. Where a document was written, it is read for this.
    virtual Tally documentTally() = 0;

    Workload& _workload;
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_CONTESTANT_H
