// SPDX-License-Identifier: MIT
#ifndef VESKFI_FILEERROR_H
#define VESKFI_FILEERROR_H

#include <stdexcept>
#include <string>

namespace Vesk::Tool
{

/// Something is wrong with a file: with its content, with reading or with writing it. what() is "file: reason".
class FileError : public std::runtime_error
{
public:
    FileError(const std::string& file, const std::string& reason);
    /// The reason is the system's text for the error number.
    FileError(const std::string& file, int errorNumber);
};

} // namespace Vesk::Tool

#endif // VESKFI_FILEERROR_H
