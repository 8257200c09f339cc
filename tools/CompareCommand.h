// SPDX-License-Identifier: MIT
#ifndef VESKFI_COMPARECOMMAND_H
#define VESKFI_COMPARECOMMAND_H

#include "Comparison.h"
#include "ReadingCommand.h"
#include <cstddef>

namespace Vesk::Tool
{

/// "veskfi compare": sizes and times of documents as XML text and as Fast Infoset.
class CompareCommand : public ReadingCommand
{
public:
    const char* name() const override { return "compare"; }
    const char* description() const override { return "Compare sizes and times with those of XML text"; }
    const char* examples() const override;

protected:
    ExitStatus examine(InputFile& input, std::string& text) override;
    std::string conclusion() const override;

private:
    Comparison _total;
    std::size_t _documentCount = 0;
};

} // namespace Vesk::Tool

#endif // VESKFI_COMPARECOMMAND_H
