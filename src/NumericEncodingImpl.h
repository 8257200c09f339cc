// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_NUMERICENCODINGIMPL_H
#define VESK_FASTINFOSET_NUMERICENCODINGIMPL_H

#include "BigEndian.h"
#include "OctetBlocks.h"
#include "TypedEncodingImpl.h"
#include "Vesk/FastInfoset/Decoder.h"
#include "Vesk/FastInfoset/Encoder.h"
#include "Vesk/FastInfoset/NumericEncoding.h"
#include "Vesk/NumberFormatter.h"
#include "Vesk/NumberParser.h"
#include <limits>

// The members of NumericEncoding, for the sources that instantiate it. Beside what TypedEncodingImpl.h asks for, a
// derived class supplies VALUE_NAME and SIZE_MESSAGE, for the messages about missing octets and a bad number of them.

namespace Vesk::FastInfoset
{

/// Reads a number from the very text that the formatter prints for it.
inline bool parseNumber(std::string_view token, long& number)
{
    return NumberParser::tryParse64(token, number) && NumberFormatter::format(number) == token;
}

inline bool parseNumber(std::string_view token, double& number)
{
    return NumberParser::tryParseFloat(token, number) && NumberFormatter::format(number) == token;
}

template <typename Integer>
bool parseInteger(std::string_view token, Integer& value)
{
    long number = 0;
    if (!parseNumber(token, number) || number < std::numeric_limits<Integer>::min() ||
        number > std::numeric_limits<Integer>::max())
        return false;
    value = static_cast<Integer>(number);
    return true;
}

template <class Class, typename Value>
void NumericEncoding<Class, Value>::appendValue(std::string& text, Value value)
{
    NumberFormatter::append(text, value);
}

template <class Class, typename Value>
void NumericEncoding<Class, Value>::readValues(BitStreamReader& reader, std::vector<Value>& values)
{
    readValuesOrThrow<FISEncodingException>(reader, values);
}

template <class Class, typename Value>
template <class SizeException>
void NumericEncoding<Class, Value>::readValuesOrThrow(BitStreamReader& reader, std::vector<Value>& values)
{
    unsigned long octetCount = 0;
    Decoder::nonEmptyStringLength(reader, octetCount);
    if (octetCount % sizeof(Value) != 0)
        throw SizeException(Class::SIZE_MESSAGE);

    readOctetBlocks(reader, octetCount, Class::VALUE_NAME,
                    [&values](const char* octets, std::size_t blockOctets)
                    {
                        const std::size_t oldCount = values.size();
                        values.resize(oldCount + blockOctets / sizeof(Value));
                        for (auto value = values.begin() + static_cast<std::ptrdiff_t>(oldCount); value != values.end();
                             ++value, octets += sizeof(Value))
                            *value = fromBigEndian<Value>(octets);
                    });
}

template <class Class, typename Value>
void NumericEncoding<Class, Value>::writeValues(BitStreamWriter& writer, const std::vector<Value>& values)
{
    Encoder::nonEmptyStringLength(writer, values.size() * sizeof(Value));
    OctetBlockWriter blocks(writer);
    for (const Value value : values)
        toBigEndian(value, blocks.next(sizeof(Value)));
    blocks.flush();
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_NUMERICENCODINGIMPL_H
