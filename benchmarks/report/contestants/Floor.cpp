// SPDX-License-Identifier: MIT
#include "../Contestants.h"
#include "../TallyHandler.h"

namespace Vesk::Benchmarks
{

namespace
{

class Floor final : public Contestant
{
public:
    Floor(Workload& items, EventStore::Attributes attributes)
        : Contestant(items),
          _attributes(attributes)
    {
    }

private:
    void process(std::size_t document) override { workload().parserEvents(document).replay(_handler, _attributes); }
    Tally documentTally() override { return _handler.tally(); }

    const EventStore::Attributes _attributes;
    TallyHandler _handler;
};

} // namespace

ContestantPtr makeFloor(Workload& workload, EventStore::Attributes attributes)
{
    return std::make_unique<Floor>(workload, attributes);
}

} // namespace Vesk::Benchmarks
