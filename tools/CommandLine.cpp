// SPDX-License-Identifier: MIT
#include "CommandLine.h"
#include "CommandOptions.h"
#include "FileError.h"
#include <CLI/CLI.hpp>
#include <cerrno>
#include <iostream>

// The only source that includes CLI11, whose templates take longer to compile than the rest of the tool.

namespace Vesk::Tool
{

namespace
{

const char DESCRIPTION[] = "Converts XML documents between text and Fast Infoset (ITU-T X.891).";
const char FOOTER[] = "Exit status: 0 success, 1 malformed input or any other failure, 2 wrong usage.";

class OptionsOfCommand final : public CommandOptions
{
public:
    explicit OptionsOfCommand(CLI::App& command)
        : _command(command)
    {
    }

    void addArgument(const std::string& name, std::string& value, const std::string& description) override
    {
        add(name, value, description);
    }

    void addOption(const std::string& names, std::string& value, const std::string& description) override
    {
        add(names, value, description);
    }

private:
    // CLI11 tells them apart by their dashes.
    void add(const std::string& name, std::string& value, const std::string& description)
    {
        _command.add_option(name, value, description)->capture_default_str();
    }

    CLI::App& _command;
};

// What CLI11 throws to end the parsing is a request for help or the version, or a mistake.
void endParsing(const CLI::App& tool, const CLI::ParseError& end)
{
    if (end.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success))
        throw UsageError(end.what());
    tool.exit(end); // prints
    std::cout.flush();
    if (!std::cout)
        throw FileError("standard output", errno);
}

} // namespace

Command* readCommandLine(const std::vector<Command*>& commands, int argc, const char* const argv[])
{
    CLI::App tool(DESCRIPTION, "veskfi");
    tool.set_version_flag("--version", "veskfi " VESKFI_VERSION, "Print the version and exit");
    tool.require_subcommand(0, 1); // that there is none is found below, so that a wrong name is reported as such
    tool.footer(FOOTER);
    for (Command* command : commands)
    {
        OptionsOfCommand options(*tool.add_subcommand(command->name(), command->description()));
        command->declareOptions(options);
    }

    try
    {
        tool.parse(argc, argv);
    }
    catch (const CLI::ParseError& end)
    {
        endParsing(tool, end);
        return nullptr;
    }
    for (Command* command : commands)
    {
        if (tool.got_subcommand(command->name()))
            return command;
    }
    throw UsageError("no command");
}

} // namespace Vesk::Tool
