// SPDX-License-Identifier: MIT
#ifndef VESK_ENCODINGBUFFER_H
#define VESK_ENCODINGBUFFER_H

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <streambuf>

namespace Vesk
{

/// Turns the octets that are written to it into text and writes that to a stream, which is borrowed.
///
/// A Codec has GROUP_OCTETS, the octets that become GROUP_CHARACTERS characters, and
///     static char* encode(const char* octets, std::size_t octetCount, char* text);
/// which writes whole groups, the last one padded if need be, and returns the end of the text.
template <class Codec>
class EncodingBuffer : public std::streambuf
{
public:
    explicit EncodingBuffer(std::ostream& target)
        : _target(target)
    {
        setp(_octets, _octets + BLOCK_OCTETS);
    }

    /// 0: no line breaks.
    void setLineLength(int characters) { _lineLength = static_cast<std::size_t>(std::max(characters, 0)); }

    /// Writes all octets, with padding, and returns whether the target took everything.
    bool finish() { return encode(pendingCount()); }

protected:
    int_type overflow(int_type octet) override
    {
        if (!encodeGroups())
            return traits_type::eof();
        if (!traits_type::eq_int_type(octet, traits_type::eof()))
            sputc(traits_type::to_char_type(octet));
        return traits_type::not_eof(octet);
    }

    // What does not fill a group waits for more octets or the end.
    int sync() override { return encodeGroups() && _target.flush() ? 0 : -1; }

private:
    static constexpr std::size_t BLOCK_GROUPS = 256;
    static constexpr std::size_t BLOCK_OCTETS = BLOCK_GROUPS * Codec::GROUP_OCTETS;

    std::size_t pendingCount() const { return static_cast<std::size_t>(pptr() - pbase()); }
    bool encodeGroups() { return encode(pendingCount() - pendingCount() % Codec::GROUP_OCTETS); }

    // Writes the first octetCount pending octets; the others move to the front.
    bool encode(std::size_t octetCount)
    {
        char text[BLOCK_GROUPS * Codec::GROUP_CHARACTERS];
        const char* textEnd = Codec::encode(_octets, octetCount, text);
        const std::size_t rest = pendingCount() - octetCount;
        std::copy_n(_octets + octetCount, rest, _octets);
        setp(_octets, _octets + BLOCK_OCTETS);
        pbump(static_cast<int>(rest));
        return write(text, textEnd);
    }

    bool write(const char* text, const char* textEnd)
    {
        while (text != textEnd)
        {
            std::size_t count = static_cast<std::size_t>(textEnd - text);
            if (_lineLength > 0)
            {
                if (_column >= _lineLength)
                {
                    _target.put('\n');
                    _column = 0;
                }
                count = std::min(count, _lineLength - _column);
                _column += count;
            }
            _target.write(text, static_cast<std::streamsize>(count));
            text += count;
        }
        return _target.good();
    }

    std::ostream& _target;
    std::size_t _lineLength = 0;
    std::size_t _column = 0;
    char _octets[BLOCK_OCTETS];
};

} // namespace Vesk

#endif // VESK_ENCODINGBUFFER_H
