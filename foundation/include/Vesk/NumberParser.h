// SPDX-License-Identifier: MIT
#ifndef VESK_NUMBERPARSER_H
#define VESK_NUMBERPARSER_H

#include "Vesk/Foundation.h"
#include <string_view>

namespace Vesk
{

/// Text as numbers, independent of any locale.
///
/// The whole text has to be one number: an optional "-", then digits, without a "+" or white space. Thousands
/// separators are skipped where they stand between two digits of the whole part, however many digits are between them;
/// a separator of 0 turns them off. A number that the type cannot hold is none.
///
/// Each function returns false for anything else and leaves value as it was.
class VESK_FOUNDATION_API NumberParser
{
public:
    NumberParser() = delete;

    /// An integer of the type of value.
    static bool tryParse(std::string_view text, int& value, char thousandsSeparator = ',');
    static bool tryParse64(std::string_view text, long& value, char thousandsSeparator = ',');

    /// Takes a fraction and an exponent ("-1.5e-7", "1E+20") as well, and "NaN", "INF" and "-INF". The result is the
    /// double next to the number that the text writes; a number too large for a double, or so small that it would become
    /// zero, is refused.
    static bool tryParseFloat(std::string_view text, double& value, char decimalPoint = '.',
                              char thousandsSeparator = ',');
};

} // namespace Vesk

#endif // VESK_NUMBERPARSER_H
