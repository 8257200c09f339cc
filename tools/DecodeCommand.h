// SPDX-License-Identifier: MIT
#ifndef VESKFI_DECODECOMMAND_H
#define VESKFI_DECODECOMMAND_H

#include "ConversionCommand.h"
#include "Vocabularies.h"

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
    DocumentKind inputKind() const override { return DocumentKind::FAST_INFOSET; }
    void declareOwnOptions(CommandOptions& options) override;
    void prepare() override;
    void convert(InputFile& input, std::ostream& output) override;

private:
    Vocabularies _vocabularies;
    bool _isPretty = false;
    bool _leavesOutDeclaration = false;
};

} // namespace Vesk::Tool

#endif // VESKFI_DECODECOMMAND_H
