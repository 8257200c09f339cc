// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_TYPEDENCODINGIMPL_H
#define VESK_FASTINFOSET_TYPEDENCODINGIMPL_H

#include "EncodedSize.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/TypedEncoding.h"
#include <algorithm>
#include <utility>

// The members of TypedEncoding, for the sources that instantiate it. A derived class supplies, as static members:
//
//   NAME                             of the class, for messages
//   parseValue(token, value)         false if the token is not the value's own text
//   appendValue(text, value)
//   octetCount(valueCount)           what check() reports
//   readValues(reader, values)       length and octets; values are empty before
//   writeValues(writer, values)      length and octets

namespace Vesk::FastInfoset
{

template <class Class, typename Value>
TypedEncoding<Class, Value>::TypedEncoding(const Value& value)
    : _values(1, value)
{
}

template <class Class, typename Value>
TypedEncoding<Class, Value>::TypedEncoding(std::vector<Value> values)
    : _values(std::move(values))
{
    if (_values.empty())
        throw FISEncodingException(std::string("Illegal (empty) data for ") + Class::NAME);
}

template <class Class, typename Value>
TypedEncoding<Class, Value>::TypedEncoding(const std::string& text)
{
    if (text.empty())
        throw FISEncodingException(std::string("Illegal (empty) data for ") + Class::NAME);
    parse(text, _values);
    if (_values.empty())
        throw FISEncodingException(std::string("Illegal value string for ") + Class::NAME);
}

template <class Class, typename Value>
void TypedEncoding<Class, Value>::parse(const std::string& text, std::vector<Value>& values)
{
    values.clear();
    const std::string_view whole(text);
    std::size_t begin = 0;
    std::size_t end = 0;
    do
    {
        end = std::min(whole.find(' ', begin), whole.size());
        Value value{};
        if (!Class::parseValue(whole.substr(begin, end - begin), value))
        {
            values.clear();
            return;
        }
        values.push_back(value);
        begin = end + 1;
    } while (end < text.size());
}

template <class Class, typename Value>
int TypedEncoding<Class, Value>::check(const std::string& text)
{
    std::vector<Value> values;
    parse(text, values);
    return encodedSize(Class::octetCount(values.size()));
}

template <class Class, typename Value>
void TypedEncoding<Class, Value>::encode(BitStreamWriter& writer, const std::string& text)
{
    Class(text).write(writer);
}

template <class Class, typename Value>
void TypedEncoding<Class, Value>::decode(BitStreamReader& reader, std::vector<Value>& values)
{
    values.clear();
    Class::readValues(reader, values);
}

template <class Class, typename Value>
void TypedEncoding<Class, Value>::decode(BitStreamReader& reader, std::string& text)
{
    std::vector<Value> values;
    Class::readValues(reader, values);
    toText(values, text);
}

template <class Class, typename Value>
AutoPtr<Encoding> TypedEncoding<Class, Value>::decode(BitStreamReader& reader)
{
    std::vector<Value> values;
    Class::readValues(reader, values);
    AutoPtr<Encoding> encoding(new Class(std::move(values)));
    encoding->createContent();
    return encoding;
}

template <class Class, typename Value>
bool TypedEncoding<Class, Value>::merge(const Encoding& other)
{
    if (other.type() != this->type())
        return false;
    // The content string keeps the text of the values so far.
    this->materializeContent();
    const std::vector<Value>& values = static_cast<const TypedEncoding&>(other)._values;
    const std::size_t count = values.size();
    const std::size_t oldCount = _values.size();
    // In two steps, which also hold when an object is merged with itself.
    _values.resize(oldCount + count);
    std::copy_n(values.begin(), count, _values.begin() + static_cast<std::ptrdiff_t>(oldCount));
    return true;
}

template <class Class, typename Value>
void TypedEncoding<Class, Value>::write(BitStreamWriter& writer) const
{
    Class::writeValues(writer, _values);
}

template <class Class, typename Value>
Encoding::DecodeMethod TypedEncoding<Class, Value>::decodeMethod() const
{
    return &Class::decode;
}

template <class Class, typename Value>
Encoding::CheckMethod TypedEncoding<Class, Value>::checkMethod() const
{
    return &Class::check;
}

template <class Class, typename Value>
Encoding::EncodeMethod TypedEncoding<Class, Value>::encodeMethod() const
{
    return &Class::encode;
}

template <class Class, typename Value>
void TypedEncoding<Class, Value>::handle(FISContentHandler* handler) const
{
    if (!handler)
        return;
    for (const Value value : _values)
        handler->encodedData(value);
}

template <class Class, typename Value>
void TypedEncoding<Class, Value>::createContent()
{
    this->requireContent();
}

template <class Class, typename Value>
void TypedEncoding<Class, Value>::text(std::string& text) const
{
    toText(_values, text);
}

template <class Class, typename Value>
void TypedEncoding<Class, Value>::toText(const std::vector<Value>& values, std::string& text)
{
    text.clear();
    for (const Value value : values)
    {
        if (!text.empty())
            text += ' ';
        Class::appendValue(text, value);
    }
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_TYPEDENCODINGIMPL_H
