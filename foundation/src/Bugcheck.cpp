// SPDX-License-Identifier: MIT
#include "Vesk/Bugcheck.h"
#include <cstdio>

namespace Vesk
{

namespace
{

std::string withPlace(const char* what, const char* file, int line)
{
    return std::string(what) + " [in " + file + ", line " + std::to_string(line) + "]";
}

} // namespace

void Bugcheck::assertion(const char* condition, const char* file, int line)
{
    throw AssertionViolationException(withPlace(condition, file, line));
}

void Bugcheck::nullPointer(const char* name, const char* file, int line)
{
    throw NullPointerException(withPlace(name, file, line));
}

void Bugcheck::unexpected(const std::exception& exception, const char* file, int line) noexcept
{
    std::fprintf(stderr, "Unexpected exception: %s [in %s, line %d]\n", exception.what(), file, line);
}

} // namespace Vesk
