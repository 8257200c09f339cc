// SPDX-License-Identifier: MIT
#include "Vesk/HexBinaryEncoder.h"
#include "EncodingBuffer.h"

namespace Vesk
{

namespace
{

struct HexBinaryCodec
{
    static constexpr std::size_t GROUP_OCTETS = 1;
    static constexpr std::size_t GROUP_CHARACTERS = 2;

    static char* encode(const char* octets, std::size_t octetCount, char* text)
    {
        static const char DIGITS[] = "0123456789ABCDEF";
        for (; octetCount > 0; --octetCount, ++octets)
        {
            const unsigned octet = static_cast<unsigned char>(*octets);
            *text++ = DIGITS[octet >> 4];
            *text++ = DIGITS[octet & 15];
        }
        return text;
    }
};

} // namespace

class HexBinaryEncoder::Buffer : public EncodingBuffer<HexBinaryCodec>
{
public:
    using EncodingBuffer::EncodingBuffer;
};

HexBinaryEncoder::HexBinaryEncoder(std::ostream& target)
    : std::ostream(nullptr),
      _buffer(std::make_unique<Buffer>(target))
{
    rdbuf(_buffer.get());
}

HexBinaryEncoder::~HexBinaryEncoder()
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

void HexBinaryEncoder::setLineLength(int characters)
{
    _buffer->setLineLength(characters);
}

void HexBinaryEncoder::close()
{
    if (!_buffer->finish())
        setstate(badbit);
}

} // namespace Vesk
