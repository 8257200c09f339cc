// SPDX-License-Identifier: MIT
#include "DecodeCommand.h"
#include "EncodeCommand.h"
#include "FileError.h"
#include <CLI/CLI.hpp>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <vector>

using namespace Vesk::Tool;

namespace
{

const char FOOTER[] = "Exit status: 0 success, 1 malformed input or any other failure, 2 wrong usage.";

int report(ExitStatus status, std::string text)
{
    // Names and texts of documents may hold line feeds; one failure is one line.
    for (char& c : text)
    {
        if (c == '\n' || c == '\r')
            c = ' ';
    }
    std::cerr << "veskfi: " << text << std::endl;
    return static_cast<int>(status);
}

int reportUsage(const std::string& mistake)
{
    return report(ExitStatus::USAGE, mistake + " (see veskfi --help)");
}

// What CLI11 throws to end the parsing: a request for help or the version, or a mistake.
int endParsing(const CLI::App& tool, const CLI::ParseError& end)
{
    if (end.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success))
        return reportUsage(end.what());
    tool.exit(end);
    std::cout.flush();
    if (!std::cout)
        throw FileError("standard output", errno);
    return static_cast<int>(ExitStatus::SUCCESS);
}

int run(int argc, char* argv[])
{
    CLI::App tool("Converts XML documents between text and Fast Infoset (ITU-T X.891).", "veskfi");
    tool.set_version_flag("--version", "veskfi " VESKFI_VERSION, "Print the version and exit");
    tool.require_subcommand(0, 1); // none is reported below, so that a wrong name is reported as such before
    tool.footer(FOOTER);

    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<EncodeCommand>(tool));
    commands.push_back(std::make_unique<DecodeCommand>(tool));

    try
    {
        tool.parse(argc, argv);
    }
    catch (const CLI::ParseError& end)
    {
        return endParsing(tool, end);
    }
    for (const std::unique_ptr<Command>& command : commands)
    {
        if (command->isChosen())
            return static_cast<int>(command->run());
    }
    return reportUsage("no command");
}

} // namespace

int main(int argc, char* argv[])
{
    // A reader that went away and a file that may not grow are errors of the write, to be reported like any other.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    try
    {
        return run(argc, argv);
    }
    catch (const std::exception& exception)
    {
        return report(ExitStatus::FAILURE, exception.what());
    }
}
