// SPDX-License-Identifier: MIT
#ifndef VESK_NUMBERFORMATTER_H
#define VESK_NUMBERFORMATTER_H

#include "Vesk/NumericString.h"

namespace Vesk
{

/// Numbers as text, independent of any locale: decimal integers, the shortest text that reads back to the same value for
/// float (plain notation for exponents from -6 to 5) and double (from -15 to 14; see doubleToStr()), "true" and "false".
///
/// append() adds to the end of the text and allocates nothing else.
class VESK_FOUNDATION_API NumberFormatter
{
public:
    NumberFormatter() = delete;

    /// The text of a number, by itself.
    template <class Number>
    static std::string format(Number value)
    {
        std::string text;
        append(text, value);
        return text;
    }

    /// Adds the text of the number to the end.
    static void append(std::string& text, int value);
    static void append(std::string& text, unsigned value);
    static void append(std::string& text, long value);
    static void append(std::string& text, unsigned long value);
    static void append(std::string& text, float value);
    static void append(std::string& text, double value);
    static void append(std::string& text, bool value);
};

} // namespace Vesk

#endif // VESK_NUMBERFORMATTER_H
