// SPDX-License-Identifier: MIT
#include "Deflate.h"
#include <algorithm>
#include <array>
#include <limits>
#include <new>
#define ZLIB_CONST // for a pointer to constant input
#include <zlib.h>

namespace Vesk::Tool
{

namespace
{

/// zlib's state, for deflate without the header and checksum of the zlib format.
class Deflater
{
public:
    Deflater()
    {
        constexpr int RAW_WINDOW_BITS = -15;
        constexpr int USUAL_MEMORY_LEVEL = 8;
        if (::deflateInit2(&_stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, RAW_WINDOW_BITS, USUAL_MEMORY_LEVEL,
                           Z_DEFAULT_STRATEGY) != Z_OK)
            throw std::bad_alloc();
    }
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;
    ~Deflater() { ::deflateEnd(&_stream); }

    /// Takes the octets and drops what comes out.
    void deflate(std::string_view octets, int flush)
    {
        std::array<Bytef, 64 * 1024> out;
        _stream.next_in = reinterpret_cast<const Bytef*>(octets.data());
        _stream.avail_in = static_cast<uInt>(octets.size());
        do
        {
            _stream.next_out = out.data();
            _stream.avail_out = static_cast<uInt>(out.size());
            ::deflate(&_stream, flush);
        } while (_stream.avail_out == 0);
    }

    std::uint64_t octetCount() const { return _stream.total_out; }

private:
    z_stream _stream = {};
};

} // namespace

std::uint64_t deflatedSize(std::string_view octets)
{
    constexpr std::size_t MAX_PIECE = std::numeric_limits<uInt>::max();
    Deflater deflater;
    while (octets.size() > MAX_PIECE)
    {
        deflater.deflate(octets.substr(0, MAX_PIECE), Z_NO_FLUSH);
        octets.remove_prefix(MAX_PIECE);
    }
    deflater.deflate(octets, Z_FINISH);
    return deflater.octetCount();
}

} // namespace Vesk::Tool
