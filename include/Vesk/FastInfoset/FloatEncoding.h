// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_FLOATENCODING_H
#define VESK_FASTINFOSET_FLOATENCODING_H

#include "Vesk/FastInfoset/NumericEncoding.h"

namespace Vesk::FastInfoset
{

/// Floating-point numbers of 32 bits, encoding algorithm 7.
///
/// Text is accepted for positive normal numbers only, in the spelling that DoubleEncoding accepts. It is printed with
/// the shortest digits that read back to the same float, and with an exponent for numbers outside 1e-6 to 1e6, so that
/// text of large or small numbers, or with more digits than a float holds, comes back in another spelling.
class VESK_FASTINFOSET_API FloatEncoding : public NumericEncoding<FloatEncoding, float>
{
public:
    /// The index of the algorithm.
    static constexpr int TYPE = 7;

    using NumericEncoding::NumericEncoding;

    int type() const override;

private:
    friend TypedEncoding;
    friend NumericEncoding;

    static constexpr const char* NAME = "FloatEncoding";
    static constexpr const char* VALUE_NAME = "float";
    static constexpr const char* SIZE_MESSAGE = "Illegal size entry for float value";

    static bool parseValue(std::string_view token, float& value);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_FLOATENCODING_H
