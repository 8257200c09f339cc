// SPDX-License-Identifier: MIT
#include "RecordingStream.h"
#include <algorithm>
#include <cstddef>

namespace Vesk::Tool
{

namespace
{

constexpr std::size_t BLOCK_OCTETS = 64 * 1024;

} // namespace

RecordingStream::RecordingStream(std::istream& source)
    : std::istream(nullptr),
      _buffer(source)
{
    rdbuf(&_buffer);
    exceptions(badbit); // lets failures of the source through
}

RecordingStream::Buffer::Buffer(std::istream& source)
    : _source(source),
      _block(BLOCK_OCTETS)
{
}

std::string_view RecordingStream::Buffer::octets(unsigned long beginOffset, unsigned long endOffset) const
{
    endOffset = std::min(endOffset, octetCount());
    if (beginOffset < _offset || beginOffset >= endOffset)
        return std::string_view();
    return std::string_view(_kept).substr(beginOffset - _offset, endOffset - beginOffset);
}

void RecordingStream::Buffer::forget(unsigned long endOffset)
{
    _forgotten = std::min(endOffset, octetCount());
}

RecordingStream::Buffer::int_type RecordingStream::Buffer::underflow()
{
    const std::streamsize octetCount =
        _source.rdbuf()->sgetn(_block.data(), static_cast<std::streamsize>(_block.size()));
    if (octetCount <= 0)
        return traits_type::eof();
    const std::size_t dead = _forgotten > _offset ? _forgotten - _offset : 0;
    _kept.erase(0, dead);
    _offset += dead;
    _kept.append(_block.data(), static_cast<std::size_t>(octetCount));
    setg(_block.data(), _block.data(), _block.data() + octetCount);
    return traits_type::to_int_type(_block.front());
}

} // namespace Vesk::Tool
