// SPDX-License-Identifier: MIT
#include "CommandLine.h"
#include "CommandOptions.h"
#include "Failure.h"
#include <CLI/CLI.hpp>
#include <cerrno>
#include <iostream>
#include <limits>
#include <utility>

// The only source that includes CLI11, whose templates take longer to compile than the rest of the tool.

namespace Vesk::Tool
{

namespace
{

const char DESCRIPTION[] = "Converts XML documents between text and Fast Infoset (ITU-T X.891), and looks inside.\n"
                           "With a FILE and no command, converts it the other way.";
const char EXIT_STATUS[] = "Exit status: 0 success, 1 malformed input, 2 wrong usage, 3 a file or stream failed,\n"
                           "4 an external vocabulary or encoding algorithm is missing, 70 internal error.\n"
                           "With several files it is the worst one.";

class OptionsOfCommand final : public CommandOptions
{
public:
    explicit OptionsOfCommand(CLI::App& command)
        : _command(command)
    {
    }

    void addArgument(const std::string& name, std::string& value, const std::string& description) override
    {
        _command.add_option(name, value, description)->option_text(" ");
    }

    void addArguments(const std::string& name, std::vector<std::string>& values,
                      const std::string& description) override
    {
        _command.add_option(name, values, description)->option_text("...");
    }

    void addFlag(const std::string& names, bool& value, const std::string& description) override
    {
        _command.add_flag(names, value, description);
    }

    void addOption(const std::string& names, const std::string& valueName, std::string& value,
                   const std::string& description) override
    {
        _command.add_option(names, value, withDefault(description, value))->option_text(valueName);
    }

    void addOption(const std::string& names, const std::string& valueName, int& value,
                   const std::string& description) override
    {
        _command.add_option(names, value, withDefault(description, value == 0 ? "" : std::to_string(value)))
            ->check(CLI::Range(0, std::numeric_limits<int>::max())) // the named check's message has 300 digits
            ->option_text(valueName);
    }

    void addOption(const std::string& names, const std::string& valueName, std::vector<std::string>& values,
                   const std::string& description) override
    {
        // Otherwise the option would take the arguments behind its value, too.
        _command.add_option(names, values, description)->allow_extra_args(false)->take_all()->option_text(valueName);
    }

private:
    static std::string withDefault(const std::string& description, const std::string& value)
    {
        return value.empty() ? description : description + " (default " + value + ")";
    }

    CLI::App& _command;
};

// What CLI11 throws to end the parsing is a request for help or the version, or a mistake.
void endParsing(const CLI::App& tool, const CLI::ParseError& end)
{
    if (end.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success))
    {
        const std::vector<CLI::App*> commands = tool.get_subcommands();
        throw UsageError(end.what(), commands.empty() ? "" : commands.front()->get_name());
    }
    tool.exit(end); // prints
    std::cout.flush();
    if (!std::cout)
        throwWriteError("standard output", errno);
}

void declare(Command& command, CLI::App& app)
{
    OptionsOfCommand options(app);
    command.declareOptions(options);
    app.footer(std::string(command.examples()) + "\n" + EXIT_STATUS);
}

// CLI11 would take "[a]" for a list.
std::string asSingle(const std::string& argument)
{
    const bool looksLikeList = argument.size() > 1 && argument.front() == '[' && argument.back() == ']';
    return looksLikeList ? "./" + argument : argument;
}

} // namespace

Command* readCommandLine(const std::vector<Command*>& commands, Command& plain, int argc, const char* const argv[])
{
    CLI::App tool(DESCRIPTION, "veskfi");
    tool.get_formatter()->column_width(34);
    tool.get_formatter()->label("SUBCOMMAND", "COMMAND");
    tool.get_formatter()->label("Subcommands", "Commands");
    tool.set_version_flag("--version", "veskfi " VESKFI_VERSION, "Print the version and exit");
    tool.require_subcommand(0, 1); // that there is none is found below
    declare(plain, tool);
    for (Command* command : commands)
        declare(*command, *tool.add_subcommand(command->name(), command->description())->group("Commands"));

    try
    {
        std::vector<std::string> arguments;
        for (int i = argc - 1; i > 0; --i) // in the order that CLI11 wants
            arguments.push_back(asSingle(argv[i]));
        tool.parse(std::move(arguments));
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
    if (argc < 2)
        throw UsageError("no command");
    return &plain;
}

} // namespace Vesk::Tool
