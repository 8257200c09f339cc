// SPDX-License-Identifier: MIT
#include "Vesk/Base64Decoder.h"
#include "DecodingBuffer.h"
#include <array>
#include <cstdint>
#include <string_view>

namespace Vesk
{

namespace
{

// What a character is: the value of a digit, 0 to 63, or one of these.
constexpr std::uint8_t PADDING = 64;
constexpr std::uint8_t SPACE = 65;
constexpr std::uint8_t INVALID = 66;

constexpr std::array<std::uint8_t, 256> makeKinds()
{
    std::array<std::uint8_t, 256> kinds{};
    for (std::uint8_t& kind : kinds)
        kind = INVALID;
    std::uint8_t value = 0;
    for (unsigned char letter = 'A'; letter <= 'Z'; ++letter)
        kinds[letter] = value++;
    for (unsigned char letter = 'a'; letter <= 'z'; ++letter)
        kinds[letter] = value++;
    for (unsigned char digit = '0'; digit <= '9'; ++digit)
        kinds[digit] = value++;
    kinds['+'] = value++;
    kinds['/'] = value;
    kinds['='] = PADDING;
    for (const char space : std::string_view(" \t\r\n"))
        kinds[static_cast<unsigned char>(space)] = SPACE;
    return kinds;
}

constexpr std::array<std::uint8_t, 256> KINDS = makeKinds();

unsigned kindOf(char character)
{
    return KINDS[static_cast<unsigned char>(character)];
}

class Base64Codec
{
public:
    static constexpr std::size_t GROUP_OCTETS = 3;
    static constexpr std::size_t GROUP_CHARACTERS = 4;

    bool decode(const char* text, const char* textEnd, char*& octets)
    {
        while (text != textEnd)
        {
            if (_digitCount == 0)
                text = decodeGroups(text, textEnd, octets);
            if (text != textEnd && !take(kindOf(*text++), octets))
                return false;
        }
        return true;
    }

    bool isComplete() const { return _digitCount == 0 || isPadded(); }

private:
    bool isPadded() const { return _paddingCount > 0 && _digitCount + _paddingCount == 4; }

    // The common case: four digits in a row, as long as they come.
    static const char* decodeGroups(const char* text, const char* textEnd, char*& octets)
    {
        for (; textEnd - text >= 4; text += 4)
        {
            const unsigned kinds[] = {kindOf(text[0]), kindOf(text[1]), kindOf(text[2]), kindOf(text[3])};
            // Everything but a digit is 64 or more.
            if ((kinds[0] | kinds[1] | kinds[2] | kinds[3]) >= PADDING)
                break;
            putOctets(kinds[0] << 18 | kinds[1] << 12 | kinds[2] << 6 | kinds[3], 3, octets);
        }
        return text;
    }

    // One character; _group has the digits so far, the last in its lowest six bits.
    bool take(unsigned kind, char*& octets)
    {
        if (kind == SPACE)
            return true;
        if (kind == PADDING)
            return takePadding(octets);
        if (kind == INVALID || _paddingCount > 0)
            return false;
        _group = _group << 6 | kind;
        if (++_digitCount == 4)
        {
            putOctets(_group, 3, octets);
            _group = 0;
            _digitCount = 0;
        }
        return true;
    }

    // "dd==" stands for one octet and "ddd=" for two; the 4 or 2 bits left over are zero.
    bool takePadding(char*& octets)
    {
        if (_digitCount < 2 || isPadded())
            return false;
        ++_paddingCount;
        _group <<= 6;
        if (!isPadded())
            return true;
        const int octetCount = _digitCount - 1;
        const unsigned unused = _group & (0xFFFFFFu >> (8 * octetCount));
        if (unused != 0)
            return false;
        putOctets(_group, octetCount, octets);
        return true;
    }

    static void putOctets(unsigned group, int octetCount, char*& octets)
    {
        for (int shift = 16; octetCount > 0; --octetCount, shift -= 8)
            *octets++ = static_cast<char>(group >> shift & 0xFF);
    }

    unsigned _group = 0;
    int _digitCount = 0; // padding does not reset it, so that it marks the end of the text
    int _paddingCount = 0;
};

} // namespace

class Base64Decoder::Buffer : public DecodingBuffer<Base64Codec>
{
public:
    using DecodingBuffer::DecodingBuffer;
};

Base64Decoder::Base64Decoder(std::istream& source)
    : std::istream(nullptr),
      _buffer(std::make_unique<Buffer>(source, *this))
{
    rdbuf(_buffer.get());
}

Base64Decoder::~Base64Decoder() = default;

} // namespace Vesk
