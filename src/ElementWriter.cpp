// SPDX-License-Identifier: MIT
#include "ElementWriter.h"
#include "StringWriter.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/XML/Name.h"
#include <algorithm>

namespace Vesk::FastInfoset
{

namespace
{

const std::string XMLNS_PREFIX = "xmlns:";

// Namespace declarations are told by their qualified name: "xmlns" or "xmlns:prefix".
bool isNamespaceDeclaration(const std::string& qname)
{
    return qname.size() >= 5 && qname[0] == 'x' && qname.compare(0, 5, XMLNS_PREFIX, 0, 5) == 0 &&
           (qname.size() == 5 || qname[5] == ':');
}

} // namespace

ElementWriter::ElementWriter(BitStreamWriter& stream, StringWriter& strings)
    : _stream(stream),
      _strings(strings)
{
}

void ElementWriter::startDocument()
{
    _namespaces.reset();
    _namespaces.pushContext();
}

void ElementWriter::declarePrefix(const std::string& prefix, const std::string& uri)
{
    if (prefix != XML::NamespaceSupport::XML_NAMESPACE_PREFIX)
        _namespaces.declarePrefix(prefix, uri);
}

void ElementWriter::undeclarePrefix(const std::string& prefix)
{
    if (prefix != XML::NamespaceSupport::XML_NAMESPACE_PREFIX)
        _namespaces.undeclarePrefix(prefix);
}

// All declarations are made before the first bit is written: they go out in front of the name.
void ElementWriter::startElement(const std::string& uri, const std::string& localName, const std::string& qname,
                                 const XML::Attributes& attributes)
{
    const bool hasQualifiedAttributes = collectAttributes(attributes);
    resolvePrefix(uri, localName, qname);
    if (hasQualifiedAttributes)
        declareAttributeNamespaces();

    _stream.complete(false);
    writeElement(uri, localName.empty() ? qname : localName);
    if (!_attributes.empty())
        writeAttributes(uri);
    _namespaces.pushContext();
}

void ElementWriter::endElement()
{
    _namespaces.popContext();
}

// Declares what is a namespace declaration by its name and takes down the other attributes. Tells whether any of them is
// in a namespace.
bool ElementWriter::collectAttributes(const XML::Attributes& attributes)
{
    _attributes.clear();
    bool hasQualified = false;
    const auto collect = [&](const XML::AttributesImpl::Attribute& attribute)
    {
        const std::string& qname = *attribute.qname;
        if (isNamespaceDeclaration(qname))
        {
            declarePrefix(qname.substr(std::min(qname.size(), XMLNS_PREFIX.size())), *attribute.value);
            return;
        }
        _attributes.push_back(attribute);
        hasQualified |= !attribute.uri->empty();
    };
    XML::AttributesImpl::forEach(attributes, _copies, collect);
    return hasQualified;
}

// The prefix under which the element goes out; declared here if the context does not map it to the element's URI.
void ElementWriter::resolvePrefix(const std::string& uri, const std::string& localName, const std::string& qname)
{
    _prefix.clear();
    if (localName.empty())
    {
        if (!uri.empty() || qname.empty())
            throw FISException("Tag mismatch", qname);
    }
    else if (!qname.empty() && qname != localName)
    {
        XML::Name::split(qname, _prefix, _splitLocalName);
        if (_prefix.empty())
            _prefix = _namespaces.getPrefix(uri);
        declareUnlessMapped(_prefix, uri);
    }
    else if (!uri.empty())
    {
        const std::string* mapped = _namespaces.findPrefix(uri);
        if (mapped)
        {
            _prefix = *mapped;
        }
        else
        {
            newPrefix(_prefix);
            _namespaces.declarePrefix(_prefix, uri);
        }
    }
}

// No prefix is invented for an attribute: one in a namespace that has no prefix in scope, and none in its qualified
// name, declares the default namespace. Readers go by the URI, so nothing is lost.
void ElementWriter::declareAttributeNamespaces()
{
    for (const XML::AttributesImpl::Attribute& attribute : _attributes)
    {
        if (attribute.uri->empty() || attribute.localName->empty())
            continue;
        XML::Name::split(*attribute.qname, _splitPrefix, _splitLocalName);
        if (_splitPrefix.empty())
            _splitPrefix = _namespaces.getPrefix(*attribute.uri);
        declareUnlessMapped(_splitPrefix, *attribute.uri);
    }
}

void ElementWriter::declareUnlessMapped(const std::string& prefix, const std::string& uri)
{
    // A prefix that is not mapped counts as mapped to no namespace.
    if (_namespaces.getURI(prefix) != uri)
        _namespaces.declarePrefix(prefix, uri);
}

void ElementWriter::newPrefix(std::string& prefix)
{
    do
    {
        prefix = "ns" + std::to_string(++_prefixCounter);
    } while (_namespaces.findURI(prefix));
}

//   0a??????    whether attributes follow; namespace attributes or the name
void ElementWriter::writeElement(const std::string& uri, const std::string& localName)
{
    unsigned int lead = _attributes.empty() ? 0 : 0x40;
    if (_namespaces.declaredCount() > 0)
    {
        writeNamespaceAttributes(lead);
        lead = 0;
    }
    _strings.writeQualifiedNameOrIndex(_prefix, uri, localName, true, lead);
}

//   ??111000    behind the lead
//   110011pn    for each, in order of prefix: prefix present, namespace name present, then those that are
//   11110000    the end; the name starts behind two padding bits, which are its lead
void ElementWriter::writeNamespaceAttributes(unsigned int lead)
{
    _namespaceAttributes.clear();
    for (std::size_t i = 0; i < _namespaces.declaredCount(); ++i)
        _namespaceAttributes.emplace_back(&_namespaces.declaredPrefix(i), &_namespaces.declaredURI(i));
    std::sort(_namespaceAttributes.begin(), _namespaceAttributes.end(),
              [](const NamespaceAttribute& a, const NamespaceAttribute& b) { return *a.first < *b.first; });

    _stream.writeOctet(lead | 0b111000);
    for (const auto& [prefix, uri] : _namespaceAttributes)
    {
        _stream.writeOctet(0b11001100u | (prefix->empty() ? 0 : 2) | (uri->empty() ? 0 : 1));
        if (!prefix->empty())
            _strings.writeIdentifyingStringOrIndex(*prefix, DocumentVocabulary::PREFIX);
        if (!uri->empty())
            _strings.writeIdentifyingStringOrIndex(*uri, DocumentVocabulary::NAMESPACE_NAME);
    }
    _stream.writeOctet(0b11110000);
}

// A 0 bit, the name and the value of each, then the terminator. The prefix comes from the context, never from the
// attribute's own qualified name, and is left out in the namespace of the element.
void ElementWriter::writeAttributes(const std::string& elementURI)
{
    static const std::string NO_PREFIX;

    for (const XML::AttributesImpl::Attribute& attribute : _attributes)
    {
        const std::string& uri = *attribute.uri;
        const std::string& prefix = uri.empty() || uri == elementURI ? NO_PREFIX : _namespaces.getPrefix(uri);
        const std::string* localName = attribute.localName;
        if (localName->empty())
        {
            XML::Name::split(*attribute.qname, _splitPrefix, _splitLocalName);
            localName = &_splitLocalName;
        }
        _strings.writeQualifiedNameOrIndex(prefix, uri, *localName, false, 0);
        _strings.writeNonIdentifyingStringOrIndex(*attribute.value, DocumentVocabulary::ATTRIBUTE_VALUE);
    }
    _stream.write(0b1111, 4);
}

} // namespace Vesk::FastInfoset
