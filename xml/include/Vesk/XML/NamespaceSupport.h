// SPDX-License-Identifier: MIT
#ifndef VESK_XML_NAMESPACESUPPORT_H
#define VESK_XML_NAMESPACESUPPORT_H

#include "Vesk/XML/XMLString.h"
#include <array>
#include <cstddef>
#include <cstdint>
#include <set>
#include <unordered_map>
#include <vector>

namespace Vesk::XML
{
/// The namespace prefixes that are in scope while a document is walked through.
///
/// Declarations belong to the current context and go with it; a declaration hides those of the same prefix in outer
/// contexts. There is always an outermost context, which cannot be popped. The prefix "xml" is mapped from the start,
/// counts as declared in no context and cannot be declared otherwise. The default namespace has the empty prefix;
/// declaring it for the empty URI takes it back.
///
/// pushContext and popContext without declarations are a few instructions, whatever the depth; lookups take one hash
/// lookup, whatever the depth and the number of declarations. References and pointers that lookups return are good
/// until the next call of a non-const operation that removes or replaces the declaration they come from. One object
/// serves one thread, lookups included: they remember what they found.
class VESK_XML_API NamespaceSupport
{
public:
    /// Prefixes, in alphabetical order.
    using PrefixSet = std::set<XMLString>;

    NamespaceSupport();
    NamespaceSupport(const NamespaceSupport&) = delete;
    NamespaceSupport& operator=(const NamespaceSupport&) = delete;
    ~NamespaceSupport();

    /// Maps the prefix in the current context, in place of what the context declared for it before.
    void declarePrefix(const XMLString& prefix, const XMLString& namespaceURI);

    /// Takes back what the current context declared for the prefix, so that an outer declaration counts again.
    /// Does nothing if the current context declares no such prefix.
    void undeclarePrefix(const XMLString& prefix);

    /// Opens a context inside the current one.
    void pushContext() { ++_depth; }

    /// Leaves the current context and its declarations. Throws AssertionViolationException in the outermost context.
    void popContext()
    {
        if (_depth == OUTERMOST || hasDeclarations())
            dropContext();
        --_depth;
    }

    /// Back to the outermost context without declarations.
    void reset();

    /// The declarations of the current context, in no particular order; index is 0 to declaredCount() - 1.
    std::size_t declaredCount() const { return _declarations.size() - contextStart(); }
    const XMLString& declaredPrefix(std::size_t index) const { return declared(index).prefix->first; }
    const XMLString& declaredURI(std::size_t index) const { return declared(index).uri->first; }

    /// True if the current context itself declares the prefix.
    bool declaresPrefix(const XMLString& prefix) const;

    /// Replaces prefixes by those that the current context declares.
    void getDeclaredPrefixes(PrefixSet& prefixes) const;

    /// The URI that the prefix is mapped to; null, or the empty string, if it is not mapped. The default prefix that
    /// was declared for the empty URI gives a pointer to the empty string.
    const XMLString* findURI(const XMLString& prefix) const;
    const XMLString& getURI(const XMLString& prefix) const;

    /// The prefix that is mapped to the URI; null, or the empty string, if there is none. The default prefix counts. Of
    /// several prefixes, the one that was declared furthest in is taken, then the smallest one. A prefix that is
    /// declared for another URI further in does not count.
    const XMLString* findPrefix(const XMLString& namespaceURI) const;
    const XMLString& getPrefix(const XMLString& namespaceURI) const;

    /// Like findPrefix, but without the default prefix, which says nothing about attributes.
    const XMLString* findAttributePrefix(const XMLString& namespaceURI) const;

    /// True if some prefix, the default prefix included, is mapped to the URI.
    bool isMapped(const XMLString& namespaceURI) const { return findPrefix(namespaceURI) != nullptr; }

    /// "http://www.w3.org/XML/1998/namespace"
    static const XMLString XML_NAMESPACE;
    /// "xml"
    static const XMLString XML_NAMESPACE_PREFIX;

private:
    struct StringHash
    {
        std::size_t operator()(const XMLString& text) const;
    };

    // A prefix whose declaration is not hidden, in the order in which lookups by URI prefer it.
    struct Candidate
    {
        std::size_t depth;
        const XMLString* prefix;

        bool operator<(const Candidate& other) const
        {
            return depth != other.depth ? depth > other.depth : *prefix < *other.prefix;
        }
    };

    // The prefixes that lead to a URI, and the number of declarations, hidden ones included, that name it. Nearly every
    // URI has one prefix, which takes no set.
    struct URIEntry
    {
        Candidate first = {0, nullptr}; // no prefix: there is none
        std::set<Candidate> others;
        std::size_t declarations = 0;
    };

    // Every prefix with the index of its innermost declaration, or NONE, and every URI. Each string is held once,
    // however often it is declared; the maps' nodes stay where they are.
    using PrefixMap = std::unordered_map<XMLString, std::size_t, StringHash>;
    using URIMap = std::unordered_map<XMLString, URIEntry, StringHash>;

    struct Declaration
    {
        PrefixMap::value_type* prefix;
        URIMap::value_type* uri;
        std::size_t depth;
        std::size_t contextStart; // index of the first declaration of the same context
        std::size_t outer;        // index of the declaration that this one hides, or NONE
    };

    // The entries found last, in places by the length of the key: most lookups ask for one of a few strings, and
    // comparing two is cheaper than hashing one. What an entry holds changes with the declarations; the entry stays.
    template <class Map>
    using Recent = std::array<const typename Map::value_type*, 8>;

    template <class Map>
    static const typename Map::value_type* find(const Map& map, Recent<Map>& recent, const XMLString& key);
    template <class Map>
    static void discard(Map& map, Recent<Map>& recent, const typename Map::value_type& entry);

    static constexpr std::size_t NONE = SIZE_MAX;
    static constexpr std::size_t OUTERMOST = 1; // "xml" is declared at depth 0

    bool hasDeclarations() const { return _declarations.back().depth == _depth; }
    std::size_t contextStart() const
    {
        return hasDeclarations() ? _declarations.back().contextStart : _declarations.size();
    }
    const Declaration& declared(std::size_t index) const { return _declarations[contextStart() + index]; }

    void declare(const XMLString& prefix, const XMLString& namespaceURI);
    void dropContext();
    void removeLast();
    void bind(Declaration& declaration, URIMap::value_type& uri);
    void unbind(const Declaration& declaration);
    static void show(const Declaration& declaration);
    static void hide(const Declaration& declaration);

    PrefixMap _prefixes;
    URIMap _uris;
    mutable Recent<PrefixMap> _recentPrefixes{};
    mutable Recent<URIMap> _recentURIs{};
    std::vector<Declaration> _declarations; // outer contexts first; never empty, because of "xml"
    std::size_t _depth = OUTERMOST;
};
} // namespace Vesk::XML

#endif // VESK_XML_NAMESPACESUPPORT_H
