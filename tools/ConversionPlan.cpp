// SPDX-License-Identifier: MIT
#include "ConversionPlan.h"
#include "InputFile.h"
#include "Messages.h"
#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace Vesk::Tool
{

namespace
{

// In the order of their names, so that every run does the same.
std::vector<fs::directory_entry> entriesOf(const std::string& folder)
{
    std::error_code error;
    std::vector<fs::directory_entry> entries;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error))
        entries.push_back(*entry);
    if (error)
        throw FileError(folder, error.value());
    std::sort(entries.begin(), entries.end());
    return entries;
}

bool endsIn(const std::string& name, const std::string& extension)
{
    return name.size() > extension.size() &&
           std::equal(extension.rbegin(), extension.rend(), name.rbegin(),
                      [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b - 'A' + 'a' : b); });
}

} // namespace

ConversionPlan::ConversionPlan(Settings settings, Messages& messages)
    : _settings(std::move(settings)),
      _messages(messages)
{
}

void ConversionPlan::add(const std::string& path)
{
    std::error_code error;
    if (!fs::is_directory(path, error))
        addFile(path, _settings.outputFolder);
    else if (_settings.recursive)
        addFolder(path, _settings.outputFolder);
    else
        _failures.emplace_back(path, "is a folder (-r converts the documents in it)");
}

// Links to folders are not followed, as they may lead in circles.
void ConversionPlan::addFolder(const std::string& folder, const std::string& outputFolder)
{
    std::vector<fs::directory_entry> entries;
    try
    {
        entries = entriesOf(folder);
    }
    catch (const FileError& error)
    {
        _failures.push_back(error);
    }
    for (const fs::directory_entry& entry : entries)
    {
        const std::string path = entry.path().string();
        std::error_code error;
        if (entry.is_directory(error) && !entry.is_symlink(error))
        {
            const std::string name = entry.path().filename().string();
            addFolder(path, outputFolder.empty() ? "" : (fs::path(outputFolder) / name).string());
        }
        else if (entry.is_regular_file(error))
            addFound(path, outputFolder);
        else
            _messages.note(path + ": left out, not a regular file");
    }
}

void ConversionPlan::addFound(const std::string& path, const std::string& outputFolder)
{
    DocumentKind kind = _settings.inputKind;
    try
    {
        kind = kindOf(InputFile(path).start());
    }
    catch (const FileError&)
    {
        // Fails once more when it is converted, with its message.
    }
    if (kind == _settings.inputKind)
        addFile(path, outputFolder);
    else
        _messages.note(path + ": left out, not " + (_settings.inputKind == DocumentKind::XML ? "XML" : "Fast Infoset"));
}

void ConversionPlan::addFile(const std::string& input, const std::string& outputFolder)
{
    const fs::path path(input);
    const fs::path folder = outputFolder.empty() ? path.parent_path() : fs::path(outputFolder);
    const std::string output = (folder / outputName(path.filename().string())).string();

    add(input, output);
}

void ConversionPlan::add(const std::string& input, const std::string& output)
{
    const auto [found, isNew] = _inputs.emplace(fs::path(output).lexically_normal().string(), input);
    if (!isNew)
        throw UsageError(found->second + " and " + input + " would both become " + output);
    _conversions.push_back({input, output});
}

std::string ConversionPlan::outputName(const std::string& name) const
{
    if (!endsIn(name, _settings.inputExtension))
        return name + _settings.outputExtension;
    return name.substr(0, name.size() - _settings.inputExtension.size()) + _settings.outputExtension;
}

} // namespace Vesk::Tool
