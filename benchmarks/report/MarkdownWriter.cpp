// SPDX-License-Identifier: MIT
#include "MarkdownWriter.h"
#include "Figures.h"
#include "Machine.h"
#include "TypedArray.h"
#include <utility>

namespace Vesk::Benchmarks
{

namespace
{

constexpr double OCTETS_PER_MEGABYTE = 1e6;
constexpr double NANOSECONDS_PER_SECOND = 1e9;

const char TIMES_INTRODUCTION[] = "All rows ran in one process, in turn within each repeat; a figure is the median of "
                                  "the repeats, in processor time,\n"
                                  "with the documents in memory. They show a class of machine and are no promise.\n";

const char INSTRUCTIONS_INTRODUCTION[] =
    "Instructions of one run after another that warms up, counted by callgrind. They repeat from run to run but for "
    "what\n"
    "the keyed hash of the map and hash tables, which differs from process to process, makes of collisions.\n";

const char COMMON_INTRODUCTION[] = "Every row counts elements, attributes and the octets of names, values and text, "
                                   "and is left out where it does not\n"
                                   "count what expat counts. Fast Infoset is written with an indexing limit of 16 "
                                   "octets unless a table says otherwise.\n"
                                   "\"Fresh parser\" makes one for each document, the other readers are made once. "
                                   "Ratios are to expat, of those with a\n"
                                   "fresh parser and of the converters to a fresh expat. An event is a call that "
                                   "SAXParser makes to a content handler.\n"
                                   "The floor replays the events of the Fast Infoset parser from memory: no reader "
                                   "with this interface can be faster.\n"
                                   "Means are geometric.\n";

std::string scopeName(Goal::Scope scope)
{
    return scope == Goal::DOCUMENTS ? "documents" : "folders of small documents";
}

std::string thousands(std::size_t count)
{
    std::string text = std::to_string(count);
    for (std::size_t end = text.size(); end > 3; end -= 3)
        text.insert(end - 3, ",");
    return text;
}

double toDouble(std::size_t count)
{
    return static_cast<double>(count);
}

} // namespace

MarkdownWriter::MarkdownWriter(std::ostream& out, const Results& results, const std::string& picture)
    : _out(out),
      _results(results),
      _picture(picture)
{
}

void MarkdownWriter::write()
{
    writeIntroduction();
    if (_results.unit == Unit::SECONDS)
        writeGoals();
    writeMeans(Goal::DOCUMENTS);
    writeMeans(Goal::FOLDERS);
    writeArrays();
    if (_results.unit == Unit::SECONDS)
        writeSizes();
    if (_results.items.size() > 1)
    {
        _out << "\n## Each of them\n";
        for (const ItemResult& item : _results.items)
            writeItem(item);
    }
    writeOmissions();
}

void MarkdownWriter::writeIntroduction()
{
    const bool isTimed = _results.unit == Unit::SECONDS;
    _out << (isTimed ? "# Benchmarks\n\n" : "# Instructions\n\n");
    _out << "Written by `scripts/bench.sh" << (isTimed ? "" : " --instructions") << "` on " << today() << ".\n\n";
    _out << "- Machine: " << machineClass() << "\n- Libraries: " << libraryVersions() << "\n\n";
    _out << (isTimed ? TIMES_INTRODUCTION : INSTRUCTIONS_INTRODUCTION) << COMMON_INTRODUCTION;
    if (!_picture.empty())
        _out << "\n![Speed and size](" << _picture << ")\n";
}

void MarkdownWriter::writeGoals()
{
    _out << "\n## Goals\n\nHow many times as fast as the reference; where there are several items the mean and the "
            "range.\n\n"
         << "| Work | Row | Reference | Over | Goal | Reached | Range |\n|---|---|---|---|--:|--:|--:|\n";
    for (const Goal& goal : goals())
        writeGoal(goal);
    for (const ArrayResult& array : _results.arrays)
    {
        const double ratio = array.textCost / array.blockCost;
        _out << "| read typed values | " << array.name << " in blocks | expat and decoding | array | "
             << figure(array.goal) << " | " << figure(ratio) << (ratio < array.goal ? " (missed)" : "") << " | |\n";
    }
}

void MarkdownWriter::writeGoal(const Goal& goal)
{
    const auto ratio = _results.ratio(rowIndex(goal.row), rowIndex(goal.reference), goal.scope);
    if (!ratio)
        return;
    _out << "| " << goal.work << " | " << goal.row << " | " << goal.reference << " | " << scopeName(goal.scope) << " | "
         << figure(goal.atLeast) << " | " << figure(ratio->value) << (ratio->value < goal.atLeast ? " (missed)" : "")
         << " | ";
    if (ratio->count > 1)
        _out << figure(ratio->least) << " to " << figure(ratio->greatest);
    _out << " |\n";
}

void MarkdownWriter::writeMeans(Goal::Scope scope)
{
    const std::size_t itemCount = _results.itemCount(scope);
    if (itemCount == 0)
        return;
    _out << "\n## " << (scope == Goal::DOCUMENTS ? "Documents" : "Small documents") << "\n\n"
         << "Mean of " << itemCount << " " << scopeName(scope) << ".\n\n";
    writeTableHead();
    for (std::size_t row = 0; row < rows().size(); ++row)
    {
        const auto throughput = _results.octetsPerCost(row, scope);
        if (!throughput)
            continue;
        const auto ratio = _results.ratio(row, rowIndex(rows()[row].baseline), scope);
        writeTableRow(rows()[row].name, throughput->value, _results.costPerEvent(row, scope)->value,
                      ratio ? ratio->value : 0,
                      throughput->count < itemCount ? " (of " + std::to_string(throughput->count) + ")" : "");
    }
}

void MarkdownWriter::writeItem(const ItemResult& item)
{
    _out << "\n### " << item.name << "\n\n";
    if (item.isFolder)
        _out << item.documentCount << " documents, ";
    _out << thousands(item.xmlOctets) << " octets of XML, " << thousands(item.eventCount) << " events.\n\n";
    writeTableHead();
    for (std::size_t row = 0; row < rows().size(); ++row)
    {
        if (!item.costs[row])
            continue;
        const double cost = *item.costs[row];
        const auto baseline = item.costs[rowIndex(rows()[row].baseline)];
        writeTableRow(rows()[row].name, toDouble(item.xmlOctets) / cost, cost / toDouble(item.eventCount),
                      baseline ? *baseline / cost : 0, "");
    }
}

void MarkdownWriter::writeTableHead()
{
    if (_results.unit == Unit::SECONDS)
        _out << "| | MB/s of XML text | ns per event | Ratio to expat |\n|---|--:|--:|--:|\n";
    else
        _out << "| | Instructions per octet of XML text | Instructions per event | Ratio to expat "
                "|\n|---|--:|--:|--:|\n";
}

void MarkdownWriter::writeTableRow(const std::string& name, double octetsPerCost, double costPerEvent, double ratio,
                                   const std::string& remark)
{
    _out << "| " << name << remark << " | ";
    if (_results.unit == Unit::SECONDS)
    {
        _out << figure(octetsPerCost / OCTETS_PER_MEGABYTE) << " | " << figure(costPerEvent * NANOSECONDS_PER_SECOND);
    }
    else
    {
        _out << figure(1 / octetsPerCost) << " | " << figure(costPerEvent);
    }
    _out << " | " << (ratio > 0 ? figure(ratio) : "") << " |\n";
}

void MarkdownWriter::writeArrays()
{
    if (_results.arrays.empty())
        return;
    const bool isTimed = _results.unit == Unit::SECONDS;
    const double scale = (isTimed ? NANOSECONDS_PER_SECOND : 1) / toDouble(TypedArray::VALUE_COUNT);
    _out << "\n## Typed arrays\n\n"
         << thousands(TypedArray::VALUE_COUNT)
         << " values in one element: as text read by expat and std::from_chars (base64 by the project's decoder), and "
            "as "
            "typed\ncontent read by FastInfosetParser into a FISContentHandler, which takes numbers one by one, or in "
            "blocks as a\nFISArrayHandler; octets come in one block anyway. Integers are random within a million, "
            "floating-point numbers\nrandom within a thousand with all their digits.\n\n"
         << "| | Octets as text | Typed | " << (isTimed ? "ns" : "Instructions")
         << " per value as text | One by one | In blocks | Ratio, one by one | Ratio, in blocks |\n"
         << "|---|--:|--:|--:|--:|--:|--:|--:|\n";
    for (const ArrayResult& array : _results.arrays)
    {
        _out << "| " << array.name << " | " << thousands(array.xmlOctets) << " | " << thousands(array.fisOctets)
             << " | " << figure(array.textCost * scale) << " | " << figure(array.fisCost * scale) << " | "
             << figure(array.blockCost * scale) << " | " << figure(array.textCost / array.fisCost) << " | "
             << figure(array.textCost / array.blockCost) << " |\n";
    }
}

void MarkdownWriter::writeSizes()
{
    _out
        << "\n## Sizes\n\nOctets, and under gzip -6 and zstd -3, in percent of the XML text; the documents of a folder "
           "are compressed one by one.\n\n"
        << "| |";
    for (const std::string& form : formNames())
        _out << " " << form << " | gzip | zstd |";
    _out << "\n|---|";
    for (std::size_t form = 0; form < formNames().size(); ++form)
        _out << "--:|--:|--:|";
    _out << "\n";
    for (const ItemResult& item : _results.items)
    {
        _out << "| " << item.name << " |";
        for (std::size_t form = 0; form < item.sizes.size(); ++form)
        {
            const FormSizes& sizes = item.sizes[form];
            const auto relative = [&item](std::size_t octets)
            {
                return percent(toDouble(octets) / toDouble(item.xmlOctets));
            };
            _out << " " << (form == 0 ? thousands(sizes.plain) : relative(sizes.plain)) << " | " << relative(sizes.gzip)
                 << " | " << relative(sizes.zstd) << " |";
        }
        _out << "\n";
    }
    if (_results.itemCount(Goal::DOCUMENTS) < 2)
        return;
    _out << "| mean of the documents |";
    for (std::size_t form = 0; form < formNames().size(); ++form)
    {
        for (const auto compression : {&FormSizes::plain, &FormSizes::gzip, &FormSizes::zstd})
            _out << " " << percent(_results.relativeSize(form, compression, Goal::DOCUMENTS)->value) << " |";
    }
    _out << "\n";
}

void MarkdownWriter::writeOmissions()
{
    if (_results.omissions.empty())
        return;
    _out << "\n## Left out\n\n";
    for (const Omission& omission : _results.omissions)
        _out << "- " << omission.row << ", " << omission.item << ": " << omission.reason << "\n";
}

} // namespace Vesk::Benchmarks
