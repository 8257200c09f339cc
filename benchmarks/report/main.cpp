// SPDX-License-Identifier: MIT
#include "Corpus.h"
#include "InstructionCounter.h"
#include "MarkdownWriter.h"
#include "Runner.h"
#include "SVGWriter.h"
#include "Stopwatch.h"
#include "TypedArray.h"
#include "Vesk/Exception.h"
#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <libxml/parser.h>
#include <memory>
#include <string>
#include <vector>

using namespace Vesk::Benchmarks;

namespace
{

struct Options
{
    std::vector<std::string> paths;
    std::string outputFolder;
    std::string filter;
    std::string callgrindFile;
    int repeats = 41;
    double sampleMilliseconds = 2;
};

std::unique_ptr<Meter> meterOf(const Options& options)
{
    if (options.callgrindFile.empty())
        return std::make_unique<Stopwatch>(options.repeats, options.sampleMilliseconds / 1000);
    return std::make_unique<InstructionCounter>(options.callgrindFile);
}

Results measure(const Options& options, Unit unit)
{
    const std::unique_ptr<Meter> meter = meterOf(options);
    Runner runner(*meter, unit, options.filter);
    for (const Item& item : loadCorpus(options.paths))
    {
        std::cerr << item.name << '\n';
        runner.run(item);
    }
    if (options.filter.empty())
    {
        for (const TypedArray& array : typedArrays())
        {
            std::cerr << array.name << '\n';
            runner.run(array);
        }
    }
    return runner.results();
}

void checkWritten(std::ostream& file, const std::filesystem::path& path)
{
    file.flush();
    if (!file)
        throw Vesk::IOException("Cannot write", path.string());
}

void write(const Results& results, const std::filesystem::path& folder)
{
    const std::filesystem::path page = folder / (results.unit == Unit::SECONDS ? "benchmarks.md" : "instructions.md");
    const std::filesystem::path picture = folder / "benchmarks.svg";
    std::ofstream markdown(page);
    if (results.unit == Unit::SECONDS)
    {
        std::ofstream svg(picture);
        SVGWriter(svg, results, results.itemCount(Goal::DOCUMENTS) > 0 ? Goal::DOCUMENTS : Goal::FOLDERS).write();
        checkWritten(svg, picture);
        MarkdownWriter(markdown, results, picture.filename().string()).write();
    }
    else
    {
        MarkdownWriter(markdown, results, "").write();
    }
    checkWritten(markdown, page);
}

void run(const Options& options)
{
    const Unit unit = options.callgrindFile.empty() ? Unit::SECONDS : Unit::INSTRUCTIONS;
    const Results results = measure(options, unit);
    if (options.outputFolder.empty())
        MarkdownWriter(std::cout, results, "").write();
    else
        write(results, options.outputFolder);
}

} // namespace

int main(int argc, char* argv[])
{
    Options options;
    CLI::App program("Measures readers, writers and converters of XML and Fast Infoset side by side.", "vesk_report");
    program.add_option("PATH", options.paths, "Documents and folders; a folder of small documents counts as one")
        ->required();
    program.add_option("-o,--output", options.outputFolder, "Folder for the report; standard output if not given");
    program.add_option("--rows", options.filter, "Only rows whose names contain this");
    program.add_option("--repeats", options.repeats, "How often each row is timed")->check(CLI::PositiveNumber);
    program.add_option("--sample", options.sampleMilliseconds, "Milliseconds of a timing")->check(CLI::PositiveNumber);
    program.add_option("--callgrind", options.callgrindFile,
                       "Count instructions instead; the --callgrind-out-file of the callgrind that runs this");
    program.get_formatter()->column_width(30);
    CLI11_PARSE(program, argc, argv);
    try
    {
        xmlInitParser();
        run(options);
    }
    catch (const std::exception& exception)
    {
        std::cerr << "vesk_report: " << exception.what() << '\n';
        return 1;
    }
}
