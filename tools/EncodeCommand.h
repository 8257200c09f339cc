// SPDX-License-Identifier: MIT
#ifndef VESKFI_ENCODECOMMAND_H
#define VESKFI_ENCODECOMMAND_H

#include "ConversionCommand.h"

namespace Vesk::Tool
{

/// "veskfi encode": XML text to Fast Infoset.
class EncodeCommand : public ConversionCommand
{
public:
    explicit EncodeCommand(CLI::App& tool);

protected:
    void convert(std::istream& input, std::ostream& output) override;
};

} // namespace Vesk::Tool

#endif // VESKFI_ENCODECOMMAND_H
