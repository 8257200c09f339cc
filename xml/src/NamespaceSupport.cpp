// SPDX-License-Identifier: MIT
#include "Vesk/XML/NamespaceSupport.h"
#include "Vesk/Bugcheck.h"
#include "Vesk/Hash.h"

namespace Vesk::XML
{
namespace
{
// Strings that are declared no longer stay in their map, ready for the next declaration, while it has no more entries
// than this. That saves documents that declare the same namespaces on every element from rebuilding them, and keeps
// documents with ever new namespaces from filling the memory.
constexpr std::size_t MAX_KEPT_ENTRIES = 64;

const XMLString EMPTY;

template <class Map>
void discard(Map& map, const typename Map::value_type& entry)
{
    if (map.size() > MAX_KEPT_ENTRIES)
        map.erase(map.find(entry.first));
}
} // namespace

const XMLString NamespaceSupport::XML_NAMESPACE = "http://www.w3.org/XML/1998/namespace";
const XMLString NamespaceSupport::XML_NAMESPACE_PREFIX = "xml";

std::size_t NamespaceSupport::StringHash::operator()(const XMLString& text) const
{
    return hash(text);
}

NamespaceSupport::NamespaceSupport()
{
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
    const auto entry = _prefixes.find(prefix);
    if (entry == _prefixes.end() || entry->second == NONE)
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
    _declarations.clear();
    _prefixes.clear();
    _uris.clear();
    _depth = OUTERMOST - 1;
    declare(XML_NAMESPACE_PREFIX, XML_NAMESPACE);
    _depth = OUTERMOST;
}

bool NamespaceSupport::declaresPrefix(const XMLString& prefix) const
{
    const auto entry = _prefixes.find(prefix);
    return entry != _prefixes.end() && entry->second != NONE && _declarations[entry->second].depth == _depth;
}

void NamespaceSupport::getDeclaredPrefixes(PrefixSet& prefixes) const
{
    prefixes.clear();
    for (std::size_t i = contextStart(); i < _declarations.size(); ++i)
        prefixes.insert(_declarations[i].prefix->first);
}

const XMLString* NamespaceSupport::findURI(const XMLString& prefix) const
{
    const auto entry = _prefixes.find(prefix);
    return entry != _prefixes.end() && entry->second != NONE ? &_declarations[entry->second].uri->first : nullptr;
}

const XMLString& NamespaceSupport::getURI(const XMLString& prefix) const
{
    const XMLString* const uri = findURI(prefix);
    return uri ? *uri : EMPTY;
}

const XMLString* NamespaceSupport::findPrefix(const XMLString& namespaceURI) const
{
    const auto entry = _uris.find(namespaceURI);
    if (entry == _uris.end() || entry->second.candidates.empty())
        return nullptr;
    return entry->second.candidates.begin()->prefix;
}

const XMLString& NamespaceSupport::getPrefix(const XMLString& namespaceURI) const
{
    const XMLString* const prefix = findPrefix(namespaceURI);
    return prefix ? *prefix : EMPTY;
}

const XMLString* NamespaceSupport::findAttributePrefix(const XMLString& namespaceURI) const
{
    const auto entry = _uris.find(namespaceURI);
    if (entry == _uris.end())
        return nullptr;
    // The default prefix is one prefix only: at most one candidate has to be passed over.
    const std::set<Candidate>& candidates = entry->second.candidates;
    auto candidate = candidates.begin();
    if (candidate != candidates.end() && candidate->prefix->empty())
        ++candidate;
    return candidate != candidates.end() ? candidate->prefix : nullptr;
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
        discard(_prefixes, *declaration.prefix);
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
        discard(_uris, *declaration.uri);
}

void NamespaceSupport::show(const Declaration& declaration)
{
    declaration.uri->second.candidates.insert({declaration.depth, &declaration.prefix->first});
}

void NamespaceSupport::hide(const Declaration& declaration)
{
    declaration.uri->second.candidates.erase({declaration.depth, &declaration.prefix->first});
}
} // namespace Vesk::XML
