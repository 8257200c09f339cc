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
    const char* name() const override { return "decode"; }
    const char* description() const override { return "Convert Fast Infoset to XML text"; }
    const char* examples() const override;

protected:
    void convert(std::istream& input, std::ostream& output) override;
};

} // namespace Vesk::Tool

#endif // VESKFI_DECODECOMMAND_H
