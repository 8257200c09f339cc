// SPDX-License-Identifier: MIT
#include "Vesk/MemoryInputStream.h"

namespace Vesk
{

MemoryInputStream::Buffer::Buffer(const char* data, std::size_t octetCount)
{
    // A get area is never written to as long as nothing is put back, and pbackfail() refuses that.
    char* begin = const_cast<char*>(data);
    setg(begin, begin, begin + octetCount);
}

MemoryInputStream::MemoryInputStream(const char* data, std::size_t octetCount)
    : std::istream(nullptr),
      _buffer(data, octetCount)
{
    rdbuf(&_buffer);
}

MemoryInputStream::~MemoryInputStream() = default;

} // namespace Vesk
