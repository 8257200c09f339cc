// SPDX-License-Identifier: MIT
#ifndef VESK_UUID_H
#define VESK_UUID_H

#include "Vesk/Foundation.h"
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace Vesk
{

/// A universally unique identifier: 16 octets in the order in which their digits are written.
///
/// A plain value: cheap to copy, ordered octet by octet.
class VESK_FOUNDATION_API UUID
{
public:
    /// All 16, in order.
    using Octets = std::array<std::uint8_t, 16>;

    /// All octets 0.
    UUID() noexcept = default;
    explicit UUID(const Octets& octets) noexcept
        : _octets(octets)
    {
    }
    /// Reads 32 hexadecimal digits in any case, either without anything else or joined by "-" in groups of 8, 4, 4, 4
    /// and 12. Throws SyntaxException for any other text.
    explicit UUID(const std::string& text);

    /// As the constructor, but returns false for a text that is no UUID and leaves uuid as it was.
    static bool tryParse(std::string_view text, UUID& uuid);

    /// 36 characters, groups of 8, 4, 4, 4 and 12 digits, lower case.
    std::string toString() const;
    const Octets& octets() const noexcept { return _octets; }

    /// Compares octet by octet.
    bool operator==(const UUID& other) const noexcept { return _octets == other._octets; }
    bool operator!=(const UUID& other) const noexcept { return _octets != other._octets; }
    bool operator<(const UUID& other) const noexcept { return _octets < other._octets; }

private:
    Octets _octets{};
};

} // namespace Vesk

#endif // VESK_UUID_H
