// SPDX-License-Identifier: MIT
#include "DeclaredEntities.h"

namespace Vesk::XML
{
namespace
{
bool isPredefined(std::string_view name)
{
    return name == "lt" || name == "gt" || name == "amp" || name == "apos" || name == "quot";
}
} // namespace

void DeclaredEntities::clear()
{
    _texts.clear();
    _checked.clear();
}

void DeclaredEntities::declare(const XMLString& name, const XMLString& text)
{
    _texts.emplace(name, text);
}

XMLString DeclaredEntities::findUndeclared(std::string_view text)
{
    for (std::size_t begin = text.find('&'); begin != std::string_view::npos; begin = text.find('&', begin + 1))
    {
        const std::string_view name = text.substr(begin + 1, text.find(';', begin) - begin - 1);
        if (name.empty() || name.front() == '#' || isPredefined(name) || _checked.count(name) > 0)
            continue;
        const auto declared = _texts.find(name);
        if (declared == _texts.end())
            return XMLString(name);
        _checked.emplace(name); // beforehand, as entities may refer to themselves until one is used
        const XMLString undeclared = findUndeclared(declared->second);
        if (!undeclared.empty())
        {
            _checked.erase(declared->first);
            return undeclared;
        }
    }
    return XMLString();
}
} // namespace Vesk::XML
