// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_NUMERICENCODING_H
#define VESK_FASTINFOSET_NUMERICENCODING_H

#include "Vesk/FastInfoset/TypedEncoding.h"
#include <cstddef>

namespace Vesk::FastInfoset
{

/// What the encodings of numbers have in common: each number is stored in the octets of its type, most significant
/// octet first, integers in two's complement and floating-point numbers as their IEEE 754 bits, one after the other
/// without separators (X.891 clause 10).
///
/// Every bit pattern survives reading and writing, those of NaN with their payload and of -0 among them.
template <class Class, typename Value>
class VESK_FASTINFOSET_API NumericEncoding : public TypedEncoding<Class, Value>
{
public:
    using TypedEncoding<Class, Value>::TypedEncoding;

protected:
    /// Appends the text of one value.
    static void appendValue(std::string& text, Value value);
    /// The octets that this many values take.
    static std::size_t octetCount(std::size_t valueCount) { return valueCount * sizeof(Value); }

    /// Reads and writes values, length first.
    static void readValues(BitStreamReader& reader, std::vector<Value>& values);
    static void writeValues(BitStreamWriter& writer, const std::vector<Value>& values);

    /// Reads values, reporting a length that is no multiple of the octets of one value with a SizeException.
    template <class SizeException>
    static void readValuesOrThrow(BitStreamReader& reader, std::vector<Value>& values);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_NUMERICENCODING_H
