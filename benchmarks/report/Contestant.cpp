// SPDX-License-Identifier: MIT
#include "Contestant.h"

namespace Vesk::Benchmarks
{

void Contestant::run()
{
    for (std::size_t document = 0; document < _workload.documentCount(); ++document)
        process(document);
}

Tally Contestant::tally()
{
    Tally sum;
    for (std::size_t document = 0; document < _workload.documentCount(); ++document)
    {
        process(document);
        sum += documentTally();
    }
    return sum;
}

} // namespace Vesk::Benchmarks
