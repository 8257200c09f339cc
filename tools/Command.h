// SPDX-License-Identifier: MIT
#ifndef VESKFI_COMMAND_H
#define VESKFI_COMMAND_H

#include "ExitStatus.h"
#include <string>

namespace CLI
{
class App;
}

namespace Vesk::Tool
{

/// One command of the tool, "veskfi NAME ...". A derived class adds its options and arguments in its constructor.
class Command
{
public:
    Command(CLI::App& tool, const std::string& name, const std::string& description);
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    virtual ~Command() = default;

    /// Whether the command line names this command.
    bool isChosen() const;

    /// Does what the command line asks for. What goes wrong is thrown; its what() is the line for the user.
    virtual ExitStatus run() = 0;

protected:
    /// Where the options and arguments belong; lives as long as the tool's own.
    CLI::App& options() { return _options; }

private:
    CLI::App& _options;
};

} // namespace Vesk::Tool

#endif // VESKFI_COMMAND_H
