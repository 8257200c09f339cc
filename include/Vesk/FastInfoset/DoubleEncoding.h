// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_DOUBLEENCODING_H
#define VESK_FASTINFOSET_DOUBLEENCODING_H

#include "Vesk/FastInfoset/NumericEncoding.h"

namespace Vesk::FastInfoset
{

/// Floating-point numbers of 64 bits, encoding algorithm 8.
///
/// Text has the shortest digits that read back to the same double, and an exponent for numbers outside 1e-15 to 1e15.
/// Not-a-number is "NaN" whatever its payload; the infinities are "INF" and "-INF".
class VESK_FASTINFOSET_API DoubleEncoding : public NumericEncoding<DoubleEncoding, double>
{
public:
    /// The index of the algorithm.
    static constexpr int TYPE = 8;

    using NumericEncoding::NumericEncoding;

    int type() const override;

private:
    friend TypedEncoding;
    friend NumericEncoding;

    static constexpr const char* NAME = "DoubleEncoding";
    static constexpr const char* VALUE_NAME = "double";
    static constexpr const char* SIZE_MESSAGE = "Illegal size entry for double value";

    static bool parseValue(std::string_view token, double& value);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_DOUBLEENCODING_H
