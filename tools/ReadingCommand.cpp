// SPDX-License-Identifier: MIT
#include "ReadingCommand.h"
#include "CommandOptions.h"
#include "Failure.h"
#include "InputFile.h"
#include "Progress.h"
#include <algorithm>
#include <cerrno>
#include <iostream>

namespace Vesk::Tool
{

void ReadingCommand::declareOptions(CommandOptions& options)
{
    options.addArguments("FILE", _files, "the documents; none or - is standard input");
    declareOwnOptions(options);
    _vocabularies.declareOption(options);
    _messages.declareOptions(options);
}

ExitStatus ReadingCommand::run()
{
    _vocabularies.install();
    if (_files.empty())
        _files.emplace_back("-");
    ExitStatus worst = ExitStatus::SUCCESS;
    Progress progress(_messages, _files);
    for (const std::string& file : _files)
    {
        worst = std::max(worst, examine(file, progress));
        progress.fileDone();
    }
    print(conclusion());
    return worst;
}

ExitStatus ReadingCommand::examine(const std::string& file, Progress& progress)
{
    std::string text;
    ExitStatus status = ExitStatus::SUCCESS;
    try
    {
        InputFile input(file);
        input.countIn(progress.octets());
        _messages.note("reading " + input.name());
        status = examine(input, text);
    }
    catch (const std::exception& exception)
    {
        const Failure failure = Failure::of(file, exception);
        _messages.failure(failure.what());
        return failure.status();
    }
    print(text);
    return status;
}

void ReadingCommand::print(const std::string& text)
{
    if (text.empty())
        return;
    _messages.showProgress(""); // may stand in the same terminal
    std::cout << text << std::flush;
    if (!std::cout)
        throwWriteError("standard output", errno);
}

} // namespace Vesk::Tool
