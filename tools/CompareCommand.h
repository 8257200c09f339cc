// SPDX-License-Identifier: MIT
#ifndef VESKFI_COMPARECOMMAND_H
#define VESKFI_COMPARECOMMAND_H

#include "Command.h"
#include "Comparison.h"
#include "Messages.h"
#include "Vocabularies.h"
#include <cstddef>
#include <string>
#include <vector>

namespace Vesk::Tool
{

class InputFile;

/// "veskfi compare": sizes and times of documents as XML text and as Fast Infoset.
class CompareCommand : public Command
{
public:
    const char* name() const override { return "compare"; }
    const char* description() const override { return "Compare sizes and times with those of XML text"; }
    const char* examples() const override;
    void declareOptions(CommandOptions& options) override;
    ExitStatus run() override;

private:
    void compare(InputFile& input);
    void print(const std::string& text);

    std::vector<std::string> _files;
    Vocabularies _vocabularies;
    Messages _messages;
    Comparison _total;
    std::size_t _documentCount = 0;
};

} // namespace Vesk::Tool

#endif // VESKFI_COMPARECOMMAND_H
