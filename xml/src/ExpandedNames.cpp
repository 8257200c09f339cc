// SPDX-License-Identifier: MIT
#include "ExpandedNames.h"

namespace Vesk::XML
{
const ExpandedNames::Entry& ExpandedNames::findOrAdd(std::string_view raw)
{
    Key key = {std::string_view(), raw};
    std::size_t separator = raw.find(SEPARATOR);
    if (separator != std::string_view::npos)
        key = {raw.substr(0, separator), raw.substr(separator + 1)};

    const auto known = _entries.find(key);
    if (known != _entries.end())
        return *known;

    auto uri = _uris.find(key.uri);
    if (uri == _uris.end())
        uri = _uris.emplace(key.uri).first;

    Entry entry = {&*uri, XMLString(key.tail), XMLString(key.tail), XMLString(), raw.size()};
    separator = key.tail.find(SEPARATOR);
    if (separator != std::string_view::npos)
    {
        entry.localName.resize(separator);
        entry.qname.append(key.tail.substr(separator + 1)).append(1, ':');
    }
    entry.qname += entry.localName;
    return *_entries.insert(std::move(entry)).first;
}

void ExpandedNames::clear()
{
    _recent.fill(nullptr);
    _entries.clear();
    _uris.clear();
}
} // namespace Vesk::XML
