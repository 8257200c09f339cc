// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_ARRAYREADERS_H
#define VESK_BENCHMARKS_ARRAYREADERS_H

#include "TypedArray.h"
#include <memory>

namespace Vesk::Benchmarks
{

/// Reads an array and tallies its values.
class ArrayReader
{
public:
    virtual ArrayTally read() = 0;
    virtual ~ArrayReader() = default;
};

/// expat, std::from_chars for numbers, the project's own decoder for base64. The array is borrowed.
std::unique_ptr<ArrayReader> makeTextArrayReader(const TypedArray& array);

/// FastInfosetParser with a handler that takes typed values: octets in one block, numbers one by one or in arrays. The
/// array is borrowed.
std::unique_ptr<ArrayReader> makeFISArrayReader(const TypedArray& array);
std::unique_ptr<ArrayReader> makeFISBlockReader(const TypedArray& array);

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_ARRAYREADERS_H
