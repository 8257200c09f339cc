// SPDX-License-Identifier: MIT
#ifndef VESKFI_TEMPORARYFILE_H
#define VESKFI_TEMPORARYFILE_H

#include <string>

namespace Vesk::Tool
{

/// A file that is written beside another one, to take its place when it is complete.
///
/// It is removed if it does not get that far, also when SIGHUP, SIGINT or SIGTERM ends the process. There is one at a
/// time.
class TemporaryFile
{
public:
    /// The target need not exist. If it is a symbolic link, what it points to will be replaced.
    explicit TemporaryFile(const std::string& target);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    /// Creates the file, with the target's access rights or, if there is no target, those of any new file. Hands over
    /// its descriptor. Throws FileError.
    int open();

    /// Puts the file in the target's place. Throws FileError.
    void moveToTarget();

private:
    const std::string _name; // the target as the user calls it, for messages
    const std::string _target;
    std::string _path;
};

} // namespace Vesk::Tool

#endif // VESKFI_TEMPORARYFILE_H
