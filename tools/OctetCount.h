// SPDX-License-Identifier: MIT
#ifndef VESKFI_OCTETCOUNT_H
#define VESKFI_OCTETCOUNT_H

#include <cstdint>
#include <string>

namespace Vesk::Tool
{

/// A number of octets for people: "512 B", "45.2 kB", "1.3 MB", by powers of 1000.
std::string octetText(std::uint64_t octetCount);

/// How much of the whole it is: "38.2 %"; "-" of nothing.
std::string percentText(std::uint64_t part, std::uint64_t whole);

} // namespace Vesk::Tool

#endif // VESKFI_OCTETCOUNT_H
