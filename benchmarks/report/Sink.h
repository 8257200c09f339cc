// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_SINK_H
#define VESK_BENCHMARKS_SINK_H

#include <cstddef>
#include <ostream>
#include <streambuf>
#include <string>

namespace Vesk::Benchmarks
{

/// An output stream into memory that ignores flushing and keeps its memory from one document to the next.
class Sink
{
public:
    std::ostream& stream() { return _stream; }

    /// What has been written since clear().
    const std::string& octets() const { return _buffer.octets; }
    void clear() { _buffer.octets.clear(); }

private:
    class Buffer final : public std::streambuf
    {
    public:
        std::string octets;

    protected:
        int_type overflow(int_type octet) override
        {
            octets += traits_type::to_char_type(octet);
            return octet;
        }
        std::streamsize xsputn(const char* data, std::streamsize octetCount) override
        {
            octets.append(data, static_cast<std::size_t>(octetCount));
            return octetCount;
        }
    };

    Buffer _buffer;
    std::ostream _stream{&_buffer};
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_SINK_H
