// SPDX-License-Identifier: MIT
#ifndef VESK_XML_STARTTAGWRITER_H
#define VESK_XML_STARTTAGWRITER_H

#include "Vesk/XML/AttributesImpl.h"
#include "Vesk/XML/NamespaceSupport.h"
#include <array>
#include <string_view>
#include <vector>

namespace Vesk::XML
{
class XMLOutput;

/// Writes names with prefixes that stand for their namespaces where they are written.
class StartTagWriter
{
public:
    /// Borrows the output.
    explicit StartTagWriter(XMLOutput& out);

    /// Back to the start of a document.
    void reset();

    /// Declares a prefix for the element that starts next.
    void declarePrefix(const XMLString& prefix, const XMLString& uri);

    /// Enters an element and appends its name, as it is written, to names.
    void enterElement(const XMLString& uri, const XMLString& localName, const XMLString& qname,
                      const Attributes& attributes, XMLString& names);

    /// Writes the namespace declarations and attributes of the element that was just entered, whose attributes must
    /// still be there.
    void writeAttributes();

    void leaveElement();

private:
    // What two attributes of an element must not have in common.
    struct Key
    {
        std::string_view uri;
        std::string_view localName;

        bool operator==(const Key& other) const { return localName == other.localName && uri == other.uri; }
        bool operator<(const Key& other) const
        {
            return localName != other.localName ? localName < other.localName : uri < other.uri;
        }
    };

    void openContext();
    void declare(const XMLString& prefix, const XMLString& uri);
    void collectAttributes(const Attributes& attributes);
    const XMLString& elementPrefix(const XMLString& uri);
    void takeBackDefaultNamespace(const XMLString& localName);
    const XMLString& attributePrefix(const XMLString& uri);
    const XMLString& literalURI() const;
    const XMLString& inventPrefix();
    void checkName(std::string_view name);
    void split(const XMLString& localName, const XMLString& qname);
    void writeDeclaration(const XMLString& prefix, const XMLString& uri);
    void writeAttribute(const AttributesImpl::Attribute& attribute);
    const XMLString& qualifiedPrefix(const AttributesImpl::Attribute& attribute, Key& key);
    void checkUnique();

    XMLOutput& _out;
    NamespaceSupport _namespaces;
    bool _isContextOpen = false;       // the context of the element that starts next has been pushed
    bool _hasDefaultNamespace = false; // somewhere in the document so far
    int _inventedPrefixes = 0;
    XMLString _prefix; // the parts of the name at hand, its prefix as the qualified name has it
    XMLString _localName;
    XMLString _inventedPrefix;
    AttributesImpl _copies;                             // of a set of another class
    std::vector<AttributesImpl::Attribute> _attributes; // without namespace declarations
    std::vector<Key> _keys;
    std::array<XMLString, 256> _knownNames; // names that are valid
};
} // namespace Vesk::XML

#endif // VESK_XML_STARTTAGWRITER_H
