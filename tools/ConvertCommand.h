// SPDX-License-Identifier: MIT
#ifndef VESKFI_CONVERTCOMMAND_H
#define VESKFI_CONVERTCOMMAND_H

#include "Command.h"
#include <string>

namespace Vesk::Tool
{

class ConversionCommand;

/// "veskfi FILE": looks at the first octets and converts the other way.
class ConvertCommand : public Command
{
public:
    /// Both are borrowed.
    ConvertCommand(ConversionCommand& encode, ConversionCommand& decode);

    const char* name() const override { return ""; }
    const char* description() const override { return ""; }
    const char* examples() const override;
    void declareOptions(CommandOptions& options) override;
    ExitStatus run() override;

private:
    ConversionCommand& _encode;
    ConversionCommand& _decode;
    std::string _file;
    bool _mayReplace = false;
};

} // namespace Vesk::Tool

#endif // VESKFI_CONVERTCOMMAND_H
