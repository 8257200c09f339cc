// SPDX-License-Identifier: MIT
#ifndef VESKFI_OUTPUTFOLDERS_H
#define VESKFI_OUTPUTFOLDERS_H

#include <mutex>
#include <string>
#include <vector>

namespace Vesk::Tool
{

/// Makes the folders that outputs go to, and takes those away again that turn out not to hold any.
class OutputFolders
{
public:
    OutputFolders() = default;
    OutputFolders(const OutputFolders&) = delete;
    OutputFolders& operator=(const OutputFolders&) = delete;
    /// Removes the folders of its making that are empty.
    ~OutputFolders();

    /// Makes the folder in which the file is to be, and those around it. From any thread. Throws FileError.
    void makeFor(const std::string& file);

private:
    std::mutex _mutex;
    std::vector<std::string> _made; // outer ones first
};

} // namespace Vesk::Tool

#endif // VESKFI_OUTPUTFOLDERS_H
