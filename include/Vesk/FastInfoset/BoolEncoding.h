// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_BOOLENCODING_H
#define VESK_FASTINFOSET_BOOLENCODING_H

#include "Vesk/FastInfoset/TypedEncoding.h"
#include <cstddef>

namespace Vesk::FastInfoset
{

/// Booleans, encoding algorithm 6: four bits that count the unused bits at the end, one bit a value, and as many zero
/// bits as complete the last octet.
///
/// The texts of the values are "true" and "false" and no others.
class VESK_FASTINFOSET_API BoolEncoding : public TypedEncoding<BoolEncoding, bool>
{
public:
    /// The index of the algorithm.
    static constexpr int TYPE = 6;

    /// The texts of the values.
    static const std::string VAL_TRUE;
    static const std::string VAL_FALSE;

    using TypedEncoding::TypedEncoding;

    /// Reads the values from text. Without it a literal would be a pointer that turns into a boolean.
    explicit BoolEncoding(const char* text);

    int type() const override;

private:
    friend TypedEncoding;

    static constexpr const char* NAME = "BoolEncoding";

    static bool parseValue(std::string_view token, bool& value);
    static void appendValue(std::string& text, bool value);
    static std::size_t octetCount(std::size_t valueCount);
    static void readValues(BitStreamReader& reader, std::vector<bool>& values);
    static void writeValues(BitStreamWriter& writer, const std::vector<bool>& values);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_BOOLENCODING_H
