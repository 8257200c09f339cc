// SPDX-License-Identifier: MIT
#ifndef VESKFI_INSPECTCOMMAND_H
#define VESKFI_INSPECTCOMMAND_H

#include "Command.h"
#include "Vocabularies.h"
#include <string>
#include <vector>

namespace Vesk::Tool
{

/// "veskfi inspect": shows a document octet by octet.
class InspectCommand : public Command
{
public:
    const char* name() const override { return "inspect"; }
    const char* description() const override { return "Show a document octet by octet"; }
    const char* examples() const override;
    void declareOptions(CommandOptions& options) override;
    ExitStatus run() override;

private:
    std::string _file = "-";
    bool _isFull = false;
    bool _asJSON = false;
    Vocabularies _vocabularies;
};

} // namespace Vesk::Tool

#endif // VESKFI_INSPECTCOMMAND_H
