// SPDX-License-Identifier: MIT
#ifndef VESKFI_CONVERSIONCOMMAND_H
#define VESKFI_CONVERSIONCOMMAND_H

#include "Command.h"
#include <istream>
#include <ostream>
#include <string>

namespace Vesk::Tool
{

/// A command that turns one file into another: "veskfi NAME [IN] [-o OUT]".
class ConversionCommand : public Command
{
public:
    void declareOptions(CommandOptions& options) override;
    ExitStatus run() override;

    /// Converts this file with no other options.
    ExitStatus run(const std::string& file);

protected:
    virtual void convert(std::istream& input, std::ostream& output) = 0;

private:
    std::string _input = "-";
    std::string _output = "-";
};

} // namespace Vesk::Tool

#endif // VESKFI_CONVERSIONCOMMAND_H
