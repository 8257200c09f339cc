// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/NullEncoding.h"
#include "EncodedSize.h"
#include "Vesk/FastInfoset/Decoder.h"
#include "Vesk/FastInfoset/Encoder.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FISEncodingException.h"

namespace Vesk::FastInfoset
{

NullEncoding::NullEncoding()
{
    Encoding::content().reserve(1024);
}

NullEncoding::NullEncoding(const std::string& text)
{
    if (text.empty())
        throw FISEncodingException("Illegal empty string for NullEncoding");
    Encoding::content() = text;
}

NullEncoding::NullEncoding(const char* text, int octetCount)
    : NullEncoding(std::string(text, static_cast<std::size_t>(octetCount)))
{
}

AutoPtr<Encoding> NullEncoding::decode(BitStreamReader& reader)
{
    AutoPtr<Encoding> encoding(new NullEncoding);
    decode(reader, encoding->content());
    return encoding;
}

void NullEncoding::decode(BitStreamReader& reader, std::string& text)
{
    Decoder::nonEmptyOctetString(reader, text);
}

int NullEncoding::check(const std::string& text)
{
    return encodedSize(text.size());
}

void NullEncoding::encode(BitStreamWriter& writer, const std::string& text)
{
    Encoder::nonEmptyOctetString(writer, text);
}

int NullEncoding::type() const
{
    return TYPE;
}

bool NullEncoding::merge(const Encoding& other)
{
    if (other.type() != type())
        return false;
    Encoding::content() += other.content();
    return true;
}

void NullEncoding::write(BitStreamWriter& writer) const
{
    Encoder::nonEmptyOctetString(writer, Encoding::content());
}

Encoding::DecodeMethod NullEncoding::decodeMethod() const
{
    return &NullEncoding::decode;
}

Encoding::CheckMethod NullEncoding::checkMethod() const
{
    return &NullEncoding::check;
}

Encoding::EncodeMethod NullEncoding::encodeMethod() const
{
    return &NullEncoding::encode;
}

void NullEncoding::handle(FISContentHandler* handler) const
{
    characters(handler, Encoding::content());
}

void NullEncoding::createContent()
{
}

} // namespace Vesk::FastInfoset
