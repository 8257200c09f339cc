// SPDX-License-Identifier: MIT
#ifndef VESK_MEMORYINPUTSTREAM_H
#define VESK_MEMORYINPUTSTREAM_H

#include "Vesk/Foundation.h"
#include <cstddef>
#include <istream>
#include <streambuf>

namespace Vesk
{

/// Reads from a block of memory without copying it. The block is borrowed: it must outlive the stream unchanged.
///
/// The stream cannot be positioned.
class VESK_FOUNDATION_API MemoryInputStream : public std::istream
{
public:
    /// The block may be null when octetCount is 0.
    MemoryInputStream(const char* data, std::size_t octetCount);
    ~MemoryInputStream() override;

private:
    class Buffer : public std::streambuf
    {
    public:
        Buffer(const char* data, std::size_t octetCount);
    };

    Buffer _buffer;
};

} // namespace Vesk

#endif // VESK_MEMORYINPUTSTREAM_H
