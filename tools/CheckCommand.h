// SPDX-License-Identifier: MIT
#ifndef VESKFI_CHECKCOMMAND_H
#define VESKFI_CHECKCOMMAND_H

#include "ReadingCommand.h"

namespace Vesk::Tool
{

/// "veskfi check": tells what is wrong with documents, and says nothing of those that are right.
///
/// A document is right if it can be read and what it holds can be said in XML text.
class CheckCommand : public ReadingCommand
{
public:
    const char* name() const override { return "check"; }
    const char* description() const override { return "Tell whether documents are well-formed"; }
    const char* examples() const override;

protected:
    ExitStatus examine(InputFile& input, std::string& text) override;
};

} // namespace Vesk::Tool

#endif // VESKFI_CHECKCOMMAND_H
