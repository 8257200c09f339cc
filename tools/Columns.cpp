// SPDX-License-Identifier: MIT
#include "Columns.h"
#include <algorithm>

namespace Vesk::Tool
{

std::string padded(std::string text, std::size_t columns)
{
    text.resize(std::max(columns, text.size()), ' ');
    return text;
}

std::string rightAligned(const std::string& text, std::size_t columns)
{
    return std::string(columns > text.size() ? columns - text.size() : 0, ' ') + text;
}

std::string grouped(long number)
{
    std::string digits = std::to_string(number);
    const std::size_t first = number < 0 ? 1 : 0;
    for (std::size_t place = digits.size(); place > first + 3;)
    {
        place -= 3;
        digits.insert(place, ",");
    }
    return digits;
}

} // namespace Vesk::Tool
