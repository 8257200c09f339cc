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
    const char* name() const override { return "encode"; }
    const char* description() const override { return "Convert XML text to Fast Infoset"; }
    const char* examples() const override;

protected:
    void convert(std::istream& input, std::ostream& output) override;
};

} // namespace Vesk::Tool

#endif // VESKFI_ENCODECOMMAND_H
