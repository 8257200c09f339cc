// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/FloatEncoding.h"
#include "NumericEncodingImpl.h"

namespace Vesk::FastInfoset
{

template class TypedEncoding<FloatEncoding, float>;
template class NumericEncoding<FloatEncoding, float>;

int FloatEncoding::type() const
{
    return TYPE;
}

// Only what is certainly a float: in the range of positive normal numbers. The token has the form that a double prints,
// so a text of more digits than a float holds is rounded.
bool FloatEncoding::parseValue(std::string_view token, float& value)
{
    double number = 0;
    if (!parseNumber(token, number) || number < std::numeric_limits<float>::min() ||
        !(number <= std::numeric_limits<float>::max()))
        return false;
    value = static_cast<float>(number);
    return true;
}

} // namespace Vesk::FastInfoset
