// SPDX-License-Identifier: MIT
#include "UnfinishedFiles.h"
#include <csignal>
#include <cstdlib>
#include <mutex>
#include <set>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace Vesk::Tool
{

namespace
{

struct Registry
{
    std::mutex mutex;
    std::set<std::string> paths;
};

// Never destroyed: a signal may come while the process ends.
Registry& registry()
{
    static Registry* const instance = new Registry;
    return *instance;
}

sigset_t endingSignals()
{
    sigset_t signals;
    ::sigemptyset(&signals);
    for (const int signal : {SIGHUP, SIGINT, SIGTERM})
    {
        struct sigaction action = {};
        if (::sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN)
            ::sigaddset(&signals, signal);
    }
    return signals;
}

void waitForSignal(const sigset_t signals)
{
    int signal = 0;
    if (::sigwait(&signals, &signal) != 0)
        return;
    registry().mutex.lock(); // for good: no further file is created
    for (const std::string& path : registry().paths)
        ::unlink(path.c_str());
    // What the signal does by default tells the parent process what has happened.
    std::signal(signal, SIG_DFL);
    ::pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
    std::raise(signal);
}

} // namespace

void UnfinishedFiles::removeOnSignals()
{
    const sigset_t signals = endingSignals();
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    try
    {
        std::thread(waitForSignal, signals).detach();
    }
    catch (const std::system_error&)
    {
        // Without threads the signals end the process at once.
        ::pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
    }
}

int UnfinishedFiles::create(std::string& path)
{
    const std::lock_guard<std::mutex> lock(registry().mutex);
    const int descriptor = ::mkstemp(path.data());
    if (descriptor >= 0)
        registry().paths.insert(path);
    return descriptor;
}

void UnfinishedFiles::forget(const std::string& path)
{
    const std::lock_guard<std::mutex> lock(registry().mutex);
    registry().paths.erase(path);
}

} // namespace Vesk::Tool
