// SPDX-License-Identifier: MIT
#ifndef VESK_TESTS_TESTSTREAMS_H
#define VESK_TESTS_TESTSTREAMS_H

#include <algorithm>
#include <cstddef>
#include <istream>
#include <ostream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>

/// Delivers octets in blocks of a given size, cannot be positioned, and can fail instead of ending.
class BlockInputStream : public std::istream
{
public:
    enum End
    {
        ENDS,
        THROWS
    };

    BlockInputStream(std::string octets, std::size_t blockSize, End howItEnds = ENDS)
        : std::istream(nullptr),
          _buffer(std::move(octets), blockSize, howItEnds)
    {
        rdbuf(&_buffer);
    }

private:
    class Buffer : public std::streambuf
    {
    public:
        Buffer(std::string octets, std::size_t blockSize, End end)
            : _octets(std::move(octets)),
              _blockSize(blockSize),
              _end(end)
        {
        }

    protected:
        int_type underflow() override
        {
            if (_delivered == _octets.size())
            {
                if (_end == THROWS)
                    throw std::runtime_error("source failed");
                return traits_type::eof();
            }
            char* const block = &_octets[_delivered];
            const std::size_t size = std::min(_blockSize, _octets.size() - _delivered);
            _delivered += size;
            setg(block, block, block + size);
            return traits_type::to_int_type(*block);
        }

    private:
        std::string _octets;
        std::size_t _blockSize;
        End _end;
        std::size_t _delivered = 0;
    };

    Buffer _buffer;
};

/// Keeps what is written to it, counts the calls, and fails when asked to.
class RecordingOutputStream : public std::ostream
{
public:
    /// Takes at most octetLimit octets; the write that goes beyond fails as a whole.
    explicit RecordingOutputStream(std::size_t octetLimit = std::string::npos)
        : std::ostream(nullptr),
          _buffer(octetLimit)
    {
        rdbuf(&_buffer);
    }

    const std::string& octets() const { return _buffer.octets; }
    int writes() const { return _buffer.writes; }
    int flushes() const { return _buffer.flushes; }
    void failToFlush() { _buffer.flushFails = true; }

private:
    struct Buffer : public std::streambuf
    {
        explicit Buffer(std::size_t limit)
            : octetLimit(limit)
        {
        }

        std::streamsize xsputn(const char* data, std::streamsize size) override
        {
            const std::size_t count = static_cast<std::size_t>(size);
            if (count > octetLimit - octets.size())
                return 0;
            octets.append(data, count);
            ++writes;
            return size;
        }
        int_type overflow(int_type octet) override
        {
            const char value = traits_type::to_char_type(octet);
            return xsputn(&value, 1) == 1 ? octet : traits_type::eof();
        }
        int sync() override
        {
            ++flushes;
            return flushFails ? -1 : 0;
        }

        std::size_t octetLimit;
        std::string octets;
        int writes = 0;
        int flushes = 0;
        bool flushFails = false;
    };

    Buffer _buffer;
};

#endif // VESK_TESTS_TESTSTREAMS_H
