// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/StringDecoder.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/RestrictedAlphabet.h"
#include "Vesk/TextConverter.h"
#include "Vesk/UTF16Encoding.h"
#include "Vesk/UTF8Encoding.h"
#include <cstdint>

namespace Vesk::FastInfoset
{

void StringDecoder::decodeUTF16(const std::string& utf16, std::string& utf8)
{
    const UTF16Encoding from;
    const UTF8Encoding to;
    TextConverter(from, to).convert(utf16, utf8);
}

void StringDecoder::decodeAlphabet(const std::string& octets, const RestrictedAlphabet& alphabet, std::string& text)
{
    text.clear();
    const int codeBits = alphabet.bitsPerCharacter();
    if (codeBits == 0)
        throw FISEncodingException("Restricted alphabet without characters");
    text.reserve((8 * octets.size() + 8) / static_cast<std::size_t>(codeBits));

    const std::vector<int>& codePoints = alphabet.codePoints();
    const UTF8Encoding utf8;
    char character[UTF8Encoding::MAX_OCTETS];
    const std::size_t endCode = codePoints.size() - 1;
    const std::uint64_t codeMask = (std::uint64_t(1) << codeBits) - 1;
    std::uint64_t pending = 0; // the last octets; fewer than codeBits of their bits (at most 31) are still to be used
    int pendingBits = 0;
    for (const char octet : octets)
    {
        pending = (pending << 8) | static_cast<unsigned char>(octet);
        for (pendingBits += 8; pendingBits >= codeBits; pendingBits -= codeBits)
        {
            const std::size_t code = (pending >> (pendingBits - codeBits)) & codeMask;
            if (code == endCode)
                return;
            text.append(character, utf8.encode(codePoints[code], character));
        }
    }
}

} // namespace Vesk::FastInfoset
