// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_NUMERICENCODINGIMPL_H
#define VESK_FASTINFOSET_NUMERICENCODINGIMPL_H

#include "ArrayDelivery.h"
#include "BigEndian.h"
#include "OctetBlocks.h"
#include "TypedEncodingImpl.h"
#include "Vesk/FastInfoset/Decoder.h"
#include "Vesk/FastInfoset/Encoder.h"
#include "Vesk/FastInfoset/FISArrayHandler.h"
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
    readOctets(reader, readSize<SizeException>(reader), values);
}

template <class Class, typename Value>
template <class SizeException>
unsigned long NumericEncoding<Class, Value>::readSize(BitStreamReader& reader)
{
    unsigned long octetCount = 0;
    Decoder::nonEmptyStringLength(reader, octetCount);
    if (octetCount % sizeof(Value) != 0)
        throw SizeException(Class::SIZE_MESSAGE);
    return octetCount;
}

template <class Class, typename Value>
void NumericEncoding<Class, Value>::readOctets(BitStreamReader& reader, unsigned long octetCount,
                                               std::vector<Value>& values)
{
    if (const char* const octets = reader.takeOctets(octetCount))
    {
        values.resize(octetCount / sizeof(Value));
        convert(octets, values.data(), values.size());
        return;
    }
    readOctetBlocks(reader, octetCount, Class::VALUE_NAME,
                    [&values](const char* octets, std::size_t blockOctets)
                    {
                        const std::size_t oldCount = values.size();
                        values.resize(oldCount + blockOctets / sizeof(Value));
                        convert(octets, values.data() + oldCount, values.size() - oldCount);
                    });
}

template <class Class, typename Value>
void NumericEncoding<Class, Value>::convert(const char* octets, Value* values, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        values[i] = fromBigEndian<Value>(octets + i * sizeof(Value));
}

template <class Class, typename Value>
void NumericEncoding<Class, Value>::deliver(BitStreamReader& reader, FISContentHandler& handler,
                                            FISArrayHandler* arrayHandler)
{
    const unsigned long octetCount = readSize<FISEncodingException>(reader);
    const std::size_t count = octetCount / sizeof(Value);
    const char* const octets = reader.takeOctets(octetCount);
    if (!octets)
    {
        std::vector<Value> values;
        readOctets(reader, octetCount, values);
        if (arrayHandler)
            ArrayDelivery::deliver(values, *arrayHandler);
        for (std::size_t i = 0; i < count && !arrayHandler; ++i)
            handler.encodedData(values[i]);
    }
    else if (arrayHandler)
    {
        deliverArrays(octets, count, *arrayHandler);
    }
    else
    {
        for (std::size_t i = 0; i < count; ++i)
            handler.encodedData(fromBigEndian<Value>(octets + i * sizeof(Value)));
    }
}

// In arrays that stay in the processor's cache.
template <class Class, typename Value>
void NumericEncoding<Class, Value>::deliverArrays(const char* octets, std::size_t count, FISArrayHandler& handler)
{
    constexpr std::size_t ARRAY_SIZE = ArrayDelivery::COUNT<Value>;
    Value values[ARRAY_SIZE];
    while (count > 0)
    {
        const std::size_t arrayCount = std::min(count, ARRAY_SIZE);
        convert(octets, values, arrayCount);
        handler.encodedArray(values, arrayCount);
        octets += arrayCount * sizeof(Value);
        count -= arrayCount;
    }
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
