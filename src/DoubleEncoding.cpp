// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/DoubleEncoding.h"
#include "NumericEncodingImpl.h"

namespace Vesk::FastInfoset
{

template class TypedEncoding<DoubleEncoding, double>;
template class NumericEncoding<DoubleEncoding, double>;

int DoubleEncoding::type() const
{
    return TYPE;
}

bool DoubleEncoding::parseValue(std::string_view token, double& value)
{
    return parseNumber(token, value);
}

} // namespace Vesk::FastInfoset
