// SPDX-License-Identifier: MIT
#include "Progress.h"
#include "Messages.h"
#include "OctetCount.h"
#include "Terminal.h"
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace Vesk::Tool
{

namespace
{

constexpr std::chrono::milliseconds UNTIL_FIRST_LINE(500);
constexpr std::chrono::milliseconds BETWEEN_LINES(200);

std::string duration(double seconds)
{
    constexpr long MINUTE = 60;
    const long whole = std::lround(std::ceil(seconds));
    if (whole < MINUTE)
        return std::to_string(whole) + " s";
    return std::to_string(whole / MINUTE) + " min " + std::to_string(whole % MINUTE) + " s";
}

// 0 if one of them is not a file that tells.
std::uint64_t totalOctets(const std::vector<std::string>& files)
{
    std::uint64_t octetCount = 0;
    for (const std::string& file : files)
    {
        std::error_code error;
        const std::uintmax_t size = std::filesystem::file_size(file, error);
        if (error)
            return 0;
        octetCount += size;
    }
    return octetCount;
}

} // namespace

Progress::Progress(Messages& messages, const std::vector<std::string>& files)
    : _messages(messages),
      _fileCount(files.size()),
      _octetCount(totalOctets(files))
{
    if (messages.isQuiet() || !Terminal(STDERR_FILENO).isTerminal())
        return;
    try
    {
        _thread = std::thread(&Progress::run, this);
    }
    catch (const std::system_error&)
    {
        // The work is what matters.
    }
}

Progress::~Progress()
{
    if (!_thread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        _isEnded = true;
    }
    _ended.notify_one();
    _thread.join();
    _messages.showProgress("");
}

void Progress::run()
{
    std::unique_lock<std::mutex> lock(_mutex);
    const auto isEnded = [this]
    {
        return _isEnded;
    };
    for (auto pause = UNTIL_FIRST_LINE; !_ended.wait_for(lock, pause, isEnded); pause = BETWEEN_LINES)
        _messages.showProgress(line());
}

// "3 of 12 files, 45.2 of 120.0 MB, 38.1 MB/s, 2 s left", cut to the width of the terminal.
std::string Progress::line() const
{
    const std::uint64_t octets = _octets;
    const double seconds = std::chrono::duration<double>(Clock::now() - _start).count();
    const double octetsPerSecond = static_cast<double>(octets) / seconds;
    std::string text;
    if (_fileCount > 1)
        text += std::to_string(_files) + " of " + std::to_string(_fileCount) + " files, ";
    text += octetText(octets);
    if (_octetCount > 0)
        text += " of " + octetText(_octetCount);
    text += ", " + octetText(static_cast<std::uint64_t>(octetsPerSecond)) + "/s";
    if (_octetCount > octets && octets > 0)
        text += ", " + duration(static_cast<double>(_octetCount - octets) / octetsPerSecond) + " left";
    return text.substr(0, static_cast<std::size_t>(std::max(Terminal(STDERR_FILENO).width() - 1, 1)));
}

} // namespace Vesk::Tool
