// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_CONTENTENCODINGIMPL_H
#define VESK_FASTINFOSET_CONTENTENCODINGIMPL_H

#include "EncodedSize.h"
#include "Vesk/FastInfoset/ContentEncoding.h"
#include "Vesk/FastInfoset/Decoder.h"
#include "Vesk/FastInfoset/Encoder.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FISEncodingException.h"

// The members of ContentEncoding, for the sources that instantiate it. A derived class supplies check(), a constructor
// from text and one without arguments.

namespace Vesk::FastInfoset
{

template <class Class>
void ContentEncoding<Class>::encode(BitStreamWriter& writer, const std::string& text)
{
    Class(text).write(writer);
}

template <class Class>
AutoPtr<Encoding> ContentEncoding<Class>::decode(BitStreamReader& reader)
{
    AutoPtr<Encoding> encoding(new Class);
    Decoder::nonEmptyOctetString(reader, encoding->content());
    return encoding;
}

template <class Class>
bool ContentEncoding<Class>::merge(const Encoding& other)
{
    if (other.type() != type())
        return false;
    Encoding::content() += other.content();
    return true;
}

template <class Class>
void ContentEncoding<Class>::write(BitStreamWriter& writer) const
{
    Encoder::nonEmptyOctetString(writer, content());
}

template <class Class>
Encoding::DecodeMethod ContentEncoding<Class>::decodeMethod() const
{
    return &Class::decode;
}

template <class Class>
Encoding::CheckMethod ContentEncoding<Class>::checkMethod() const
{
    return &Class::check;
}

template <class Class>
Encoding::EncodeMethod ContentEncoding<Class>::encodeMethod() const
{
    return &Class::encode;
}

template <class Class>
void ContentEncoding<Class>::createContent()
{
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_CONTENTENCODINGIMPL_H
