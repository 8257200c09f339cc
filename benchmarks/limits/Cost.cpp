// SPDX-License-Identifier: MIT
#include "Cost.h"
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

/// A figure of the process in octets: "VmRSS:" (resident memory) or "VmHWM:" (its peak).
double memoryFigure(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    double kibibytes = 0;
    while (status >> word)
    {
        if (word == name && status >> kibibytes)
            return kibibytes * 1024;
    }
    throw std::runtime_error("no figure " + name);
}

Cost costOf(const std::function<void()>& action)
{
    std::ofstream("/proc/self/clear_refs") << 5; // the peak starts anew
    const double before = memoryFigure("VmRSS:");
    const auto start = std::chrono::steady_clock::now();
    action();
    Cost cost;
    cost.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    cost.memoryOctets = std::max(0.0, memoryFigure("VmHWM:") - before);
    return cost;
}

} // namespace

Cost measured(const std::function<void()>& action)
{
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0)
    {
        const Cost cost = costOf(action);
        const bool isWritten = write(ends[1], &cost, sizeof cost) == static_cast<ssize_t>(sizeof cost);
        std::_Exit(isWritten ? 0 : 1);
    }
    close(ends[1]);
    Cost cost;
    const bool isRead = read(ends[0], &cost, sizeof cost) == static_cast<ssize_t>(sizeof cost);
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (!isRead || status != 0)
        throw std::runtime_error("a measured process has failed");
    return cost;
}
