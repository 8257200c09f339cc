// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/NullRefEncoding.h"
#include "Vesk/Bugcheck.h"

namespace Vesk::FastInfoset
{

namespace
{

const char IMMUTABLE[] = "NullRefEncoding is immutable";

} // namespace

NullRefEncoding::NullRefEncoding(const std::string& text)
    : _data(&text)
{
}

void NullRefEncoding::refer(const std::string* text)
{
    _data = text;
}

bool NullRefEncoding::merge(const Encoding&)
{
    throw InvalidAccessException(IMMUTABLE);
}

void NullRefEncoding::handle(XML::ContentHandler* handler) const
{
    characters(handler, content());
}

const std::string& NullRefEncoding::content() const
{
    if (!_data)
        Bugcheck::nullPointer("_data", "include/Vesk/FastInfoset/NullRefEncoding", __LINE__);
    return *_data;
}

std::string& NullRefEncoding::content()
{
    throw InvalidAccessException(IMMUTABLE);
}

} // namespace Vesk::FastInfoset
