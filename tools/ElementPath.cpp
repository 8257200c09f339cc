// SPDX-License-Identifier: MIT
#include "ElementPath.h"
#include "FormatNames.h"
#include "Quoted.h"

namespace Vesk::Tool
{

using FastInfoset::StructureObserver;

namespace
{

// A path is for people: of deeper ones the outer and inner ends are enough.
constexpr std::size_t MAX_NAME_CHARACTERS = 60;
constexpr std::size_t OUTER_STEPS = 8;
constexpr std::size_t INNER_STEPS = 16;

std::string shownName(const FastInfoset::ResolvedQualName& name)
{
    return shown(qualifiedName(name), MAX_NAME_CHARACTERS);
}

} // namespace

void ElementPath::startStructure(Structure structure)
{
    if (structure == Structure::ELEMENT)
        _elements.emplace_back();
}

void ElementPath::part(const Part& part)
{
    if (part.kind != Part::NAME || !part.name || _elements.empty())
        return;
    if (part.table == StructureObserver::Table::ATTRIBUTE_NAME)
    {
        _attribute = *part.name;
        return;
    }
    OpenElement& element = _elements.back();
    element.name = *part.name;
    if (_elements.size() > 1)
        element.number = ++_elements[_elements.size() - 2].children[part.index];
}

void ElementPath::endStructure(Structure structure)
{
    if (structure == Structure::ELEMENT)
        _elements.pop_back();
    else if (structure == Structure::ATTRIBUTE)
        _attribute = FastInfoset::ResolvedQualName();
}

std::string ElementPath::text() const
{
    std::string path;
    for (std::size_t i = 0; i < _elements.size(); ++i)
    {
        if (i == OUTER_STEPS && _elements.size() > OUTER_STEPS + INNER_STEPS)
        {
            path += "/...";
            i = _elements.size() - INNER_STEPS;
        }
        if (_elements[i].name.localName->empty())
            continue; // the innermost one, whose name has not been read yet
        path += '/' + shownName(_elements[i].name);
        if (i > 0)
            path += '[' + std::to_string(_elements[i].number) + ']';
    }
    if (!_attribute.localName->empty())
        path += "/@" + shownName(_attribute);
    return path.empty() ? "/" : path;
}

std::string ElementPath::elementName() const
{
    return _elements.empty() ? std::string() : qualifiedName(_elements.back().name);
}

} // namespace Vesk::Tool
