// SPDX-License-Identifier: MIT
#include "Vesk/XML/NamespaceSupport.h"
#include "Vesk/Bugcheck.h"
#include "Vesk/Hash.h"
#include <algorithm>

namespace Vesk::XML
{
namespace
{
// Strings that are declared no longer stay in their map, ready for the next declaration, while it has no more entries
// than this. That saves documents that declare the same namespaces on every element from rebuilding them, and keeps
// documents with ever new namespaces from filling the memory.
constexpr std::size_t MAX_KEPT_ENTRIES = 64;

const XMLString EMPTY;
} // namespace

const XMLString NamespaceSupport::XML_NAMESPACE = "http://www.w3.org/XML/1998/namespace";
const XMLString NamespaceSupport::XML_NAMESPACE_PREFIX = "xml";

std::size_t NamespaceSupport::StringHash::operator()(const XMLString& text) const
{
    return hash(text);
}

template <class Map>
inline const typename Map::value_type* NamespaceSupport::find(const Map& map, Recent<Map>& recent, const XMLString& key)
{
    const typename Map::value_type*& place = recent[key.size() % recent.size()];
    if (place && place->first == key)
        return place;
    const auto found = map.find(key);
    if (found == map.end())
        return nullptr;
    place = &*found;
    return place;
}

template <class Map>
void NamespaceSupport::discard(Map& map, Recent<Map>& recent, const typename Map::value_type& entry)
{
    if (map.size() <= MAX_KEPT_ENTRIES)
        return;
    recent.fill(nullptr);
    map.erase(map.find(entry.first));
}

NamespaceSupport::NamespaceSupport()
{
    // What most documents need at most, in one piece.
    _declarations.reserve(8);
    reset();
}

NamespaceSupport::~NamespaceSupport() = default;

void NamespaceSupport::declarePrefix(const XMLString& prefix, const XMLString& namespaceURI)
{
    if (prefix != XML_NAMESPACE_PREFIX)
        declare(prefix, namespaceURI);
}

void NamespaceSupport::declare(const XMLString& prefix, const XMLString& namespaceURI)
{
    PrefixMap::value_type& prefixEntry = *_prefixes.try_emplace(prefix, NONE).first;
    URIMap::value_type& uriEntry = *_uris.try_emplace(namespaceURI).first;
    const std::size_t outer = prefixEntry.second;

    if (outer != NONE && _declarations[outer].depth == _depth)
    {
        Declaration& declaration = _declarations[outer];
        if (declaration.uri != &uriEntry)
        {
            unbind(declaration);
            bind(declaration, uriEntry);
        }
        return;
    }

    if (outer != NONE)
        hide(_declarations[outer]);
    const std::size_t index = _declarations.size();
    const std::size_t start = index > 0 ? contextStart() : 0;
    _declarations.push_back({&prefixEntry, nullptr, _depth, start, outer});
    prefixEntry.second = index;
    bind(_declarations.back(), uriEntry);
}

void NamespaceSupport::undeclarePrefix(const XMLString& prefix)
{
    const auto* const entry = find(_prefixes, _recentPrefixes, prefix);
    if (!entry || entry->second == NONE)
        return;
    Declaration& declaration = _declarations[entry->second];
    if (declaration.depth != _depth)
        return;
    // The order within a context does not matter: the last declaration takes the place of the one that goes. Nothing
    // but its prefix refers to it, as declarations of the current context are hidden by none.
    std::swap(declaration, _declarations.back());
    declaration.prefix->second = entry->second;
    removeLast();
}

void NamespaceSupport::reset()
{
    // As it is made; its map entries are those of "xml".
    if (_depth == OUTERMOST && _prefixes.size() == 1 && _uris.size() == 1)
        return;
    _declarations.clear();
    _prefixes.clear();
    _uris.clear();
    _recentPrefixes.fill(nullptr);
    _recentURIs.fill(nullptr);
    _depth = OUTERMOST - 1;
    declare(XML_NAMESPACE_PREFIX, XML_NAMESPACE);
    _depth = OUTERMOST;
}

bool NamespaceSupport::declaresPrefix(const XMLString& prefix) const
{
    const auto* const entry = find(_prefixes, _recentPrefixes, prefix);
    return entry && entry->second != NONE && _declarations[entry->second].depth == _depth;
}

void NamespaceSupport::getDeclaredPrefixes(PrefixSet& prefixes) const
{
    prefixes.clear();
    for (std::size_t i = contextStart(); i < _declarations.size(); ++i)
        prefixes.insert(_declarations[i].prefix->first);
}

const XMLString* NamespaceSupport::findURI(const XMLString& prefix) const
{
    const auto* const entry = find(_prefixes, _recentPrefixes, prefix);
    return entry && entry->second != NONE ? &_declarations[entry->second].uri->first : nullptr;
}

const XMLString& NamespaceSupport::getURI(const XMLString& prefix) const
{
    const XMLString* const uri = findURI(prefix);
    return uri ? *uri : EMPTY;
}

const XMLString* NamespaceSupport::findPrefix(const XMLString& namespaceURI) const
{
    const auto* const entry = find(_uris, _recentURIs, namespaceURI);
    return entry ? entry->second.first.prefix : nullptr;
}

const XMLString& NamespaceSupport::getPrefix(const XMLString& namespaceURI) const
{
    const XMLString* const prefix = findPrefix(namespaceURI);
    return prefix ? *prefix : EMPTY;
}

const XMLString* NamespaceSupport::findAttributePrefix(const XMLString& namespaceURI) const
{
    const auto* const entry = find(_uris, _recentURIs, namespaceURI);
    if (!entry)
        return nullptr;
    // The default prefix is one prefix only: at most one candidate has to be passed over.
    const URIEntry& uri = entry->second;
    if (!uri.first.prefix || !uri.first.prefix->empty())
        return uri.first.prefix;
    return uri.others.empty() ? nullptr : uri.others.begin()->prefix;
}

void NamespaceSupport::dropContext()
{
    if (_depth == OUTERMOST)
        Bugcheck::assertion("_depth > OUTERMOST", "src/NamespaceSupport", 152);
    while (hasDeclarations())
        removeLast();
}

void NamespaceSupport::removeLast()
{
    const Declaration declaration = _declarations.back();
    _declarations.pop_back();
    unbind(declaration);
    declaration.prefix->second = declaration.outer;
    if (declaration.outer != NONE)
        show(_declarations[declaration.outer]);
    else
        discard(_prefixes, _recentPrefixes, *declaration.prefix);
}

void NamespaceSupport::bind(Declaration& declaration, URIMap::value_type& uri)
{
    declaration.uri = &uri;
    ++uri.second.declarations;
    show(declaration);
}

void NamespaceSupport::unbind(const Declaration& declaration)
{
    hide(declaration);
    if (--declaration.uri->second.declarations == 0)
        discard(_uris, _recentURIs, *declaration.uri);
}

void NamespaceSupport::show(const Declaration& declaration)
{
    URIEntry& uri = declaration.uri->second;
    Candidate candidate = {declaration.depth, &declaration.prefix->first};
    if (uri.first.prefix)
        uri.others.insert(std::max(candidate, uri.first));
    if (!uri.first.prefix || candidate < uri.first)
        uri.first = candidate;
}

void NamespaceSupport::hide(const Declaration& declaration)
{
    URIEntry& uri = declaration.uri->second;
    if (uri.first.prefix != &declaration.prefix->first)
    {
        uri.others.erase({declaration.depth, &declaration.prefix->first});
        return;
    }
    uri.first = {0, nullptr};
    if (!uri.others.empty())
    {
        uri.first = *uri.others.begin();
        uri.others.erase(uri.others.begin());
    }
}
} // namespace Vesk::XML
