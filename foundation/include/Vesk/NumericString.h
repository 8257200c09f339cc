// SPDX-License-Identifier: MIT
#ifndef VESK_NUMERICSTRING_H
#define VESK_NUMERICSTRING_H

#include "Vesk/Foundation.h"
#include <string>

namespace Vesk
{

/// The digits of an integer in a base from 2 to 16, letters in upper case, without prefix or separators. A text shorter
/// than width characters, sign included, is filled with zeros after the sign.
VESK_FOUNDATION_API std::string intToStr(long value, int base = 10, int width = 0);
VESK_FOUNDATION_API std::string uIntToStr(unsigned long value, int base = 10, int width = 0);

/// The shortest decimal digits that read back to the same value, independent of any locale.
///
/// With e the decimal exponent of the first digit, the notation is plain when lowDec <= e < highDec ("0.00025", "2500")
/// and d.ddde[-]NN otherwise ("2.5e-7", "1e20"): no "+", no leading zeros, no point in a whole number. Zero is "0" or
/// "-0"; what is no number is "NaN", "INF" and "-INF", as XML Schema spells them.
VESK_FOUNDATION_API std::string floatToStr(float value, int lowDec, int highDec);
VESK_FOUNDATION_API std::string doubleToStr(double value, int lowDec, int highDec);

/// The same texts, appended.
VESK_FOUNDATION_API void appendFloat(std::string& text, float value, int lowDec, int highDec);
VESK_FOUNDATION_API void appendDouble(std::string& text, double value, int lowDec, int highDec);

} // namespace Vesk

#endif // VESK_NUMERICSTRING_H
