// SPDX-License-Identifier: MIT
#include "SVGWriter.h"
#include "Figures.h"
#include "Machine.h"
#include <algorithm>

namespace Vesk::Benchmarks
{

namespace
{

constexpr int WIDTH = 900;
constexpr int MARGIN = 16;
constexpr int NAMES_WIDTH = 330;
constexpr int BARS_WIDTH = 460;
constexpr int LINE_HEIGHT = 20;
constexpr int BAR_HEIGHT = 14;

const char GREY[] = "#8c959f";
const char BLUE[] = "#0969da";
const char GREEN[] = "#2da44e";

// Text of others in grey, what this project does in blue, the floor in green.
const char* colourOf(const Row& row)
{
    if (row.group == Row::FLOOR)
        return GREEN;
    const bool isOurs = row.group == Row::READER || row.group == Row::WRITER || row.group == Row::CONVERTER ||
                        row.name.compare(0, 3, "SAX") == 0;
    return isOurs ? BLUE : GREY;
}

} // namespace

SVGWriter::SVGWriter(std::ostream& out, const Results& results, Goal::Scope scope)
    : _out(out),
      _results(results),
      _scope(scope)
{
}

void SVGWriter::write()
{
    const std::vector<Bar> speed = speeds();
    const std::vector<Bar> size = sizes();
    const int lineCount = static_cast<int>(speed.size() + size.size()) + 6;
    const int height = lineCount * LINE_HEIGHT + 2 * MARGIN;

    _out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << WIDTH << "\" height=\"" << height
         << "\" viewBox=\"0 0 " << WIDTH << " " << height << "\" font-family=\"sans-serif\" font-size=\"13\">\n"
         << "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
    _y = MARGIN + BAR_HEIGHT;
    writeChart("Speed, MB/s of XML text, mean of " + std::to_string(_results.itemCount(_scope)) + " items", speed);
    writeChart("Size, percent of the XML text", size);
    writeText(MARGIN, "fill=\"#57606a\" font-size=\"11\"", today() + ", " + machineClass());
    _out << "</svg>\n";
}

std::vector<SVGWriter::Bar> SVGWriter::speeds() const
{
    std::vector<Bar> bars;
    for (std::size_t row = 0; row < rows().size(); ++row)
    {
        const auto throughput = _results.octetsPerCost(row, _scope);
        if (!throughput)
            continue;
        const double megabytes = throughput->value / 1e6;
        bars.push_back({rows()[row].name, colourOf(rows()[row]), megabytes, figure(megabytes)});
    }
    return bars;
}

std::vector<SVGWriter::Bar> SVGWriter::sizes() const
{
    std::vector<Bar> bars;
    addSizes("", &FormSizes::plain, bars);
    addSizes(", gzip", &FormSizes::gzip, bars);
    addSizes(", zstd", &FormSizes::zstd, bars);
    return bars;
}

void SVGWriter::addSizes(const std::string& suffix, std::size_t FormSizes::*compression, std::vector<Bar>& bars) const
{
    for (std::size_t form = 0; form < formNames().size(); ++form)
    {
        const auto size = _results.relativeSize(form, compression, _scope);
        if (size)
            bars.push_back({formNames()[form] + suffix, form == 0 ? GREY : BLUE, size->value, percent(size->value)});
    }
}

void SVGWriter::writeChart(const std::string& title, const std::vector<Bar>& bars)
{
    writeText(MARGIN, "font-weight=\"bold\"", title);
    double greatest = 0;
    for (const Bar& bar : bars)
        greatest = std::max(greatest, bar.value);
    for (const Bar& bar : bars)
    {
        const int length = static_cast<int>(BARS_WIDTH * bar.value / greatest);
        _out << "<rect x=\"" << NAMES_WIDTH << "\" y=\"" << _y - BAR_HEIGHT + 3 << "\" width=\"" << std::max(1, length)
             << "\" height=\"" << BAR_HEIGHT << "\" fill=\"" << bar.colour << "\"/>\n"
             << "<text x=\"" << NAMES_WIDTH + length + 6 << "\" y=\"" << _y << "\">" << bar.label << "</text>\n";
        writeText(MARGIN, "", bar.name);
    }
    _y += LINE_HEIGHT;
}

// No text holds a character that XML reserves. Moves to the next line.
void SVGWriter::writeText(int x, const std::string& attributes, const std::string& text)
{
    _out << "<text x=\"" << x << "\" y=\"" << _y << "\" " << attributes << ">" << text << "</text>\n";
    _y += LINE_HEIGHT;
}

} // namespace Vesk::Benchmarks
