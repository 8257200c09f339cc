// SPDX-License-Identifier: MIT
#ifndef VESKFI_UNFINISHEDFILES_H
#define VESKFI_UNFINISHEDFILES_H

#include <string>

namespace Vesk::Tool
{

/// The files that must not outlive the process: when SIGHUP, SIGINT or SIGTERM ends it they are removed first.
///
/// The signals are blocked and waited for in a thread of its own, so that removing needs no care for what a signal
/// handler may do, and no file can come into being between the removal and the end.
class UnfinishedFiles
{
public:
    UnfinishedFiles() = delete;

    /// To be called once, before any other thread starts. Signals that the process was told to ignore, as nohup does,
    /// stay ignored.
    static void removeOnSignals();

    /// Creates a file as mkstemp does, replacing the last six characters of the path. Returns its descriptor, or -1 and
    /// errno.
    static int create(std::string& path);

    /// The file is finished, or removed.
    static void forget(const std::string& path);
};

} // namespace Vesk::Tool

#endif // VESKFI_UNFINISHEDFILES_H
