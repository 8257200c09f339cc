// SPDX-License-Identifier: MIT
#ifndef VESKFI_EXITSTATUS_H
#define VESKFI_EXITSTATUS_H

namespace Vesk::Tool
{

/// What the process tells its caller.
enum class ExitStatus
{
    SUCCESS = 0,
    FAILURE = 1, ///< malformed input, a file that cannot be read or written
    USAGE = 2    ///< a command line that makes no sense
};

} // namespace Vesk::Tool

#endif // VESKFI_EXITSTATUS_H
