// SPDX-License-Identifier: MIT
#ifndef VESKFI_JOBS_H
#define VESKFI_JOBS_H

#include <cstddef>
#include <functional>

namespace Vesk::Tool
{

/// Calls job(0) to job(jobCount - 1), in this order, on so many threads at a time; on the caller's if it is one. No
/// further job starts once one has returned false. The job must not throw. Returns how many were started.
std::size_t runJobs(std::size_t jobCount, std::size_t threadCount, const std::function<bool(std::size_t)>& job);

} // namespace Vesk::Tool

#endif // VESKFI_JOBS_H
