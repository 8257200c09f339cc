// SPDX-License-Identifier: MIT
#ifndef VESKFI_COMMANDOPTIONS_H
#define VESKFI_COMMANDOPTIONS_H

#include <string>
#include <vector>

namespace Vesk::Tool
{

/// Where a command declares its options and arguments.
///
/// A value is borrowed until the command runs. What it holds before is the default, which the help shows unless it is
/// empty or 0; it is filled when the command line has been read. names: "-o,--output"; valueName: how the help calls
/// the value, "FILE".
class CommandOptions
{
public:
    /// An argument without a dash. It may be left out.
    virtual void addArgument(const std::string& name, std::string& value, const std::string& description) = 0;
    /// Any number of arguments without a dash.
    virtual void addArguments(const std::string& name, std::vector<std::string>& values,
                              const std::string& description) = 0;

    virtual void addFlag(const std::string& names, bool& value, const std::string& description) = 0;
    virtual void addOption(const std::string& names, const std::string& valueName, std::string& value,
                           const std::string& description) = 0;
    /// A number that is not negative.
    virtual void addOption(const std::string& names, const std::string& valueName, int& value,
                           const std::string& description) = 0;
    /// An option that may be given several times.
    virtual void addOption(const std::string& names, const std::string& valueName, std::vector<std::string>& values,
                           const std::string& description) = 0;

protected:
    ~CommandOptions() = default;
};

} // namespace Vesk::Tool

#endif // VESKFI_COMMANDOPTIONS_H
