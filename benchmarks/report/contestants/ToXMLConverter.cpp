// SPDX-License-Identifier: MIT
#include "../Contestants.h"
#include "../ExpatTally.h"
#include "../Sink.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/MemoryInputStream.h"

namespace Vesk::Benchmarks
{

namespace
{

class ToXMLConverter final : public Contestant
{
public:
    using Contestant::Contestant;

private:
    void process(std::size_t document) override
    {
        const std::string& fis = workload().fis(document);
        MemoryInputStream in(fis.data(), fis.size());
        _sink.clear();
        FastInfoset::Converter::convertToXML(in, _sink.stream(), 0);
    }
    Tally documentTally() override { return ExpatTally().parse(_sink.octets()); }

    Sink _sink;
};

} // namespace

ContestantPtr makeToXMLConverter(Workload& workload)
{
    return std::make_unique<ToXMLConverter>(workload);
}

} // namespace Vesk::Benchmarks
