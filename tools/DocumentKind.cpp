// SPDX-License-Identifier: MIT
#include "DocumentKind.h"

namespace Vesk::Tool
{

namespace
{

// Identification and version (X.891 clause 12.6 and 12.7).
constexpr std::string_view IDENTIFICATION("\xE0\x00\x00\x01", 4);
constexpr std::string_view XML_DECLARATION = "<?xml ";
constexpr std::string_view FINF_ENCODING = "encoding='finf'";

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

} // namespace

DocumentKind kindOf(std::string_view start)
{
    static constexpr std::string_view BYTE_ORDER_MARKS[] = {"\xEF\xBB\xBF", "\xFE\xFF", "\xFF\xFE"};

    if (startsWith(start, IDENTIFICATION))
        return DocumentKind::FAST_INFOSET;
    if (startsWith(start, XML_DECLARATION) &&
        start.substr(0, start.find("?>")).find(FINF_ENCODING) != std::string_view::npos)
        return DocumentKind::FAST_INFOSET;
    for (const std::string_view mark : BYTE_ORDER_MARKS)
    {
        if (startsWith(start, mark))
            return DocumentKind::XML;
    }
    // Zero octets are one half of what UTF-16 makes of these characters.
    const std::string_view::size_type first = start.find_first_not_of(std::string_view(" \t\r\n\0", 5));
    return first != std::string_view::npos && start[first] == '<' ? DocumentKind::XML : DocumentKind::UNKNOWN;
}

} // namespace Vesk::Tool
