// SPDX-License-Identifier: MIT
#include "Vesk/NumberParser.h"
#include <algorithm>
#include <charconv>
#include <limits>
#include <string>
#include <system_error>

namespace Vesk
{

namespace
{

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool hasSeparators(std::string_view text, char separator)
{
    return separator != 0 && text.find(separator) != std::string_view::npos;
}

// The text without the separators that may be skipped; any other is left where it stands and so makes the number bad.
std::string withoutSeparators(std::string_view text, char separator, std::size_t wholeEnd)
{
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const bool skipped = separator != 0 && text[i] == separator && i > 0 && i + 1 < wholeEnd &&
                             isDigit(text[i - 1]) && isDigit(text[i + 1]);
        if (!skipped)
            plain += text[i];
    }
    return plain;
}

template <class Number>
bool parseWhole(std::string_view text, Number& value)
{
    Number result{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, result);
    if (error != std::errc() || stop != end)
        return false;
    value = result;
    return true;
}

template <class Integer>
bool parseInteger(std::string_view text, Integer& value, char separator)
{
    if (!hasSeparators(text, separator))
        return parseWhole(text, value);
    return parseWhole(withoutSeparators(text, separator, text.size()), value);
}

// The numbers that XML Schema spells with letters.
bool parseSpecial(std::string_view text, double& value)
{
    using Limits = std::numeric_limits<double>;
    if (text == "NaN")
        value = Limits::quiet_NaN();
    else if (text == "INF")
        value = Limits::infinity();
    else if (text == "-INF")
        value = -Limits::infinity();
    else
        return false;
    return true;
}

bool parseReal(std::string_view text, double& value)
{
    // std::from_chars also takes "inf" and "nan" in several spellings.
    const std::size_t first = text.substr(0, 1) == "-" ? 1 : 0;
    if (first == text.size() || !(isDigit(text[first]) || text[first] == '.'))
        return false;
    return parseWhole(text, value);
}

} // namespace

bool NumberParser::tryParse(std::string_view text, int& value, char thousandsSeparator)
{
    return parseInteger(text, value, thousandsSeparator);
}

bool NumberParser::tryParse64(std::string_view text, long& value, char thousandsSeparator)
{
    return parseInteger(text, value, thousandsSeparator);
}

bool NumberParser::tryParseFloat(std::string_view text, double& value, char decimalPoint, char thousandsSeparator)
{
    if (parseSpecial(text, value))
        return true;
    if (decimalPoint == '.' && !hasSeparators(text, thousandsSeparator))
        return parseReal(text, value);

    const char wholeEnders[] = {decimalPoint, 'e', 'E'};
    const std::size_t wholeEnd = std::min(text.find_first_of(std::string_view(wholeEnders, 3)), text.size());
    std::string plain = withoutSeparators(text, thousandsSeparator, wholeEnd);
    if (decimalPoint != '.')
    {
        if (plain.find('.') != std::string::npos)
            return false;
        std::replace(plain.begin(), plain.end(), decimalPoint, '.');
    }
    return parseReal(plain, value);
}

} // namespace Vesk
