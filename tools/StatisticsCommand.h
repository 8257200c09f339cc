// SPDX-License-Identifier: MIT
#ifndef VESKFI_STATISTICSCOMMAND_H
#define VESKFI_STATISTICSCOMMAND_H

#include "ReadingCommand.h"

namespace Vesk::Tool
{

/// "veskfi stats": tells where the octets of documents go.
class StatisticsCommand : public ReadingCommand
{
public:
    const char* name() const override { return "stats"; }
    const char* description() const override { return "Tell where the octets of documents go"; }
    const char* examples() const override;

protected:
    void declareOwnOptions(CommandOptions& options) override;
    ExitStatus examine(InputFile& input, std::string& text) override;

private:
    bool _asJSON = false;
    bool _isFirst = true;
};

} // namespace Vesk::Tool

#endif // VESKFI_STATISTICSCOMMAND_H
