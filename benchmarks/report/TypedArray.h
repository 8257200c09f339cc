// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_TYPEDARRAY_H
#define VESK_BENCHMARKS_TYPEDARRAY_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace Vesk::Benchmarks
{

/// A document with one element that holds many values: as text, with single spaces between them, and as typed content.
struct TypedArray
{
    enum Type
    {
        INT,
        FLOAT,
        DOUBLE,
        BASE64
    };

    Type type;
    std::string name;
    double goal; ///< how many times as fast as text typed values should be read
    std::string xml;
    std::string fis;

    static constexpr std::size_t VALUE_COUNT = 1000000; ///< of base64: octets
};

/// One array of each type, always with the same values.
std::vector<TypedArray> typedArrays();

/// What is done with each value: it is counted and its bits are added up.
struct ArrayTally
{
    std::size_t count = 0;
    std::uint64_t bits = 0;

    // Inline, so that what is measured is the way to here.

    void add(int value) { addBits(static_cast<std::uint32_t>(value)); }
    void add(float value) { addBits(bitsOf<std::uint32_t>(value)); }
    void add(double value) { addBits(bitsOf<std::uint64_t>(value)); }
    void addOctets(const char* octets, std::size_t octetCount)
    {
        // Eight at a time: both sides hand octets over in multiples of eight, but for the last of them.
        std::size_t i = 0;
        for (; i + 8 <= octetCount; i += 8)
        {
            std::uint64_t word = 0;
            std::memcpy(&word, octets + i, sizeof word);
            bits += word;
        }
        for (; i < octetCount; ++i)
            bits += static_cast<unsigned char>(octets[i]);
        count += octetCount;
    }

private:
    void addBits(std::uint64_t pattern)
    {
        ++count;
        bits += pattern;
    }

    template <class Bits, class Value>
    static Bits bitsOf(Value value)
    {
        Bits pattern = 0;
        static_assert(sizeof pattern == sizeof value);
        std::memcpy(&pattern, &value, sizeof pattern);
        return pattern;
    }
};

bool operator==(const ArrayTally& left, const ArrayTally& right);

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_TYPEDARRAY_H
