// SPDX-License-Identifier: MIT
#include "Vesk/HexBinaryDecoder.h"
#include "DecodingBuffer.h"
#include "HexDigit.h"

namespace Vesk
{

namespace
{

class HexBinaryCodec
{
public:
    static constexpr std::size_t GROUP_OCTETS = 1;
    static constexpr std::size_t GROUP_CHARACTERS = 2;

    bool decode(const char* text, const char* textEnd, char*& octets)
    {
        for (; text != textEnd; ++text)
        {
            const int digit = hexDigitValue(*text);
            if (digit < 0)
            {
                if (!isSpace(*text))
                    return false;
            }
            else if (_high < 0)
            {
                _high = digit;
            }
            else
            {
                *octets++ = static_cast<char>(_high << 4 | digit);
                _high = -1;
            }
        }
        return true;
    }

    bool isComplete() const { return _high < 0; }

private:
    static bool isSpace(char character)
    {
        return character == ' ' || character == '\t' || character == '\n' || character == '\r';
    }

    int _high = -1; // the first digit of an octet while the second is missing
};

} // namespace

class HexBinaryDecoder::Buffer : public DecodingBuffer<HexBinaryCodec>
{
public:
    using DecodingBuffer::DecodingBuffer;
};

HexBinaryDecoder::HexBinaryDecoder(std::istream& source)
    : std::istream(nullptr),
      _buffer(std::make_unique<Buffer>(source, *this))
{
    rdbuf(_buffer.get());
}

HexBinaryDecoder::~HexBinaryDecoder() = default;

} // namespace Vesk
