// SPDX-License-Identifier: MIT
#ifndef VESK_TESTS_OCTETS_H
#define VESK_TESTS_OCTETS_H

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>

/// Appends a string of '0' and '1', which may be grouped with spaces, to octets. It must fill whole octets.
inline void appendBits(std::string& octets, const std::string& bits)
{
    unsigned int octet = 1; // a mark that leaves at the top when eight bits are complete
    for (const char bit : bits)
    {
        if (bit == ' ')
            continue;
        octet = (octet << 1) | (bit == '1' ? 1u : 0u);
        if (octet >= 0x100)
        {
            octets += static_cast<char>(octet);
            octet = 1;
        }
    }
    if (octet != 1)
        throw std::invalid_argument("bits do not fill an octet: " + bits);
}

/// Reads a document as people write it down: "E0 00" are hexadecimal octets, [0 0 1111 00] bits and 'abc' text.
/// Text holds no apostrophe.
inline std::string octetsOf(const std::string& notation)
{
    std::string octets;
    for (std::size_t i = 0; i < notation.size(); ++i)
    {
        const char c = notation[i];
        if (c == ' ')
            continue;
        if (c == '\'' || c == '[')
        {
            const std::size_t end = notation.find(c == '[' ? ']' : '\'', i + 1);
            const std::string inner = notation.substr(i + 1, end - i - 1);
            if (c == '[')
                appendBits(octets, inner);
            else
                octets += inner;
            i = end;
        }
        else
        {
            octets += static_cast<char>(std::stoi(notation.substr(i, 2), nullptr, 16));
            ++i;
        }
    }
    return octets;
}

/// The opposite, in hexadecimal only: "E0 00".
inline std::string hexOf(const std::string& octets)
{
    static const char DIGITS[] = "0123456789ABCDEF";
    std::string text;
    for (const char octet : octets)
    {
        if (!text.empty())
            text += ' ';
        text += DIGITS[static_cast<unsigned char>(octet) >> 4];
        text += DIGITS[octet & 0xF];
    }
    return text;
}

/// A copy of octets that ends where its memory ends, so that a sanitizer sees every read beyond.
class ExactBlock
{
public:
    explicit ExactBlock(const std::string& octets)
        : _octets(new char[octets.size()]),
          _size(octets.size())
    {
        octets.copy(_octets.get(), _size);
    }

    const char* data() const { return _octets.get(); }
    std::size_t size() const { return _size; }

private:
    std::unique_ptr<char[]> _octets;
    std::size_t _size;
};

#endif // VESK_TESTS_OCTETS_H
