// SPDX-License-Identifier: MIT
#include "OctetCount.h"
#include <array>
#include <cstdio>

namespace Vesk::Tool
{

namespace
{

std::string oneDecimal(double value, const char* unit)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.1f %s", value, unit);
    return text.data();
}

} // namespace

std::string octetText(std::uint64_t octetCount)
{
    static constexpr std::array<const char*, 4> UNITS = {"kB", "MB", "GB", "TB"};
    constexpr unsigned STEP = 1000;
    constexpr double ROUNDS_UP = 999.95;
    if (octetCount < STEP)
        return std::to_string(octetCount) + " B";
    double value = static_cast<double>(octetCount) / STEP;
    std::size_t unit = 0;
    for (; value >= ROUNDS_UP && unit + 1 < UNITS.size(); ++unit)
        value /= STEP;
    return oneDecimal(value, UNITS[unit]);
}

std::string percentText(std::uint64_t part, std::uint64_t whole)
{
    return whole == 0 ? "-" : oneDecimal(100.0 * static_cast<double>(part) / static_cast<double>(whole), "%");
}

} // namespace Vesk::Tool
