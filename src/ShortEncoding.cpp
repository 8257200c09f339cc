// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/ShortEncoding.h"
#include "NumericEncodingImpl.h"

namespace Vesk::FastInfoset
{

template class TypedEncoding<ShortEncoding, short>;
template class NumericEncoding<ShortEncoding, short>;

int ShortEncoding::type() const
{
    return TYPE;
}

bool ShortEncoding::parseValue(std::string_view token, short& value)
{
    return parseInteger(token, value);
}

} // namespace Vesk::FastInfoset
