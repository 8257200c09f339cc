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
    DocumentKind inputKind() const override { return DocumentKind::XML; }
    void declareOwnOptions(CommandOptions& options) override;
    void convert(InputFile& input, std::ostream& output) override;

private:
    // Longer strings seldom repeat, and the table of each reader would have to hold them.
    int _maxIndexedOctets = 16;
    bool _stripsSpace = false;
    bool _writesDeclaration = false;
    bool _isTyped = false;
    bool _isLossy = false;
};

} // namespace Vesk::Tool

#endif // VESKFI_ENCODECOMMAND_H
