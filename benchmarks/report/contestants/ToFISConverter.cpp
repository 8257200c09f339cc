// SPDX-License-Identifier: MIT
#include "../Contestants.h"
#include "../Sink.h"
#include "../TallyHandler.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/MemoryInputStream.h"

namespace Vesk::Benchmarks
{

namespace
{

class ToFISConverter final : public Contestant
{
public:
    using Contestant::Contestant;

private:
    void process(std::size_t document) override
    {
        const std::string& xml = workload().xml(document);
        MemoryInputStream in(xml.data(), xml.size());
        _sink.clear();
        FastInfoset::Converter::convertToFIS(in, _sink.stream(), DEFAULT_INDEXED_LENGTH, 0);
    }
    Tally documentTally() override { return TallyHandler::tallyOfFIS(_sink.octets()); }

    Sink _sink;
};

} // namespace

ContestantPtr makeToFISConverter(Workload& workload)
{
    return std::make_unique<ToFISConverter>(workload);
}

} // namespace Vesk::Benchmarks
