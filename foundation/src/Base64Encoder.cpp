// SPDX-License-Identifier: MIT
#include "Vesk/Base64Encoder.h"
#include "EncodingBuffer.h"

namespace Vesk
{

namespace
{

// Three octets become four digits of six bits, the most significant first; what is missing of a last group of one or two
// octets counts as zero bits, and digits without any bits of the octets become "=".
struct Base64Codec
{
    static constexpr std::size_t GROUP_OCTETS = 3;
    static constexpr std::size_t GROUP_CHARACTERS = 4;

    static char* encode(const char* octets, std::size_t octetCount, char* text)
    {
        for (; octetCount >= GROUP_OCTETS; octetCount -= GROUP_OCTETS, octets += GROUP_OCTETS)
            text = putGroup(bits(octets[0], 16) | bits(octets[1], 8) | bits(octets[2], 0), text);
        if (octetCount == 0)
            return text;
        text = putGroup(bits(octets[0], 16) | (octetCount == 2 ? bits(octets[1], 8) : 0), text);
        text[-1] = '=';
        if (octetCount == 1)
            text[-2] = '=';
        return text;
    }

private:
    static unsigned bits(char octet, int shift) { return unsigned{static_cast<unsigned char>(octet)} << shift; }

    static char* putGroup(unsigned group, char* text)
    {
        static const char DIGITS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        text[0] = DIGITS[group >> 18];
        text[1] = DIGITS[group >> 12 & 63];
        text[2] = DIGITS[group >> 6 & 63];
        text[3] = DIGITS[group & 63];
        return text + 4;
    }
};

} // namespace

class Base64Encoder::Buffer : public EncodingBuffer<Base64Codec>
{
public:
    using EncodingBuffer::EncodingBuffer;
};

Base64Encoder::Base64Encoder(std::ostream& target)
    : std::ostream(nullptr),
      _buffer(std::make_unique<Buffer>(target))
{
    rdbuf(_buffer.get());
}

Base64Encoder::~Base64Encoder()
{
    try
    {
        close();
    }
    catch (...)
    {
        // The target throws at failures. It has its error state to show for it.
    }
}

void Base64Encoder::setLineLength(int characters)
{
    _buffer->setLineLength(characters);
}

void Base64Encoder::close()
{
    if (!_buffer->finish())
        setstate(badbit);
}

} // namespace Vesk
