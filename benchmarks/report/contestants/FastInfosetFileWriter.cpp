// SPDX-License-Identifier: MIT
#include "../Contestants.h"
#include "../TallyHandler.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"

namespace Vesk::Benchmarks
{

namespace
{

class FastInfosetFileWriter final : public Contestant
{
public:
    FastInfosetFileWriter(Workload& items, TemporaryFile::Flushing flushing)
        : Contestant(items),
          _file(flushing)
    {
    }

private:
    void process(std::size_t document) override
    {
        _file.rewind();
        {
            FastInfoset::FastInfosetWriter writer(_file.stream(), false, FastInfoset::DocumentVocabulary::VOC_MAP);
            workload().textEvents(document).replay(writer, EventStore::PREPARED);
        }
        _file.finish();
    }
    Tally documentTally() override { return TallyHandler::tallyOfFIS(_file.content()); }

    TemporaryFile _file;
};

} // namespace

ContestantPtr makeFastInfosetFileWriter(Workload& workload, TemporaryFile::Flushing flushing)
{
    return std::make_unique<FastInfosetFileWriter>(workload, flushing);
}

} // namespace Vesk::Benchmarks
