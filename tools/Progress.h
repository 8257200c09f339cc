// SPDX-License-Identifier: MIT
#ifndef VESKFI_PROGRESS_H
#define VESKFI_PROGRESS_H

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace Vesk::Tool
{

class Messages;

/// Tells how far the work is, once it takes longer than half a second, if standard error is a terminal and the user has
/// not asked for quiet. Ends with the object.
class Progress
{
public:
    /// files: what is to be read.
    Progress(Messages& messages, const std::vector<std::string>& files);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    /// Where the octets that have been read are counted.
    std::atomic<std::uint64_t>& octets() { return _octets; }

    void fileDone() { ++_files; }

private:
    using Clock = std::chrono::steady_clock;

    void run();
    std::string line() const;

    Messages& _messages;
    const std::size_t _fileCount;
    const std::uint64_t _octetCount; // 0 if unknown
    const Clock::time_point _start = Clock::now();
    std::atomic<std::size_t> _files{0};
    std::atomic<std::uint64_t> _octets{0};
    std::mutex _mutex;
    std::condition_variable _ended;
    bool _isEnded = false;
    std::thread _thread;
};

} // namespace Vesk::Tool

#endif // VESKFI_PROGRESS_H
