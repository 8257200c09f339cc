// SPDX-License-Identifier: MIT
#ifndef VESK_BUGCHECK_H
#define VESK_BUGCHECK_H

#include "Vesk/Exception.h"

namespace Vesk
{

/// Reports bugs: conditions that hold unless the program is wrong. Checks run in every build type.
///
/// file and line are a stable name of the check in logs: the source without extension ("src/DocumentVocabulary") and a
/// number that keeps its value when code moves.
///
/// The caller tests the condition, so that a check that passes costs one predictable branch:
///
///     if (index >= _entries.size())
///         Bugcheck::assertion("index < _entries.size()", "src/Table", 42);
class VESK_FOUNDATION_API Bugcheck
{
public:
    Bugcheck() = delete;

    /// Throws AssertionViolationException: condition, the text of what does not hold, [in file, line n].
    [[noreturn]] static void assertion(const char* condition, const char* file, int line);

    /// Throws NullPointerException: name, the text of the expression that is null, [in file, line n].
    [[noreturn]] static void nullPointer(const char* name, const char* file, int line);

    /// Writes an exception that must not leave its place, such as a destructor, to standard error, and returns.
    static void unexpected(const std::exception& exception, const char* file, int line) noexcept;
};

} // namespace Vesk

#endif // VESK_BUGCHECK_H
