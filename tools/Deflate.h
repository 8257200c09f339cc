// SPDX-License-Identifier: MIT
#ifndef VESKFI_DEFLATE_H
#define VESKFI_DEFLATE_H

#include <cstdint>
#include <string_view>

namespace Vesk::Tool
{

/// How many octets zlib makes of these with deflate (RFC 1951) at its default level.
std::uint64_t deflatedSize(std::string_view octets);

} // namespace Vesk::Tool

#endif // VESKFI_DEFLATE_H
