// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_SHORTENCODING_H
#define VESK_FASTINFOSET_SHORTENCODING_H

#include "Vesk/FastInfoset/NumericEncoding.h"

namespace Vesk::FastInfoset
{

/// Numbers of 16 bits, encoding algorithm 3.
class VESK_FASTINFOSET_API ShortEncoding : public NumericEncoding<ShortEncoding, short>
{
public:
    /// The index of the algorithm.
    static constexpr int TYPE = 3;

    using NumericEncoding::NumericEncoding;

    int type() const override;

private:
    friend TypedEncoding;
    friend NumericEncoding;

    static constexpr const char* NAME = "ShortEncoding";
    static constexpr const char* VALUE_NAME = "short";
    static constexpr const char* SIZE_MESSAGE = "Illegal size entry for Vesk::Int16 value";

    static bool parseValue(std::string_view token, short& value);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_SHORTENCODING_H
