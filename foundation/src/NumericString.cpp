// SPDX-License-Identifier: MIT
#include "Vesk/NumericString.h"
#include "Vesk/Bugcheck.h"
#include <charconv>
#include <cmath>
#include <string_view>

namespace Vesk
{

namespace
{

template <class Integer>
std::string integerText(Integer value, int base, int width)
{
    if (base < 2 || base > 16)
        Bugcheck::assertion("base >= 2 && base <= 16", "src/NumericString", 22);
    char digits[1 + 64] = {}; // a sign and 64 binary digits
    const auto end = std::to_chars(digits, digits + sizeof digits, value, base).ptr;
    for (char* digit = digits; digit != end; ++digit)
    {
        if (*digit >= 'a')
            *digit = static_cast<char>(*digit - 'a' + 'A');
    }
    std::string text(digits, end);
    if (width > 0 && text.size() < static_cast<std::size_t>(width))
        text.insert(value < 0 ? 1 : 0, static_cast<std::size_t>(width) - text.size(), '0');
    return text;
}

// digits stand for d.ddd times 10 to the power of exponent.
void appendPlain(std::string& text, std::string_view digits, int exponent)
{
    if (exponent < 0)
    {
        text += "0.";
        text.append(static_cast<std::size_t>(-exponent - 1), '0');
        text += digits;
        return;
    }
    const std::size_t wholeDigits = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= wholeDigits)
    {
        text += digits;
        text.append(wholeDigits - digits.size(), '0');
        return;
    }
    text += digits.substr(0, wholeDigits);
    text += '.';
    text += digits.substr(wholeDigits);
}

void appendScientific(std::string& text, std::string_view digits, int exponent)
{
    text += digits.front();
    if (digits.size() > 1)
    {
        text += '.';
        text += digits.substr(1);
    }
    char exponentText[8];
    const auto end = std::to_chars(exponentText, exponentText + sizeof exponentText, exponent).ptr;
    text += 'e';
    text.append(exponentText, end);
}

template <class Real>
void appendReal(std::string& text, Real value, int lowDec, int highDec)
{
    if (std::isnan(value))
    {
        text += "NaN";
        return;
    }
    if (std::signbit(value))
    {
        text += '-';
        value = -value;
    }
    if (std::isinf(value))
    {
        text += "INF";
        return;
    }
    if (value == 0)
    {
        text += '0';
        return;
    }
    // "d.ddde-NNN": at most 17 digits, the point and the exponent.
    char shortest[32];
    const char* end = std::to_chars(shortest, shortest + sizeof shortest, value, std::chars_format::scientific).ptr;
    const std::size_t markPosition = std::string_view(shortest, static_cast<std::size_t>(end - shortest)).find('e');
    const char* exponentText = shortest + markPosition + 1;
    int exponent = 0;
    std::from_chars(*exponentText == '+' ? exponentText + 1 : exponentText, end, exponent);

    // Moves the first digit over the point, so that the digits stand side by side.
    std::string_view digits(shortest, 1);
    if (markPosition > 1)
    {
        shortest[1] = shortest[0];
        digits = std::string_view(shortest + 1, markPosition - 1);
    }
    if (lowDec <= exponent && exponent < highDec)
        appendPlain(text, digits, exponent);
    else
        appendScientific(text, digits, exponent);
}

} // namespace

std::string intToStr(long value, int base, int width)
{
    return integerText(value, base, width);
}

std::string uIntToStr(unsigned long value, int base, int width)
{
    return integerText(value, base, width);
}

std::string floatToStr(float value, int lowDec, int highDec)
{
    std::string text;
    appendReal(text, value, lowDec, highDec);
    return text;
}

std::string doubleToStr(double value, int lowDec, int highDec)
{
    std::string text;
    appendReal(text, value, lowDec, highDec);
    return text;
}

void appendFloat(std::string& text, float value, int lowDec, int highDec)
{
    appendReal(text, value, lowDec, highDec);
}

void appendDouble(std::string& text, double value, int lowDec, int highDec)
{
    appendReal(text, value, lowDec, highDec);
}

} // namespace Vesk
