// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_MARKDOWNWRITER_H
#define VESK_BENCHMARKS_MARKDOWNWRITER_H

#include "Results.h"
#include <ostream>
#include <string>

namespace Vesk::Benchmarks
{

/// Writes results as a page of Markdown.
class MarkdownWriter
{
public:
    /// Stream and results are borrowed. picture is the file to be shown; none if empty.
    MarkdownWriter(std::ostream& out, const Results& results, const std::string& picture);

    void write();

private:
    void writeIntroduction();
    void writeGoals();
    void writeGoal(const Goal& goal);
    void writeMeans(Goal::Scope scope);
    void writeItem(const ItemResult& item);
    void writeArrays();
    void writeSizes();
    void writeOmissions();

    void writeTableHead();
    /// Octets of XML text by cost, cost by event, ratio to the baseline; nothing if one is missing.
    void writeTableRow(const std::string& name, double octetsPerCost, double costPerEvent, double ratio,
                       const std::string& remark);

    std::ostream& _out;
    const Results& _results;
    std::string _picture;
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_MARKDOWNWRITER_H
