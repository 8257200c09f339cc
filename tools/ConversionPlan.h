// SPDX-License-Identifier: MIT
#ifndef VESKFI_CONVERSIONPLAN_H
#define VESKFI_CONVERSIONPLAN_H

#include "DocumentKind.h"
#include "Failure.h"
#include <map>
#include <string>
#include <vector>

namespace Vesk::Tool
{

class Messages;

/// Which file becomes which: finds the documents in folders and names what is made of them.
class ConversionPlan
{
public:
    struct Conversion
    {
        std::string input;
        std::string output;
    };

    struct Settings
    {
        DocumentKind inputKind;      ///< what is looked for in folders
        std::string inputExtension;  ///< ".xml": replaced by the other one, which is put behind any other name
        std::string outputExtension; ///< ".finf"
        std::string outputFolder;    ///< empty: each output beside its input
        bool recursive;              ///< folders are gone through
    };

    /// What is left out of folders is told to the messages, which are borrowed.
    ConversionPlan(Settings settings, Messages& messages);

    /// Adds a file, or all documents in a folder and those below it. Throws UsageError if two inputs would become the
    /// same output.
    void add(const std::string& path);

    /// Adds a single conversion.
    void add(const std::string& input, const std::string& output);

    const std::vector<Conversion>& conversions() const { return _conversions; }

    /// The folders that cannot be read or must not be gone through.
    const std::vector<FileError>& failures() const { return _failures; }

private:
    void addFolder(const std::string& folder, const std::string& outputFolder);
    void addFound(const std::string& path, const std::string& outputFolder);
    void addFile(const std::string& input, const std::string& outputFolder);
    std::string outputName(const std::string& name) const;

    const Settings _settings;
    Messages& _messages;
    std::vector<Conversion> _conversions;
    std::vector<FileError> _failures;
    std::map<std::string, std::string> _inputs; // by output
};

} // namespace Vesk::Tool

#endif // VESKFI_CONVERSIONPLAN_H
