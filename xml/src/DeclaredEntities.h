// SPDX-License-Identifier: MIT
#ifndef VESK_XML_DECLAREDENTITIES_H
#define VESK_XML_DECLAREDENTITIES_H

#include "Vesk/XML/XMLString.h"
#include <map>
#include <set>
#include <string_view>

namespace Vesk::XML
{
/// The internal general entities of a document, to find out which references have no declaration.
class DeclaredEntities
{
public:
    void clear();

    /// Takes the first of several declarations of a name, as XML demands.
    void declare(const XMLString& name, const XMLString& text);

    /// The name of the first entity without a declaration that a text refers to, directly or through the texts of
    /// others; empty if there is none. Predefined entities are declared, character references are none.
    XMLString findUndeclared(std::string_view text);

private:
    std::map<XMLString, XMLString, std::less<>> _texts; // by name
    std::set<XMLString, std::less<>> _checked;          // those whose texts have been looked through
};
} // namespace Vesk::XML

#endif // VESK_XML_DECLAREDENTITIES_H
