// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/NullEncoding.h"
#include "ContentEncodingImpl.h"

namespace Vesk::FastInfoset
{

template class ContentEncoding<NullEncoding>;

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

void NullEncoding::handle(FISContentHandler* handler) const
{
    characters(handler, content());
}

} // namespace Vesk::FastInfoset
