// SPDX-License-Identifier: MIT
#ifndef VESKFI_COLUMNS_H
#define VESKFI_COLUMNS_H

#include <cstddef>
#include <string>

namespace Vesk::Tool
{

/// The text, followed or preceded by blanks to so many columns. Longer text stays as it is.
std::string padded(std::string text, std::size_t columns);
std::string rightAligned(const std::string& text, std::size_t columns);

/// "1,016,601"
std::string grouped(long number);

} // namespace Vesk::Tool

#endif // VESKFI_COLUMNS_H
