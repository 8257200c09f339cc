// SPDX-License-Identifier: MIT
#include "Figures.h"
#include <cstdio>

namespace Vesk::Benchmarks
{

namespace
{

std::string fixed(double value, int decimals)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

} // namespace

std::string figure(double value)
{
    // What rounds to the next digit in front of the point counts as such: 9.996 is 10.0.
    if (value < 9.995)
        return fixed(value, 2);
    return fixed(value, value < 99.95 ? 1 : 0);
}

std::string percent(double value)
{
    return fixed(100 * value, 1) + " %";
}

} // namespace Vesk::Benchmarks
