// SPDX-License-Identifier: MIT
#ifndef VESK_FUZZ_FUZZ_H
#define VESK_FUZZ_FUZZ_H

#include "Vesk/Exception.h"
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

/// What every fuzz target defines: runs one input. The octets are those of a memory block that ends where they end.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace Fuzz
{

inline std::string octetsOf(const std::uint8_t* data, std::size_t size)
{
    return std::string(reinterpret_cast<const char*>(data), size);
}

/// Ends the process unless the condition holds, so that whoever drives the target keeps the input.
inline void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "fuzz target: %s\n", what);
    std::abort();
}

inline void requireEqual(const std::string& actual, const std::string& expected, const char* what)
{
    if (actual == expected)
        return;
    std::fprintf(stderr, "fuzz target: %s\n--- expected\n%s\n--- actual\n%s\n", what, expected.c_str(), actual.c_str());
    std::abort();
}

/// Runs something on bad input and returns the class of the exception with which it was refused, or nothing. What bad
/// input must not bring about, such as std::bad_alloc, passes through and ends the process.
template <typename Action>
std::string refusalOf(Action action)
{
    try
    {
        action();
        return std::string();
    }
    catch (const Vesk::Exception& exception)
    {
        return exception.className();
    }
    catch (const std::out_of_range&)
    {
        return "std::out_of_range";
    }
}

} // namespace Fuzz

#endif // VESK_FUZZ_FUZZ_H
