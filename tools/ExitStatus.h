// SPDX-License-Identifier: MIT
#ifndef VESKFI_EXITSTATUS_H
#define VESKFI_EXITSTATUS_H

namespace Vesk::Tool
{

/// What the process tells its caller. With several files it is the worst one, that is, the greatest.
enum class ExitStatus
{
    SUCCESS = 0,
    MALFORMED = 1, ///< a document is malformed, or says what the other form cannot
    USAGE = 2,     ///< a command line that makes no sense
    STREAM = 3,    ///< a file or stream cannot be read or written
    MISSING = 4,   ///< a document needs an external vocabulary or an encoding algorithm that is not there
    INTERNAL = 70  ///< not enough memory, or a mistake in the tool
};

} // namespace Vesk::Tool

#endif // VESKFI_EXITSTATUS_H
