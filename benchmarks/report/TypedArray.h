// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_TYPEDARRAY_H
#define VESK_BENCHMARKS_TYPEDARRAY_H

#include <cstddef>
#include <cstdint>
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

    void add(int value);
    void add(float value);
    void add(double value);
    void addOctets(const char* octets, std::size_t octetCount);
};

bool operator==(const ArrayTally& left, const ArrayTally& right);

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_TYPEDARRAY_H
