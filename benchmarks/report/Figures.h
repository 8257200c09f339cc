// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_FIGURES_H
#define VESK_BENCHMARKS_FIGURES_H

#include <string>

namespace Vesk::Benchmarks
{

/// Three digits or, for large values, all in front of the point.
std::string figure(double value);

/// The value times 100 with one digit behind the point and a percent sign.
std::string percent(double value);

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_FIGURES_H
