// SPDX-License-Identifier: MIT
#ifndef VESKFI_STATISTICSJSON_H
#define VESKFI_STATISTICSJSON_H

#include "DocumentStatistics.h"
#include <string>

namespace Vesk::Tool
{

/// Statistics for programs: one JSON object in one line, without the line feed. Counts of octets are left to the reader:
/// everything is in bits.
std::string statisticsJSON(const std::string& file, const DocumentStatistics& statistics);

} // namespace Vesk::Tool

#endif // VESKFI_STATISTICSJSON_H
