// SPDX-License-Identifier: MIT
#include "Runner.h"
#include "ArrayReaders.h"
#include "Vesk/Exception.h"
#include <sstream>
#include <utility>

namespace Vesk::Benchmarks
{

namespace
{

std::string difference(const Tally& tally, const Tally& expected)
{
    std::ostringstream text;
    text << "counts " << tally << " where expat counts " << expected;
    return text.str();
}

} // namespace

Runner::Runner(Meter& meter, Unit unit, const std::string& filter)
    : _meter(meter),
      _filter(filter)
{
    _results.unit = unit;
}

void Runner::run(const Item& item)
{
    Workload workload(item);
    ItemResult result;
    result.name = item.name;
    result.isFolder = item.isFolder;
    result.documentCount = workload.documentCount();
    result.xmlOctets = workload.xmlOctets();
    result.eventCount = workload.eventCount();
    result.costs.resize(rows().size());

    std::vector<ContestantPtr> contestants;
    std::vector<std::size_t> indexes;
    Meter::Tasks tasks;
    for (std::size_t i = 0; i < rows().size(); ++i)
    {
        if (rows()[i].name.find(_filter) == std::string::npos)
            continue;
        ContestantPtr contestant = checked(rows()[i], workload, item.name);
        if (!contestant)
            continue;
        tasks.push_back([&runner = *contestant] { runner.run(); });
        contestants.push_back(std::move(contestant));
        indexes.push_back(i);
    }
    const std::vector<double> costs = _meter.measure(tasks);
    for (std::size_t i = 0; i < costs.size(); ++i)
        result.costs[indexes[i]] = costs[i];
    if (_results.unit == Unit::SECONDS)
        result.sizes = sizesOf(item);
    _results.items.push_back(std::move(result));
}

// Null, and a remark in the results, for a contestant that does not get through the documents as expat does.
ContestantPtr Runner::checked(const Row& row, Workload& workload, const std::string& itemName)
{
    std::string reason;
    try
    {
        ContestantPtr contestant = row.make(workload);
        const Tally tally = contestant->tally();
        const Tally& expected = workload.expected(contestant->names());
        if (tally == expected)
            return contestant;
        reason = difference(tally, expected);
    }
    catch (const Exception& exception)
    {
        reason = exception.displayText();
    }
    _results.omissions.push_back({row.name, itemName, reason});
    return nullptr;
}

void Runner::run(const TypedArray& array)
{
    const std::unique_ptr<ArrayReader> text = makeTextArrayReader(array);
    const std::unique_ptr<ArrayReader> fis = makeFISArrayReader(array);
    const std::unique_ptr<ArrayReader> blocks = makeFISBlockReader(array);
    const ArrayTally tally = text->read();
    if (!(tally == fis->read()) || !(tally == blocks->read()) || tally.count != TypedArray::VALUE_COUNT)
        throw DataFormatException("Text and typed values differ", array.name);

    const std::vector<double> costs = _meter.measure({[&text] { text->read(); }, [&fis] { fis->read(); },
                                                      [&blocks]
                                                      {
                                                          blocks->read();
                                                      }});
    _results.arrays.push_back(
        {array.name, array.goal, array.xml.size(), array.fis.size(), costs[0], costs[1], costs[2]});
}

} // namespace Vesk::Benchmarks
