// SPDX-License-Identifier: MIT
#ifndef VESK_DECODINGBUFFER_H
#define VESK_DECODINGBUFFER_H

#include <cstddef>
#include <istream>
#include <streambuf>

namespace Vesk
{

/// Reads text from a stream and delivers the octets that it stands for. Source and owner, the stream that reads from this
/// buffer, are borrowed. The owner gets badbit once everything in front of invalid text has been delivered.
///
/// A Codec has GROUP_OCTETS, the octets that GROUP_CHARACTERS characters stand for, keeps what it has of a group and has
///     bool decode(const char* text, const char* textEnd, char*& octets);
/// which moves octets behind those it wrote and returns false at invalid text, and
///     bool isComplete() const;
/// which tells whether the text may end here.
template <class Codec>
class DecodingBuffer : public std::streambuf
{
public:
    DecodingBuffer(std::istream& source, std::ios& owner)
        : _source(source),
          _owner(owner)
    {
    }

protected:
    int_type underflow() override
    {
        if (gptr() == egptr())
            decodeBlock();
        if (gptr() != egptr())
            return traits_type::to_int_type(*gptr());
        if (_state == State::INVALID)
            _owner.setstate(std::ios::badbit);
        return traits_type::eof();
    }

private:
    static constexpr std::size_t BLOCK_GROUPS = 256;

    enum class State
    {
        READING,
        ENDED,
        INVALID
    };

    // Goes on until there are octets, since a block may hold nothing but white space.
    void decodeBlock()
    {
        char text[BLOCK_GROUPS * Codec::GROUP_CHARACTERS];
        char* octetsEnd = _octets;
        while (_state == State::READING && octetsEnd == _octets)
        {
            _source.read(text, sizeof text);
            const std::streamsize count = _source.gcount();
            if (count == 0)
                _state = _source.eof() && _codec.isComplete() ? State::ENDED : State::INVALID;
            else if (!_codec.decode(text, text + count, octetsEnd))
                _state = State::INVALID;
        }
        setg(_octets, _octets, octetsEnd);
    }

    std::istream& _source;
    std::ios& _owner;
    Codec _codec;
    State _state = State::READING;
    // Enough even if the block before left a group unfinished: then this block ends in the middle of one.
    char _octets[BLOCK_GROUPS * Codec::GROUP_OCTETS];
};

} // namespace Vesk

#endif // VESK_DECODINGBUFFER_H
