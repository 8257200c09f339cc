// SPDX-License-Identifier: MIT
#ifndef VESKFI_COMMANDLINE_H
#define VESKFI_COMMANDLINE_H

#include "Command.h"
#include <vector>

namespace Vesk::Tool
{

/// Reads the command line. Returns the command that it names, with its values filled in; the plain one if it has
/// arguments but names no command; or null if it asked for help or the version, which has been printed then. Throws
/// UsageError, and FileError if standard output cannot be written.
Command* readCommandLine(const std::vector<Command*>& commands, Command& plain, int argc, const char* const argv[]);

} // namespace Vesk::Tool

#endif // VESKFI_COMMANDLINE_H
