// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_BINARYENCODING_H
#define VESK_FASTINFOSET_BINARYENCODING_H

#include "Vesk/FastInfoset/ContentEncoding.h"
#include <cstddef>

namespace Vesk::FastInfoset
{

/// What HexEncoding and DWordEncoding have in common: octets of any value, at least one.
///
/// The content string holds the octets. Their text, digits without any line break, is made only when somebody asks for
/// it; which texts are accepted is a matter of TextDecoder: white space between digits is, lower-case hexadecimal
/// digits are, so that a text that is stored as octets may come back in another spelling.
///
/// Class is the encoding that derives from this one; TextEncoder and TextDecoder are its stream classes.
template <class Class, class TextEncoder, class TextDecoder>
class VESK_FASTINFOSET_API BinaryEncoding : public ContentEncoding<Class>
{
public:
    /// No octets yet.
    BinaryEncoding() = default;

    /// Copies the octets. Throws FISEncodingException "Zero-length data for ... encoding" if there are none.
    BinaryEncoding(const char* data, std::size_t octetCount);

    /// Reads the octets from their digits. Throws FISEncodingException: as above for the empty text,
    /// "Invalid ...-encoded data" for one that is malformed or holds no octet.
    explicit BinaryEncoding(const std::string& text);

    /// The number of octets whose digits the text is, -1 if it is empty, malformed or holds no octet.
    static int check(const std::string& text);

    using ContentEncoding<Class>::decode;

    /// Replaces text with the digits of the octets.
    static void decode(const std::string& octets, std::string& text);

    /// Reads octets, length first, and replaces text with their digits.
    static void decode(BitStreamReader& reader, std::string& text);

    /// Reads octets, length first, and delivers them in one binaryData call, without making an object.
    static void deliver(BitStreamReader& reader, FISContentHandler& handler);

    /// Delivers the digits as characters.
    void handle(XML::ContentHandler* handler) const override;

    /// Delivers the octets in one binaryData call.
    void handle(FISContentHandler* handler) const override;

    /// Puts the digits into text.
    void text(std::string& text) const override;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_BINARYENCODING_H
