// SPDX-License-Identifier: MIT
#ifndef VESKFI_ELEMENTPATH_H
#define VESKFI_ELEMENTPATH_H

#include "Vesk/FastInfoset/StructureObserver.h"
#include <string>
#include <unordered_map>
#include <vector>

namespace Vesk::Tool
{

/// Where in the tree of elements a document is being read. Good until the parser reads another document, since it holds on
/// to names in the parser's tables.
class ElementPath
{
public:
    using Structure = FastInfoset::StructureObserver::Structure;
    using Part = FastInfoset::StructureObserver::Part;

    /// \name To be called with what an observer is told
    /// @{
    void startStructure(Structure structure);
    void part(const Part& part);
    void endStructure(Structure structure);
    /// @}

    /// The open elements, each with its number among its siblings of that name, and the attribute: "/a/b[2]/c[1]/@x".
    /// "/" outside of all elements. Long names and paths are shortened.
    std::string text() const;

    /// The qualified name of the innermost open element, empty where it is not known yet.
    std::string elementName() const;

private:
    struct OpenElement
    {
        FastInfoset::ResolvedQualName name;
        unsigned int number = 1;
        std::unordered_map<unsigned int, unsigned int> children; // how many there were, by index of their name
    };

    std::vector<OpenElement> _elements;
    FastInfoset::ResolvedQualName _attribute;
};

} // namespace Vesk::Tool

#endif // VESKFI_ELEMENTPATH_H
