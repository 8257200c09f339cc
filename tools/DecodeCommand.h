// SPDX-License-Identifier: MIT
#ifndef VESKFI_DECODECOMMAND_H
#define VESKFI_DECODECOMMAND_H

#include "ConversionCommand.h"

namespace Vesk::Tool
{

/// "veskfi decode": Fast Infoset to XML text.
class DecodeCommand : public ConversionCommand
{
public:
    explicit DecodeCommand(CLI::App& tool);

protected:
    void convert(std::istream& input, std::ostream& output) override;
};

} // namespace Vesk::Tool

#endif // VESKFI_DECODECOMMAND_H
