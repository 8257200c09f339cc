// SPDX-License-Identifier: MIT
#include "Vesk/NumberFormatter.h"
#include <charconv>

namespace Vesk
{

namespace
{

template <class Integer>
void appendInteger(std::string& text, Integer value)
{
    char digits[20]; // the 20 digits of 2^64 - 1, or 19 and a sign
    text.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

} // namespace

void NumberFormatter::append(std::string& text, int value)
{
    appendInteger(text, value);
}

void NumberFormatter::append(std::string& text, unsigned value)
{
    appendInteger(text, value);
}

void NumberFormatter::append(std::string& text, long value)
{
    appendInteger(text, value);
}

void NumberFormatter::append(std::string& text, unsigned long value)
{
    appendInteger(text, value);
}

void NumberFormatter::append(std::string& text, float value)
{
    appendFloat(text, value, -6, 6);
}

void NumberFormatter::append(std::string& text, double value)
{
    appendDouble(text, value, -15, 15);
}

void NumberFormatter::append(std::string& text, bool value)
{
    text += value ? "true" : "false";
}

} // namespace Vesk
