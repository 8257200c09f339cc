// SPDX-License-Identifier: MIT
#include "ReadingCommand.h"
#include "CommandOptions.h"
#include "Failure.h"
#include "InputFile.h"
#include "Messages.h"
#include <algorithm>
#include <cerrno>
#include <iostream>

namespace Vesk::Tool
{

namespace
{

void print(const std::string& text)
{
    std::cout << text << std::flush;
    if (!std::cout)
        throwWriteError("standard output", errno);
}

} // namespace

void ReadingCommand::declareOptions(CommandOptions& options)
{
    options.addArguments("FILE", _files, "the documents; none or - is standard input");
    declareOwnOptions(options);
    _vocabularies.declareOption(options);
}

ExitStatus ReadingCommand::run()
{
    _vocabularies.install();
    if (_files.empty())
        _files.emplace_back("-");
    ExitStatus worst = ExitStatus::SUCCESS;
    for (const std::string& file : _files)
        worst = std::max(worst, examine(file));
    return worst;
}

ExitStatus ReadingCommand::examine(const std::string& file)
{
    std::string text;
    ExitStatus status = ExitStatus::SUCCESS;
    try
    {
        InputFile input(file);
        status = examine(input, text);
    }
    catch (const std::exception& exception)
    {
        const Failure failure = Failure::of(file, exception);
        Messages().failure(failure.what());
        return failure.status();
    }
    print(text);
    return status;
}

} // namespace Vesk::Tool
