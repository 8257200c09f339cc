// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/LongEncoding.h"
#include "NumericEncodingImpl.h"

namespace Vesk::FastInfoset
{

template class TypedEncoding<LongEncoding, long>;
template class NumericEncoding<LongEncoding, long>;

int LongEncoding::type() const
{
    return TYPE;
}

bool LongEncoding::parseValue(std::string_view token, long& value)
{
    return parseInteger(token, value);
}

} // namespace Vesk::FastInfoset
