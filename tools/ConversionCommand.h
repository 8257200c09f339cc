// SPDX-License-Identifier: MIT
#ifndef VESKFI_CONVERSIONCOMMAND_H
#define VESKFI_CONVERSIONCOMMAND_H

#include "Command.h"
#include "ConversionPlan.h"
#include "Messages.h"
#include <cstddef>
#include <exception>
#include <mutex>
#include <ostream>
#include <string>
#include <vector>

namespace Vesk::Tool
{

class InputFile;
class OutputFolders;
class Progress;

/// A command that turns documents of one form into the other: "veskfi NAME [FILE...]". Derived classes say which, and
/// convert a single one.
class ConversionCommand : public Command
{
public:
    ConversionCommand();

    void declareOptions(CommandOptions& options) override;
    ExitStatus run() override;

    /// Converts this file, with no other option than whether the output may be replaced.
    ExitStatus run(const std::string& file, bool mayReplace);

protected:
    virtual DocumentKind inputKind() const = 0;
    /// The options of this command alone.
    virtual void declareOwnOptions(CommandOptions& options) = 0;
    /// Called once before the first conversion.
    virtual void prepare() {}
    /// Called from several threads at a time.
    virtual void convert(InputFile& input, std::ostream& output) = 0;

    Messages& messages() { return _messages; }

private:
    using Conversion = ConversionPlan::Conversion;

    void checkUsage() const;
    bool isToStandardOutput() const;
    void makePlan(ConversionPlan& plan);
    void checkKind(InputFile& input) const;
    bool attempt(const Conversion& conversion, Progress& progress, OutputFolders& folders);
    void convert(const Conversion& conversion, Progress& progress, OutputFolders& folders);
    void recordFailure(const std::exception& exception, const std::string& file);

    std::vector<std::string> _files;
    std::string _output;
    std::string _outputFolder;
    bool _toStandardOutput = false;
    bool _recursive = false;
    bool _mayReplace = false;
    bool _keepGoing = false;
    int _jobs;
    Messages _messages;

    std::mutex _mutex; // of what follows, while conversions run
    ExitStatus _worst = ExitStatus::SUCCESS;
    std::size_t _failures = 0;
    bool _isPipeBroken = false;
};

} // namespace Vesk::Tool

#endif // VESKFI_CONVERSIONCOMMAND_H
