// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/CDataEncoding.h"
#include "ContentEncodingImpl.h"

namespace Vesk::FastInfoset
{

template class ContentEncoding<CDataEncoding>;

CDataEncoding::CDataEncoding(const std::string& text)
{
    if (text.empty())
        throw FISEncodingException("Illegal empty string for CDataEncoding");
    Encoding::content() = text;
}

CDataEncoding::CDataEncoding(const char* text, int octetCount)
    : CDataEncoding(std::string(text, static_cast<std::size_t>(octetCount)))
{
}

void CDataEncoding::decode(BitStreamReader& reader, std::string& text)
{
    Decoder::nonEmptyOctetString(reader, text);
}

int CDataEncoding::check(const std::string& text)
{
    return encodedSize(text.size());
}

int CDataEncoding::type() const
{
    return TYPE;
}

void CDataEncoding::handle(FISContentHandler* handler) const
{
    characters(handler, content());
}

} // namespace Vesk::FastInfoset
