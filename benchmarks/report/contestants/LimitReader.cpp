// SPDX-License-Identifier: MIT
#include "../Contestants.h"
#include "../TallyHandler.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"

namespace Vesk::Benchmarks
{

namespace
{

class LimitReader final : public Contestant
{
public:
    LimitReader(Workload& items, int maxIndexedLength)
        : Contestant(items)
    {
        for (std::size_t document = 0; document < items.documentCount(); ++document)
            _fis.push_back(convertedToFIS(items.xml(document), maxIndexedLength));
        _parser.setContentHandler(&_handler);
    }

private:
    void process(std::size_t document) override { _parser.parseMemoryNP(_fis[document].data(), _fis[document].size()); }
    Tally documentTally() override { return _handler.tally(); }

    std::vector<std::string> _fis;
    TallyHandler _handler;
    FastInfoset::FastInfosetParser _parser;
};

} // namespace

ContestantPtr makeLimitReader(Workload& workload, int maxIndexedLength)
{
    return std::make_unique<LimitReader>(workload, maxIndexedLength);
}

} // namespace Vesk::Benchmarks
