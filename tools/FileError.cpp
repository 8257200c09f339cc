// SPDX-License-Identifier: MIT
#include "FileError.h"
#include <system_error>

namespace Vesk::Tool
{

FileError::FileError(const std::string& file, const std::string& reason)
    : std::runtime_error(file + ": " + reason)
{
}

FileError::FileError(const std::string& file, int errorNumber)
    : FileError(file, std::generic_category().message(errorNumber))
{
}

} // namespace Vesk::Tool
