// SPDX-License-Identifier: MIT
#ifndef VESKFI_COMMAND_H
#define VESKFI_COMMAND_H

#include "ExitStatus.h"

namespace Vesk::Tool
{

class CommandOptions;

/// One command of the tool, "veskfi NAME ...".
class Command
{
public:
    virtual ~Command() = default;

    virtual const char* name() const = 0;
    /// One line for the list of commands.
    virtual const char* description() const = 0;
    /// Lines for the end of the command's own help: one example each, with what it does.
    virtual const char* examples() const = 0;

    /// Declares what stands behind the name on the command line.
    virtual void declareOptions(CommandOptions& options) = 0;

    /// Does what the command line asks for. What ends it is thrown: a Failure, or anything else for a mistake in the
    /// tool.
    virtual ExitStatus run() = 0;
};

} // namespace Vesk::Tool

#endif // VESKFI_COMMAND_H
