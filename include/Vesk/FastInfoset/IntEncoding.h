// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_INTENCODING_H
#define VESK_FASTINFOSET_INTENCODING_H

#include "Vesk/FastInfoset/NumericEncoding.h"

namespace Vesk::FastInfoset
{

/// Numbers of 32 bits, encoding algorithm 4.
class VESK_FASTINFOSET_API IntEncoding : public NumericEncoding<IntEncoding, int>
{
public:
    /// The index of the algorithm.
    static constexpr int TYPE = 4;

    using NumericEncoding::decode;
    using NumericEncoding::NumericEncoding;

    /// As in the other classes, but a length that is no multiple of 4 throws FISException instead of
    /// FISEncodingException.
    static void decode(BitStreamReader& reader, std::string& text);

    int type() const override;

private:
    friend TypedEncoding;
    friend NumericEncoding;

    static constexpr const char* NAME = "IntEncoding";
    static constexpr const char* VALUE_NAME = "int";
    static constexpr const char* SIZE_MESSAGE = "Illegal size entry for Vesk::Int32 value";

    static bool parseValue(std::string_view token, int& value);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_INTENCODING_H
