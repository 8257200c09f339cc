// SPDX-License-Identifier: MIT
#include "ConversionCommand.h"
#include "CommandOptions.h"
#include "Failure.h"
#include "InputFile.h"
#include "Jobs.h"
#include "OctetCount.h"
#include "OutputFile.h"
#include "OutputFolders.h"
#include "Progress.h"
#include "Terminal.h"
#include <algorithm>
#include <cerrno>
#include <exception>
#include <thread>
#include <unistd.h>

namespace Vesk::Tool
{

namespace
{

const char STANDARD_STREAM[] = "-";
const char XML_EXTENSION[] = ".xml";
const char FAST_INFOSET_EXTENSION[] = ".finf";

int coreCount()
{
    return std::max(static_cast<int>(std::thread::hardware_concurrency()), 1);
}

} // namespace

ConversionCommand::ConversionCommand()
    : _jobs(coreCount())
{
}

void ConversionCommand::declareOptions(CommandOptions& options)
{
    options.addArguments("FILE", _files, "the files to convert, each to its sibling; none or - is standard input");
    options.addOption("-o,--output", "FILE", _output, "write to FILE; - is standard output");
    options.addFlag("-c,--stdout", _toStandardOutput, "write to standard output");
    options.addFlag("-r,--recursive", _recursive, "convert the documents in folders, too");
    options.addOption("--output-dir", "DIR", _outputFolder, "write below DIR, in folders like those of the input");
    options.addFlag("-f,--force", _mayReplace, "overwrite files; write Fast Infoset to a terminal");
    options.addFlag("--keep-going", _keepGoing, "go on with the other files after a failure");
    options.addOption("-j,--jobs", "N", _jobs, "convert N files at a time");
    declareOwnOptions(options);
    _messages.declareOptions(options);
}

ExitStatus ConversionCommand::run(const std::string& file, bool mayReplace)
{
    _files = {file};
    _mayReplace = mayReplace;
    return run();
}

ExitStatus ConversionCommand::run()
{
    if (_files.empty())
        _files.emplace_back(STANDARD_STREAM);
    checkUsage();
    prepare();

    ConversionPlan::Settings settings = {inputKind(), XML_EXTENSION, FAST_INFOSET_EXTENSION, _outputFolder, _recursive};
    if (settings.inputKind == DocumentKind::FAST_INFOSET)
        std::swap(settings.inputExtension, settings.outputExtension);
    ConversionPlan plan(settings, _messages);
    makePlan(plan);

    const std::vector<Conversion>& conversions = plan.conversions();
    std::vector<std::string> inputs;
    for (const Conversion& conversion : conversions)
        inputs.push_back(conversion.input);
    std::size_t started = 0;
    if (_failures == 0 || _keepGoing)
    {
        Progress progress(_messages, inputs);
        OutputFolders folders;
        const auto job = [&](std::size_t index)
        {
            return attempt(conversions[index], progress, folders) || _keepGoing;
        };
        started = runJobs(conversions.size(), static_cast<std::size_t>(std::max(_jobs, 1)), job);
    }
    if (_isPipeBroken)
        throw BrokenPipe("standard output", EPIPE);
    if (_failures > 0 && started < conversions.size())
    {
        _messages.failure("stopped after a failure; files not converted: " +
                          std::to_string(conversions.size() - started) + " (--keep-going goes on)");
    }
    return _worst;
}

void ConversionCommand::checkUsage() const
{
    const bool isSingle = _files.size() == 1 && !_recursive;
    if (_output.empty() + !_toStandardOutput + _outputFolder.empty() < 2)
        throw UsageError("-o, -c and --output-dir exclude each other", name());
    if (!isSingle && (!_output.empty() || _toStandardOutput))
        throw UsageError("several documents cannot go to one output", name());
    if (!isSingle && std::count(_files.begin(), _files.end(), STANDARD_STREAM) > 0)
        throw UsageError("standard input cannot be one of several files", name());
    if (_recursive && _files.front() == STANDARD_STREAM)
        throw UsageError("-r takes folders", name());
    if (!_outputFolder.empty() && _files.front() == STANDARD_STREAM)
        throw UsageError("--output-dir takes files, not standard input", name());
    if (isToStandardOutput() && inputKind() == DocumentKind::XML && !_mayReplace &&
        Terminal(STDOUT_FILENO).isTerminal())
        throw UsageError("standard output is a terminal, which cannot show Fast Infoset: use -o FILE, or -f", name());
}

bool ConversionCommand::isToStandardOutput() const
{
    return _toStandardOutput || _output == STANDARD_STREAM || (_output.empty() && _files.front() == STANDARD_STREAM);
}

// Failures to look into folders count like those of the files in them.
void ConversionCommand::makePlan(ConversionPlan& plan)
{
    if (isToStandardOutput() || !_output.empty())
    {
        plan.add(_files.front(), isToStandardOutput() ? STANDARD_STREAM : _output);
        return;
    }
    for (const std::string& file : _files)
        plan.add(file);
    for (const FileError& failure : plan.failures())
    {
        recordFailure(failure, failure.what());
        if (!_keepGoing)
            return;
    }
}

bool ConversionCommand::attempt(const Conversion& conversion, Progress& progress, OutputFolders& folders)
{
    try
    {
        convert(conversion, progress, folders);
        progress.fileDone();
        return true;
    }
    catch (const BrokenPipe&)
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        _isPipeBroken = true;
    }
    catch (const std::exception& exception)
    {
        recordFailure(exception, conversion.input);
    }
    return false;
}

void ConversionCommand::recordFailure(const std::exception& exception, const std::string& file)
{
    const Failure failure = Failure::of(file, exception);
    _messages.failure(failure.what());
    const std::lock_guard<std::mutex> lock(_mutex);
    _worst = std::max(_worst, failure.status());
    ++_failures;
}

// What is of the other form would only be malformed. A pipe is not waited for.
void ConversionCommand::checkKind(InputFile& input) const
{
    if (!input.isRegularFile())
        return;
    const DocumentKind kind = kindOf(input.start());
    if (kind == DocumentKind::XML && inputKind() == DocumentKind::FAST_INFOSET)
        throw Failure(ExitStatus::MALFORMED, input.name() + ": is XML text already");
    if (kind == DocumentKind::FAST_INFOSET && inputKind() == DocumentKind::XML)
        throw Failure(ExitStatus::MALFORMED, input.name() + ": is Fast Infoset already");
}

void ConversionCommand::convert(const Conversion& conversion, Progress& progress, OutputFolders& folders)
{
    InputFile input(conversion.input);
    input.countIn(progress.octets());
    checkKind(input);
    if (!_outputFolder.empty())
        folders.makeFor(conversion.output);
    OutputFile output(conversion.output, _mayReplace, input.rightsOr(OutputFile::USUAL_RIGHTS));
    try
    {
        convert(input, output);
    }
    catch (const Failure&)
    {
        throw;
    }
    catch (const std::exception& exception)
    {
        throw Failure::of(input.name(), exception);
    }
    output.commit();
    _messages.note(input.name() + " -> " + output.name() + ": " + std::to_string(input.octetCount()) + " -> " +
                   std::to_string(output.octetCount()) + " octets, " +
                   percentText(output.octetCount(), input.octetCount()));
}

} // namespace Vesk::Tool
