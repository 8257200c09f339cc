// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_STRINGDECODER_H
#define VESK_FASTINFOSET_STRINGDECODER_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <string>

namespace Vesk::FastInfoset
{

class RestrictedAlphabet;

/// Turns the octets of character strings that are not UTF-8 into UTF-8.
class VESK_FASTINFOSET_API StringDecoder
{
public:
    StringDecoder() = delete;

    /// Replaces utf8 with the text of big-endian UTF-16 octets. What is ill-formed becomes "?".
    static void decodeUTF16(const std::string& utf16, std::string& utf8);

    /// Replaces text with that of a string in a restricted alphabet (X.891 clause 8.2). Codes have the alphabet's width
    /// and follow one another, most significant bit first; the text ends before the code that equals the number of
    /// characters, or where less than a code is left.
    /// Throws FISEncodingException "Restricted alphabet without characters" if there are none to choose from.
    static void decodeAlphabet(const std::string& octets, const RestrictedAlphabet& alphabet, std::string& text);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_STRINGDECODER_H
