// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_MACHINE_H
#define VESK_BENCHMARKS_MACHINE_H

#include <string>

namespace Vesk::Benchmarks
{

/// What kind of machine the program runs on and what it was compiled with, in one line.
std::string machineClass();

/// The versions of the libraries that take part.
std::string libraryVersions();

/// The current date as YYYY-MM-DD.
std::string today();

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_MACHINE_H
