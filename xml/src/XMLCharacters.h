// SPDX-License-Identifier: MIT
#ifndef VESK_XML_XMLCHARACTERS_H
#define VESK_XML_XMLCHARACTERS_H

#include <cstddef>
#include <string_view>

namespace Vesk::XML
{
/// Which characters XML 1.0 (fifth edition) allows where.
class XMLCharacters
{
public:
    XMLCharacters() = delete;

    /// The number of octets (2 to 4) of the character beyond ASCII that the text starts with. Throws SAXException if it
    /// is not well-formed UTF-8 or not allowed in XML.
    static std::size_t octetsOfCharacter(std::string_view text);

    /// True if the text is a name without colon.
    static bool isNCName(std::string_view text);

    [[noreturn]] static void throwNotAllowed(char32_t character);
};
} // namespace Vesk::XML

#endif // VESK_XML_XMLCHARACTERS_H
