// SPDX-License-Identifier: MIT
#ifndef VESKFI_MESSAGES_H
#define VESKFI_MESSAGES_H

#include <mutex>
#include <string>

namespace Vesk::Tool
{

class CommandOptions;

/// Tells the user on standard error, one line a message, what went wrong and how far the work is. All operations but
/// declareOptions may be called from any thread.
class Messages
{
public:
    /// -q and -v.
    void declareOptions(CommandOptions& options);

    bool isQuiet() const { return _isQuiet; }

    /// Always said.
    void failure(const std::string& text);
    /// Said unless -q is given.
    void warning(const std::string& text);
    /// Said with -v only.
    void note(const std::string& text);

    /// Replaces the line that tells how far the work is, which stands below the messages; the empty one takes it away.
    /// To be called only if standard error is a terminal.
    void showProgress(const std::string& line);

private:
    void write(const std::string& text);

    bool _isQuiet = false;
    bool _isVerbose = false;
    std::mutex _mutex;
    bool _hasProgress = false;
};

} // namespace Vesk::Tool

#endif // VESKFI_MESSAGES_H
