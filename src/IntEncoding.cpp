// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/IntEncoding.h"
#include "NumericEncodingImpl.h"

namespace Vesk::FastInfoset
{

template class TypedEncoding<IntEncoding, int>;
template class NumericEncoding<IntEncoding, int>;

int IntEncoding::type() const
{
    return TYPE;
}

// Callers tell the two readers of ill-sized values apart by the exception's type.
void IntEncoding::decode(BitStreamReader& reader, std::string& text)
{
    std::vector<int> values;
    readValuesOrThrow<FISException>(reader, values);
    toText(values, text);
}

bool IntEncoding::parseValue(std::string_view token, int& value)
{
    return parseInteger(token, value);
}

} // namespace Vesk::FastInfoset
