// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_NUMERICENCODING_H
#define VESK_FASTINFOSET_NUMERICENCODING_H

#include "Vesk/FastInfoset/TypedEncoding.h"
#include <cstddef>

namespace Vesk::FastInfoset
{

class FISArrayHandler;

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

    /// Reads the values of one encoded character string, as decode does, and delivers them without making an object:
    /// in arrays to arrayHandler, or one by one to handler if that is null. Nothing is delivered before all octets have
    /// been read.
    static void deliver(BitStreamReader& reader, FISContentHandler& handler, FISArrayHandler* arrayHandler);

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

private:
    template <class SizeException>
    static unsigned long readSize(BitStreamReader& reader);
    static void readOctets(BitStreamReader& reader, unsigned long octetCount, std::vector<Value>& values);
    static void convert(const char* octets, Value* values, std::size_t count);
    static void deliverArrays(const char* octets, std::size_t count, FISArrayHandler& handler);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_NUMERICENCODING_H
