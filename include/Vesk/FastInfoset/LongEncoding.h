// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_LONGENCODING_H
#define VESK_FASTINFOSET_LONGENCODING_H

#include "Vesk/FastInfoset/NumericEncoding.h"

namespace Vesk::FastInfoset
{

/// Numbers of 64 bits, encoding algorithm 5.
class VESK_FASTINFOSET_API LongEncoding : public NumericEncoding<LongEncoding, long>
{
public:
    /// The index of the algorithm.
    static constexpr int TYPE = 5;

    using NumericEncoding::NumericEncoding;

    int type() const override;

private:
    friend TypedEncoding;
    friend NumericEncoding;

    static constexpr const char* NAME = "LongEncoding";
    static constexpr const char* VALUE_NAME = "long";
    static constexpr const char* SIZE_MESSAGE = "Illegal size entry for Vesk::Int64 value";

    static bool parseValue(std::string_view token, long& value);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_LONGENCODING_H
