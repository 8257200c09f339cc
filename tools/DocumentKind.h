// SPDX-License-Identifier: MIT
#ifndef VESKFI_DOCUMENTKIND_H
#define VESKFI_DOCUMENTKIND_H

#include <string_view>

namespace Vesk::Tool
{

/// What a document looks like by its first octets.
enum class DocumentKind
{
    XML, ///< text in any encoding
    FAST_INFOSET,
    UNKNOWN
};

/// The more octets the better; a few hundred are enough.
DocumentKind kindOf(std::string_view start);

} // namespace Vesk::Tool

#endif // VESKFI_DOCUMENTKIND_H
