// SPDX-License-Identifier: MIT
#include "Command.h"
#include <CLI/CLI.hpp>

namespace Vesk::Tool
{

Command::Command(CLI::App& tool, const std::string& name, const std::string& description)
    : _options(*tool.add_subcommand(name, description))
{
}

bool Command::isChosen() const
{
    return _options.parsed();
}

} // namespace Vesk::Tool
