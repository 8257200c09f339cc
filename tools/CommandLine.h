// SPDX-License-Identifier: MIT
#ifndef VESKFI_COMMANDLINE_H
#define VESKFI_COMMANDLINE_H

#include "Command.h"
#include <stdexcept>
#include <vector>

namespace Vesk::Tool
{

/// A command line that makes no sense. what() says why.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Reads the command line. Returns the command that it names, with its values filled in; or null if it asked for help or
/// the version, which has been printed then. Throws UsageError, and FileError if standard output cannot be written.
Command* readCommandLine(const std::vector<Command*>& commands, int argc, const char* const argv[]);

} // namespace Vesk::Tool

#endif // VESKFI_COMMANDLINE_H
