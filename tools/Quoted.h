// SPDX-License-Identifier: MIT
#ifndef VESKFI_QUOTED_H
#define VESKFI_QUOTED_H

#include <cstddef>
#include <limits>
#include <ostream>
#include <string>

namespace Vesk::Tool
{

/// For what shows all of a text.
constexpr std::size_t ALL_CHARACTERS = std::numeric_limits<std::size_t>::max();

/// A text of a document as it can be shown in one line of any terminal: characters that control it, or the direction of
/// writing, are escaped, and so are octets that are no UTF-8. Behind maxCharacters characters "..." stands for the rest.
/// Backslashes stay, so that a message may take in what is shown already.
std::string shown(const std::string& text, std::size_t maxCharacters);

/// The same between quotation marks; those within the text are escaped, and so are backslashes.
std::string quoted(const std::string& text, std::size_t maxCharacters);

/// Writes the text as a JSON string, quotation marks included, with the same characters escaped. Octets that are no
/// UTF-8 become U+FFFD.
void writeJSON(std::ostream& output, const std::string& text);

} // namespace Vesk::Tool

#endif // VESKFI_QUOTED_H
