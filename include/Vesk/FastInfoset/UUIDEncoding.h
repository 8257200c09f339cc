// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_UUIDENCODING_H
#define VESK_FASTINFOSET_UUIDENCODING_H

#include "Vesk/FastInfoset/TypedEncoding.h"
#include "Vesk/UUID.h"
#include <cstddef>

namespace Vesk::FastInfoset
{

/// UUIDs, encoding algorithm 9: 16 octets each.
///
/// The text of a UUID has upper-case digits in groups of 8, 4, 4, 4 and 12. Text with lower-case digits is refused;
/// 32 upper-case digits without "-" are accepted and come back with them.
class VESK_FASTINFOSET_API UUIDEncoding : public TypedEncoding<UUIDEncoding, UUID>
{
public:
    /// The index of the algorithm.
    static constexpr int TYPE = 9;

    using TypedEncoding::TypedEncoding;

    int type() const override;

private:
    friend TypedEncoding;

    static constexpr const char* NAME = "UUIDEncoding";

    static bool parseValue(std::string_view token, UUID& value);
    static void appendValue(std::string& text, const UUID& value);
    static std::size_t octetCount(std::size_t valueCount);
    static void readValues(BitStreamReader& reader, std::vector<UUID>& values);
    static void writeValues(BitStreamWriter& writer, const std::vector<UUID>& values);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_UUIDENCODING_H
