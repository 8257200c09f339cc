// SPDX-License-Identifier: MIT
#ifndef VESKFI_TEMPORARYFILE_H
#define VESKFI_TEMPORARYFILE_H

#include <string>
#include <sys/types.h>

namespace Vesk::Tool
{

/// A file that is written beside another one, to take its place when it is complete.
///
/// It is removed if it does not get that far, also when a signal ends the process (see UnfinishedFiles).
class TemporaryFile
{
public:
    /// The target need not exist. If it is a symbolic link, what it points to will be replaced.
    explicit TemporaryFile(const std::string& target);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    /// Creates the file with these access rights. Hands over its descriptor. Throws FileError.
    int open(mode_t rights);

    /// Puts the file in the target's place; if there is a target by now, only if it may be replaced. Throws FileError.
    void moveToTarget(bool mayReplace);

private:
    bool moveWithoutReplacing() const;

    const std::string _name; // the target as the user calls it, for messages
    const std::string _target;
    std::string _path; // empty when there is no file
};

} // namespace Vesk::Tool

#endif // VESKFI_TEMPORARYFILE_H
