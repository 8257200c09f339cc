// SPDX-License-Identifier: MIT
#include "Jobs.h"
#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <vector>

namespace Vesk::Tool
{

std::size_t runJobs(std::size_t jobCount, std::size_t threadCount, const std::function<bool(std::size_t)>& job)
{
    std::atomic<std::size_t> next{0};
    std::atomic<bool> mayGoOn{true};
    const auto work = [&]
    {
        while (mayGoOn)
        {
            const std::size_t index = next++;
            if (index >= jobCount)
                return;
            if (!job(index))
                mayGoOn = false;
        }
    };

    std::vector<std::thread> threads;
    try
    {
        while (threads.size() + 1 < std::min(threadCount, jobCount))
            threads.emplace_back(work);
    }
    catch (const std::system_error&)
    {
        // Those that there are do it as well.
    }
    work();
    for (std::thread& thread : threads)
        thread.join();
    return std::min<std::size_t>(next, jobCount);
}

} // namespace Vesk::Tool
