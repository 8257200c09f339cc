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
        while (text != textEnd)
        {
            if (_high < 0)
                text = decodePairs(text, textEnd, octets);
            if (text != textEnd && !take(*text++, octets))
                return false;
        }
        return true;
    }

    bool isComplete() const { return _high < 0; }

private:
    // The common case: two digits in a row, as long as they come.
    static const char* decodePairs(const char* text, const char* textEnd, char*& octets)
    {
        for (; textEnd - text >= 2; text += 2)
        {
            const int octet = hexOctetValue(text[0], text[1]);
            if (octet < 0)
                break;
            *octets++ = static_cast<char>(octet);
        }
        return text;
    }

    bool take(char character, char*& octets)
    {
        const int digit = hexDigitValue(character);
        if (digit < 0)
            return isSpace(character);
        if (_high < 0)
        {
            _high = digit;
            return true;
        }
        *octets++ = static_cast<char>(_high << 4 | digit);
        _high = -1;
        return true;
    }

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
