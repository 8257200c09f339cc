// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_ELEMENTWRITER_H
#define VESK_FASTINFOSET_ELEMENTWRITER_H

#include "Vesk/XML/AttributesImpl.h"
#include "Vesk/XML/NamespaceSupport.h"
#include <string>
#include <utility>
#include <vector>

namespace Vesk::FastInfoset
{

class BitStreamWriter;
class StringWriter;

/// Writes the start of elements: namespace attributes, name and attributes. Keeps the namespace context that decides
/// which prefixes they get.
///
/// Each element has a context for its children; what is declared before the element starts, through declarePrefix or in
/// resolving its names, belongs to the context of its parent and goes out with it as namespace attributes.
class ElementWriter
{
public:
    /// Both are borrowed.
    ElementWriter(BitStreamWriter& stream, StringWriter& strings);

    /// Forgets all declarations and opens the context of the document's children.
    void startDocument();

    /// A prefix that the next element declares. The prefix "xml" is ignored.
    void declarePrefix(const std::string& prefix, const std::string& uri);
    void undeclarePrefix(const std::string& prefix);

    /// Completes what stands before it and writes the element, then opens the context of its children.
    /// Throws FISException "Tag mismatch", before anything is written, for an element without a local name that has a
    /// URI or no qualified name either.
    void startElement(const std::string& uri, const std::string& localName, const std::string& qname,
                      const XML::Attributes& attributes);

    /// Leaves the context of the element's children.
    void endElement();

private:
    using NamespaceAttribute = std::pair<const std::string*, const std::string*>; // prefix and URI

    void resolvePrefix(const std::string& uri, const std::string& localName, const std::string& qname);
    bool collectAttributes(const XML::Attributes& attributes);
    void declareAttributeNamespaces();
    void declareUnlessMapped(const std::string& prefix, const std::string& uri);
    void newPrefix(std::string& prefix);

    void writeElement(const std::string& uri, const std::string& localName);
    void writeNamespaceAttributes(unsigned int lead);
    void writeAttributes(const std::string& elementURI);

    BitStreamWriter& _stream;
    StringWriter& _strings;
    XML::NamespaceSupport _namespaces;
    int _prefixCounter = 0;

    // Of the element being written; their memory is used again for the next one.
    std::string _prefix;
    std::string _splitPrefix;
    std::string _splitLocalName;
    XML::AttributesImpl _copies;                             // of a set of another class
    std::vector<XML::AttributesImpl::Attribute> _attributes; // without namespace declarations
    std::vector<NamespaceAttribute> _namespaceAttributes;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_ELEMENTWRITER_H
