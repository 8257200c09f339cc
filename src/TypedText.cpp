// SPDX-License-Identifier: MIT
#include "TypedText.h"
#include "Vesk/FastInfoset/BoolEncoding.h"
#include "Vesk/FastInfoset/DWordEncoding.h"
#include "Vesk/FastInfoset/DoubleEncoding.h"
#include "Vesk/FastInfoset/FloatEncoding.h"
#include "Vesk/FastInfoset/HexEncoding.h"
#include "Vesk/FastInfoset/IntEncoding.h"
#include "Vesk/FastInfoset/LongEncoding.h"
#include "Vesk/FastInfoset/ShortEncoding.h"
#include "Vesk/FastInfoset/UUIDEncoding.h"
#include "Vesk/NumberFormatter.h"
#include "Vesk/NumberParser.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace Vesk::FastInfoset
{

namespace
{

// What stands before a typed value beyond what stands before a text of the same length: the algorithm.
constexpr std::size_t ALGORITHM_OCTETS = 1;
constexpr std::size_t UUID_TEXT_OCTETS = 36;
constexpr std::size_t UUID_OCTETS = 16;

enum CharacterClass : unsigned char
{
    HEXADECIMAL = 1, // as it is printed, in upper case
    BASE64 = 2,
    OTHER = 4 // in the text of some other value
};

std::array<unsigned char, 256> classifyCharacters()
{
    std::array<unsigned char, 256> classes{};
    const auto add = [&classes](std::string_view characters, unsigned char characterClass)
    {
        for (const char c : characters)
            classes[static_cast<unsigned char>(c)] |= characterClass;
    };
    add("0123456789ABCDEF", HEXADECIMAL);
    add("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/", BASE64);
    add("-. =", OTHER);
    return classes;
}

const std::array<unsigned char, 256> CLASSES = classifyCharacters();

bool isAll(std::string_view text, unsigned char characterClass)
{
    return std::all_of(text.begin(), text.end(),
                       [characterClass](char c)
                       { return (CLASSES[static_cast<unsigned char>(c)] & characterClass) != 0; });
}

/// Calls read for each part of the text between single spaces until it returns false. Returns whether it never did.
template <class Read>
bool forEachToken(std::string_view text, Read read)
{
    for (std::size_t begin = 0;;)
    {
        const std::size_t end = std::min(text.find(' ', begin), text.size());
        if (!read(text.substr(begin, end - begin)))
            return false;
        if (end == text.size())
            return true;
        begin = end + 1;
    }
}

// A value counts only if its text is the token again.
template <typename Value>
bool isTextOf(std::string_view token, Value value, std::string& buffer)
{
    buffer.clear();
    NumberFormatter::append(buffer, value);
    return buffer == token;
}

template <typename Value>
std::vector<Value> convert(const std::vector<long>& values)
{
    std::vector<Value> converted(values.size());
    std::transform(values.begin(), values.end(), converted.begin(),
                   [](long value) { return static_cast<Value>(value); });
    return converted;
}

template <typename Value>
bool holds(long smallest, long largest)
{
    return smallest >= std::numeric_limits<Value>::min() && largest <= std::numeric_limits<Value>::max();
}

// The octets of n base64 digits with their padding; 0 if it cannot be base64.
std::size_t base64Octets(std::string_view text)
{
    if (text.size() % 4 != 0)
        return 0;
    const std::size_t padding = text.size() - std::min(text.find('='), text.size());
    if (padding > 2 || !isAll(text.substr(0, text.size() - padding), BASE64))
        return 0;
    return text.size() / 4 * 3 - padding;
}

} // namespace

TypedText::TypedText(const std::string& text)
    : _textLength(text.size()),
      _octetCount(textOctets(text.size()))
{
    // Nearly every text that is not of a kind shows it by its first characters. Digits are a number rather than octets.
    if (findIntegers(text) || findReals<FloatEncoding, float>(text) || findReals<DoubleEncoding, double>(text) ||
        findBooleans(text) || findUUIDs(text))
        return;
    if (text.size() % 2 == 0 && isAll(text, HEXADECIMAL))
        findOctets<HexEncoding>(text, text.size() / 2);
    else
        findOctets<DWordEncoding>(text, base64Octets(text));
}

bool TypedText::mayContain(std::string_view piece)
{
    return isAll(piece, HEXADECIMAL | BASE64 | OTHER);
}

// Two bits mark the child, four the literal and how it is encoded; the length starts in the same octet and takes, as
// X.891 clause C.23 has it for the seventh bit, nothing more, one octet or four.
std::size_t TypedText::textOctets(std::size_t length)
{
    constexpr std::size_t MAX_SHORT = 2;
    constexpr std::size_t MAX_MEDIUM = 258;
    return 1 + (length <= MAX_SHORT ? 0 : length <= MAX_MEDIUM ? 1 : 4) + length;
}

bool TypedText::canHold(std::size_t payloadOctets) const
{
    return payloadOctets > 0 && ALGORITHM_OCTETS + textOctets(payloadOctets) < _octetCount;
}

void TypedText::consider(std::size_t payloadOctets, const AutoPtr<Encoding>& value)
{
    _octetCount = ALGORITHM_OCTETS + textOctets(payloadOctets);
    _value = value;
}

template <class Class, typename Value>
void TypedText::considerList(std::vector<Value> values)
{
    const std::size_t payloadOctets = values.size() * sizeof(Value);
    if (canHold(payloadOctets))
        consider(payloadOctets, new Class(std::move(values)));
}

bool TypedText::findIntegers(const std::string& text)
{
    std::vector<long> values;
    std::string buffer;
    long smallest = 0;
    long largest = 0;
    const bool isList =
        forEachToken(text,
                     [&](std::string_view token)
                     {
                         long value = 0;
                         if (!NumberParser::tryParse64(token, value, '\0') || !isTextOf(token, value, buffer))
                             return false;
                         smallest = std::min(smallest, value);
                         largest = std::max(largest, value);
                         values.push_back(value);
                         return true;
                     });
    if (!isList)
        return false;
    if (holds<short>(smallest, largest))
        considerList<ShortEncoding>(convert<short>(values));
    else if (holds<int>(smallest, largest))
        considerList<IntEncoding>(convert<int>(values));
    else
        considerList<LongEncoding>(std::move(values));
    return true;
}

template <class Class, typename Value>
bool TypedText::findReals(const std::string& text)
{
    std::vector<Value> values;
    std::string buffer;
    const bool isList = forEachToken(text,
                                     [&](std::string_view token)
                                     {
                                         double value = 0;
                                         if (!NumberParser::tryParseFloat(token, value, '.', '\0'))
                                             return false;
                                         // The text of the largest float reads as a double just beyond it.
                                         constexpr double LARGEST = std::numeric_limits<Value>::max();
                                         if (std::isfinite(value))
                                             value = std::clamp(value, -LARGEST, LARGEST);
                                         values.push_back(static_cast<Value>(value));
                                         return isTextOf(token, values.back(), buffer);
                                     });
    if (!isList)
        return false;
    considerList<Class>(std::move(values));
    return true;
}

bool TypedText::findBooleans(const std::string& text)
{
    if (text.front() != BoolEncoding::VAL_TRUE.front() && text.front() != BoolEncoding::VAL_FALSE.front())
        return false;
    std::vector<bool> values;
    BoolEncoding::parse(text, values);
    if (values.empty())
        return false;
    constexpr std::size_t COUNT_BITS = 4; // tell how many bits of the last octet are unused
    const std::size_t payloadOctets = (COUNT_BITS + values.size() + 7) / 8;
    if (canHold(payloadOctets))
        consider(payloadOctets, new BoolEncoding(std::move(values)));
    return true;
}

bool TypedText::findUUIDs(const std::string& text)
{
    const std::size_t count = (text.size() + 1) / (UUID_TEXT_OCTETS + 1);
    if ((text.size() + 1) % (UUID_TEXT_OCTETS + 1) != 0 || text[8] != '-')
        return false;
    std::vector<UUID> values;
    UUIDEncoding::parse(text, values);
    if (values.size() != count) // none, or there is one without its dashes
        return false;
    consider(count * UUID_OCTETS, new UUIDEncoding(std::move(values)));
    return true;
}

template <class Class>
void TypedText::findOctets(const std::string& text, std::size_t payloadOctets)
{
    // The unused bits of the last base64 digit may be such as no octet leaves behind.
    if (canHold(payloadOctets) && Class::check(text) > 0)
        consider(payloadOctets, new Class(text));
}

} // namespace Vesk::FastInfoset
