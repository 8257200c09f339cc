// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/CDataEncoding.h"
#include "EncodedSize.h"
#include "Vesk/FastInfoset/Decoder.h"
#include "Vesk/FastInfoset/Encoder.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FISEncodingException.h"

namespace Vesk::FastInfoset
{

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

AutoPtr<Encoding> CDataEncoding::decode(BitStreamReader& reader)
{
    std::string text;
    decode(reader, text);
    return new CDataEncoding(text);
}

void CDataEncoding::decode(BitStreamReader& reader, std::string& text)
{
    Decoder::nonEmptyOctetString(reader, text);
}

int CDataEncoding::check(const std::string& text)
{
    return encodedSize(text.size());
}

void CDataEncoding::encode(BitStreamWriter& writer, const std::string& text)
{
    CDataEncoding(text).write(writer);
}

int CDataEncoding::type() const
{
    return TYPE;
}

bool CDataEncoding::merge(const Encoding& other)
{
    if (other.type() != type())
        return false;
    Encoding::content() += other.Encoding::content();
    return true;
}

void CDataEncoding::write(BitStreamWriter& writer) const
{
    Encoder::nonEmptyOctetString(writer, Encoding::content());
}

Encoding::DecodeMethod CDataEncoding::decodeMethod() const
{
    return &CDataEncoding::decode;
}

Encoding::CheckMethod CDataEncoding::checkMethod() const
{
    return &CDataEncoding::check;
}

Encoding::EncodeMethod CDataEncoding::encodeMethod() const
{
    return &CDataEncoding::encode;
}

void CDataEncoding::handle(FISContentHandler* handler) const
{
    characters(handler, Encoding::content());
}

void CDataEncoding::createContent()
{
}

} // namespace Vesk::FastInfoset
