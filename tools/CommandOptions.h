// SPDX-License-Identifier: MIT
#ifndef VESKFI_COMMANDOPTIONS_H
#define VESKFI_COMMANDOPTIONS_H

#include <string>

namespace Vesk::Tool
{

/// Where a command declares its options and arguments.
///
/// A value is borrowed until the command runs. What it holds before is the default; it is filled when the command line
/// has been read.
class CommandOptions
{
public:
    /// An argument without a dash. It may be left out.
    virtual void addArgument(const std::string& name, std::string& value, const std::string& description) = 0;

    /// An option with a value. names: "-o,--output".
    virtual void addOption(const std::string& names, std::string& value, const std::string& description) = 0;

protected:
    ~CommandOptions() = default;
};

} // namespace Vesk::Tool

#endif // VESKFI_COMMANDOPTIONS_H
