// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_BINARYENCODINGIMPL_H
#define VESK_FASTINFOSET_BINARYENCODINGIMPL_H

#include "ContentEncodingImpl.h"
#include "PrimitiveCode.h"
#include "Vesk/FastInfoset/BinaryEncoding.h"
#include "Vesk/MemoryInputStream.h"
#include <sstream>

// The members of BinaryEncoding, for the sources that instantiate it. A derived class supplies, as static members, the
// messages EMPTY_MESSAGE and BAD_TEXT_MESSAGE.

namespace Vesk::FastInfoset
{

/// Appends the octets whose digits the text is. Returns false if it is malformed or holds none.
template <class TextDecoder>
bool appendOctets(const std::string& text, std::string& octets)
{
    MemoryInputStream source(text.data(), text.size());
    TextDecoder decoder(source);
    char block[4096];
    do
    {
        decoder.read(block, sizeof(block));
        octets.append(block, static_cast<std::size_t>(decoder.gcount()));
    } while (decoder);
    return decoder.eof() && !decoder.bad() && !octets.empty();
}

template <class Class, class TextEncoder, class TextDecoder>
BinaryEncoding<Class, TextEncoder, TextDecoder>::BinaryEncoding(const char* data, std::size_t octetCount)
{
    if (octetCount == 0)
        throw FISEncodingException(Class::EMPTY_MESSAGE);
    Encoding::content().assign(data, octetCount);
}

template <class Class, class TextEncoder, class TextDecoder>
BinaryEncoding<Class, TextEncoder, TextDecoder>::BinaryEncoding(const std::string& text)
{
    if (text.empty())
        throw FISEncodingException(Class::EMPTY_MESSAGE);
    Encoding::content().reserve(text.size());
    if (!appendOctets<TextDecoder>(text, Encoding::content()))
        throw FISEncodingException(Class::BAD_TEXT_MESSAGE);
}

template <class Class, class TextEncoder, class TextDecoder>
int BinaryEncoding<Class, TextEncoder, TextDecoder>::check(const std::string& text)
{
    std::string octets;
    return appendOctets<TextDecoder>(text, octets) ? encodedSize(octets.size()) : -1;
}

template <class Class, class TextEncoder, class TextDecoder>
void BinaryEncoding<Class, TextEncoder, TextDecoder>::decode(const std::string& octets, std::string& text)
{
    std::ostringstream target;
    TextEncoder encoder(target);
    encoder.setLineLength(0);
    encoder.write(octets.data(), static_cast<std::streamsize>(octets.size()));
    encoder.close();
    text = target.str();
}

template <class Class, class TextEncoder, class TextDecoder>
void BinaryEncoding<Class, TextEncoder, TextDecoder>::decode(BitStreamReader& reader, std::string& text)
{
    std::string octets;
    Decoder::nonEmptyOctetString(reader, octets);
    decode(octets, text);
}

template <class Class, class TextEncoder, class TextDecoder>
void BinaryEncoding<Class, TextEncoder, TextDecoder>::deliver(BitStreamReader& reader, FISContentHandler& handler)
{
    unsigned long octetCount = 0;
    Decoder::nonEmptyStringLength(reader, octetCount);
    if (const char* const octets = reader.takeOctets(octetCount))
    {
        handler.binaryData(octets, octetCount);
        return;
    }
    std::string octets;
    if (!reader.read(octets, octetCount))
        PrimitiveCode::throwEndOfString(reader);
    handler.binaryData(octets.data(), octets.size());
}

template <class Class, class TextEncoder, class TextDecoder>
void BinaryEncoding<Class, TextEncoder, TextDecoder>::handle(XML::ContentHandler* handler) const
{
    if (!handler)
        return;
    std::string digits;
    text(digits);
    Encoding::characters(handler, digits);
}

template <class Class, class TextEncoder, class TextDecoder>
void BinaryEncoding<Class, TextEncoder, TextDecoder>::handle(FISContentHandler* handler) const
{
    if (handler)
        handler->binaryData(Encoding::content().data(), Encoding::content().size());
}

template <class Class, class TextEncoder, class TextDecoder>
void BinaryEncoding<Class, TextEncoder, TextDecoder>::text(std::string& text) const
{
    decode(Encoding::content(), text);
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_BINARYENCODINGIMPL_H
