// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_SVGWRITER_H
#define VESK_BENCHMARKS_SVGWRITER_H

#include "Results.h"
#include <ostream>
#include <string>
#include <vector>

namespace Vesk::Benchmarks
{

/// Draws the means over all documents as bar charts: speed by row, and size by form.
class SVGWriter
{
public:
    /// Stream and results are borrowed.
    SVGWriter(std::ostream& out, const Results& results, Goal::Scope scope);

    void write();

private:
    struct Bar
    {
        std::string name;
        std::string colour;
        double value;
        std::string label;
    };

    std::vector<Bar> speeds() const;
    std::vector<Bar> sizes() const;
    void addSizes(const std::string& suffix, std::size_t FormSizes::*compression, std::vector<Bar>& bars) const;
    void writeChart(const std::string& title, const std::vector<Bar>& bars);
    void writeText(int x, const std::string& attributes, const std::string& text);

    std::ostream& _out;
    const Results& _results;
    Goal::Scope _scope;
    int _y = 0; // where the next line goes
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_SVGWRITER_H
