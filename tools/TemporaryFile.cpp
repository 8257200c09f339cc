// SPDX-License-Identifier: MIT
#include "TemporaryFile.h"
#include "Failure.h"
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace Vesk::Tool
{

namespace
{

const int ENDING_SIGNALS[] = {SIGHUP, SIGINT, SIGTERM};

// What a signal handler has to remove; null if nothing.
std::atomic<const char*> pathToRemove{nullptr};
static_assert(std::atomic<const char*>::is_always_lock_free, "a signal handler reads it");

extern "C" void removeAndEnd(int signal)
{
    if (const char* path = pathToRemove)
        ::unlink(path);
    // The handler is installed for one call: this time the signal does what it does by default.
    std::raise(signal);
}

// Signals that the process was told to ignore, as nohup does, stay ignored.
void handleEndingSignals()
{
    for (const int signal : ENDING_SIGNALS)
    {
        struct sigaction action = {};
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler != SIG_DFL)
            continue;
        action.sa_handler = removeAndEnd;
        action.sa_flags = SA_RESETHAND;
        ::sigaction(signal, &action, nullptr);
    }
}

// Holds the ending signals back, so that none comes between creating a file and telling the handler.
class SignalBlock
{
public:
    SignalBlock()
    {
        sigset_t signals;
        ::sigemptyset(&signals);
        for (const int signal : ENDING_SIGNALS)
            ::sigaddset(&signals, signal);
        ::sigprocmask(SIG_BLOCK, &signals, &_previous);
    }
    SignalBlock(const SignalBlock&) = delete;
    SignalBlock& operator=(const SignalBlock&) = delete;
    ~SignalBlock() { ::sigprocmask(SIG_SETMASK, &_previous, nullptr); }

private:
    sigset_t _previous;
};

std::string withoutLinks(const std::string& path)
{
    char resolved[PATH_MAX];
    return ::realpath(path.c_str(), resolved) ? resolved : path;
}

std::string folderOf(const std::string& path)
{
    const std::string::size_type slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

mode_t accessRights(const std::string& target)
{
    struct stat status = {};
    if (::stat(target.c_str(), &status) == 0)
        return status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return (S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH) & ~mask;
}

} // namespace

TemporaryFile::TemporaryFile(const std::string& target)
    : _name(target),
      _target(withoutLinks(target))
{
}

TemporaryFile::~TemporaryFile()
{
    if (pathToRemove)
        ::unlink(_path.c_str());
    pathToRemove = nullptr;
}

int TemporaryFile::open()
{
    const std::string folder = folderOf(_target);
    const mode_t rights = accessRights(_target);
    _path = folder + "/.veskfi-XXXXXX";

    handleEndingSignals();
    const SignalBlock block;
    const int descriptor = ::mkstemp(_path.data());
    if (descriptor < 0)
        throw FileError(_name,
                        "cannot create a temporary file in " + folder + ": " + std::generic_category().message(errno));
    pathToRemove = _path.c_str();
    // A file system without access rights refuses; then there are none to keep.
    static_cast<void>(::fchmod(descriptor, rights));
    return descriptor;
}

void TemporaryFile::moveToTarget()
{
    if (std::rename(_path.c_str(), _target.c_str()) != 0)
        throw FileError(_name, errno);
    pathToRemove = nullptr;
}

} // namespace Vesk::Tool
