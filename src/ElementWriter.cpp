// SPDX-License-Identifier: MIT
#include "ElementWriter.h"
#include "StringWriter.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/XML/Attributes.h"
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
    const int attributeCount = declareAttributes(attributes);
    resolvePrefix(uri, localName, qname);
    declareAttributeNamespaces(attributes);

    _stream.complete(false);
    _stream.write(false);
    writeElement(uri, localName.empty() ? qname : localName, attributeCount > 0);
    if (attributeCount > 0)
        writeAttributes(attributes, uri);
    _namespaces.pushContext();
}

void ElementWriter::endElement()
{
    _namespaces.popContext();
}

// Declares what is a namespace declaration by its name and returns the number of the other attributes.
int ElementWriter::declareAttributes(const XML::Attributes& attributes)
{
    const int length = attributes.getLength();
    int count = length;
    for (int i = 0; i < length; ++i)
    {
        const std::string& qname = attributes.getQName(i);
        if (!isNamespaceDeclaration(qname))
            continue;
        declarePrefix(qname.substr(std::min(qname.size(), XMLNS_PREFIX.size())), attributes.getValue(i));
        --count;
    }
    return count;
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
void ElementWriter::declareAttributeNamespaces(const XML::Attributes& attributes)
{
    const int length = attributes.getLength();
    for (int i = 0; i < length; ++i)
    {
        const std::string& uri = attributes.getURI(i);
        if (uri.empty() || attributes.getLocalName(i).empty() || isNamespaceDeclaration(attributes.getQName(i)))
            continue;
        XML::Name::split(attributes.getQName(i), _splitPrefix, _splitLocalName);
        if (_splitPrefix.empty())
            _splitPrefix = _namespaces.getPrefix(uri);
        declareUnlessMapped(_splitPrefix, uri);
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

// Behind the element's 0 bit: whether attributes follow, namespace attributes, the name.
void ElementWriter::writeElement(const std::string& uri, const std::string& localName, bool hasAttributes)
{
    _stream.write(hasAttributes);
    if (_namespaces.declaredCount() > 0)
        writeNamespaceAttributes();
    _strings.writeQualifiedNameOrIndex(_prefix, uri, localName, true);
}

// 111000, then in order of prefix 110011, prefix present, namespace name present, and those that are; then the
// terminator and six bits that bring the name to bit offset 2.
void ElementWriter::writeNamespaceAttributes()
{
    _namespaceAttributes.clear();
    for (std::size_t i = 0; i < _namespaces.declaredCount(); ++i)
        _namespaceAttributes.emplace_back(&_namespaces.declaredPrefix(i), &_namespaces.declaredURI(i));
    std::sort(_namespaceAttributes.begin(), _namespaceAttributes.end(),
              [](const NamespaceAttribute& a, const NamespaceAttribute& b) { return *a.first < *b.first; });

    _stream.write(0b111000, 6);
    for (const auto& [prefix, uri] : _namespaceAttributes)
    {
        _stream.write(0b110011, 6);
        _stream.write(!prefix->empty());
        _stream.write(!uri->empty());
        if (!prefix->empty())
            _strings.writeIdentifyingStringOrIndex(*prefix, DocumentVocabulary::PREFIX);
        if (!uri->empty())
            _strings.writeIdentifyingStringOrIndex(*uri, DocumentVocabulary::NAMESPACE_NAME);
    }
    _stream.write(0b1111000000, 10);
}

// A 0 bit, the name and the value of each, then the terminator. The prefix comes from the context, never from the
// attribute's own qualified name, and is left out in the namespace of the element.
void ElementWriter::writeAttributes(const XML::Attributes& attributes, const std::string& elementURI)
{
    static const std::string NO_PREFIX;

    const int length = attributes.getLength();
    for (int i = 0; i < length; ++i)
    {
        const std::string& qname = attributes.getQName(i);
        if (isNamespaceDeclaration(qname))
            continue;
        const std::string& uri = attributes.getURI(i);
        const std::string& prefix = uri.empty() || uri == elementURI ? NO_PREFIX : _namespaces.getPrefix(uri);
        const std::string* localName = &attributes.getLocalName(i);
        if (localName->empty())
        {
            XML::Name::split(qname, _splitPrefix, _splitLocalName);
            localName = &_splitLocalName;
        }
        _stream.write(false);
        _strings.writeQualifiedNameOrIndex(prefix, uri, *localName, false);
        _strings.writeNonIdentifyingStringOrIndex(attributes.getValue(i), DocumentVocabulary::ATTRIBUTE_VALUE);
    }
    _stream.write(0b1111, 4);
}

} // namespace Vesk::FastInfoset
