// SPDX-License-Identifier: MIT
#include "../Contestants.h"
#include "../ExpatTally.h"

namespace Vesk::Benchmarks
{

namespace
{

class Expat final : public Contestant
{
public:
    Expat(Workload& items, Lifetime lifetime)
        : Contestant(items),
          _lifetime(lifetime)
    {
    }

private:
    void process(std::size_t document) override
    {
        if (_lifetime == Lifetime::REUSED)
            _tally = _reused.parse(workload().xml(document));
        else
            _tally = ExpatTally().parse(workload().xml(document));
    }
    Tally documentTally() override { return _tally; }

    const Lifetime _lifetime;
    ExpatTally _reused;
    Tally _tally;
};

} // namespace

ContestantPtr makeExpat(Workload& workload, Lifetime lifetime)
{
    return std::make_unique<Expat>(workload, lifetime);
}

} // namespace Vesk::Benchmarks
