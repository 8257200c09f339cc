// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "../Contestants.h"
#include "../Sink.h"
#include "../TallyHandler.h"

namespace Vesk::Benchmarks
{

namespace
{

class FastInfosetWriter final : public Contestant
{
public:
    FastInfosetWriter(Workload& items, Tables tables)
        : Contestant(items),
          _tables(tables)
    {
    }

private:
    void process(std::size_t document) override
    {
        _sink.clear();
        FastInfoset::FastInfosetWriter writer(_sink.stream(), false, _tables);
        workload().textEvents(document).replay(writer, EventStore::PREPARED);
    }
    Tally documentTally() override { return TallyHandler::tallyOfFIS(_sink.octets()); }

    const Tables _tables;
    Sink _sink;
};

} // namespace

ContestantPtr makeFastInfosetWriter(Workload& workload, Tables tables)
{
    return std::make_unique<FastInfosetWriter>(workload, tables);
}

} // namespace Vesk::Benchmarks
