// SPDX-License-Identifier: MIT
#ifndef VESKFI_READINGCOMMAND_H
#define VESKFI_READINGCOMMAND_H

#include "Command.h"
#include "Messages.h"
#include "Vocabularies.h"
#include <string>
#include <vector>

namespace Vesk::Tool
{

class InputFile;
class Progress;

/// A command that reads documents, one after the other, and prints something about each: "veskfi NAME [FILE...]".
///
/// A document that cannot be read is reported, and the next one is read.
class ReadingCommand : public Command
{
public:
    void declareOptions(CommandOptions& options) override;
    ExitStatus run() override;

protected:
    /// The options of this command alone.
    virtual void declareOwnOptions(CommandOptions&) {}

    /// Reads one document and puts what is to be printed into text. Returns what it comes to; what it throws is reported
    /// as a failure.
    virtual ExitStatus examine(InputFile& input, std::string& text) = 0;

    /// What is to be printed behind all documents.
    virtual std::string conclusion() const { return std::string(); }

    Messages& messages() { return _messages; }

private:
    ExitStatus examine(const std::string& file, Progress& progress);
    void print(const std::string& text);

    std::vector<std::string> _files;
    Vocabularies _vocabularies;
    Messages _messages;
};

} // namespace Vesk::Tool

#endif // VESKFI_READINGCOMMAND_H
