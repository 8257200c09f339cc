// SPDX-License-Identifier: MIT
#include "StartTagWriter.h"
#include "Vesk/XML/Name.h"
#include "Vesk/XML/SAXException.h"
#include "XMLCharacters.h"
#include "XMLOutput.h"
#include <algorithm>
#include <cstdint>
#include <string>

namespace Vesk::XML
{
namespace
{
const XMLString NO_PREFIX;
const XMLString XMLNS = "xmlns";
const XMLString XMLNS_NAMESPACE = "http://www.w3.org/2000/xmlns/";

// More attributes than this are compared by sorting them.
constexpr std::size_t FEW_ATTRIBUTES = 32;

// A number that most names of a document do not share, at the least cost.
std::size_t mark(std::string_view name)
{
    const std::size_t first = static_cast<unsigned char>(name.front());
    const std::size_t middle = static_cast<unsigned char>(name[name.size() / 2]);
    const std::size_t last = static_cast<unsigned char>(name.back());
    return name.size() + 3 * first + 7 * middle + 13 * last;
}

[[noreturn]] void throwDuplicate(std::string_view localName)
{
    throw SAXException("Attribute occurs twice", XMLString(localName));
}

// True if the attribute is a namespace declaration; prefix is then the one it declares.
bool isDeclaration(const XMLString& uri, const XMLString& localName, const XMLString& qname, XMLString& prefix)
{
    if (qname.empty())
    {
        if (uri != XMLNS_NAMESPACE)
            return false;
        prefix = localName == XMLNS ? NO_PREFIX : localName;
        return true;
    }
    if (qname[0] != 'x' || qname.compare(0, XMLNS.size(), XMLNS) != 0 ||
        (qname.size() > XMLNS.size() && qname[XMLNS.size()] != ':'))
        return false;
    prefix.assign(qname, std::min(qname.size(), XMLNS.size() + 1), XMLString::npos);
    return true;
}
} // namespace

StartTagWriter::StartTagWriter(XMLOutput& out)
    : _out(out)
{
}

void StartTagWriter::reset()
{
    _namespaces.reset();
    _isContextOpen = false;
    _hasDefaultNamespace = false;
    _inventedPrefixes = 0;
}

void StartTagWriter::openContext()
{
    if (!_isContextOpen)
        _namespaces.pushContext();
    _isContextOpen = true;
}

void StartTagWriter::declarePrefix(const XMLString& prefix, const XMLString& uri)
{
    openContext();
    declare(prefix, uri);
}

void StartTagWriter::declare(const XMLString& prefix, const XMLString& uri)
{
    const bool isXML = prefix == NamespaceSupport::XML_NAMESPACE_PREFIX;
    if (isXML != (uri == NamespaceSupport::XML_NAMESPACE) || prefix == XMLNS || uri == XMLNS_NAMESPACE)
        throw SAXException("Prefix or namespace is reserved", prefix + "=" + uri);
    if (isXML)
        return; // always declared
    if (!prefix.empty())
    {
        checkName(prefix);
        if (uri.empty())
            throw SAXException("Prefix without a namespace", prefix);
    }
    else if (!uri.empty())
    {
        _hasDefaultNamespace = true;
    }
    _namespaces.declarePrefix(prefix, uri);
}

// Most names have been checked before.
void StartTagWriter::checkName(std::string_view name)
{
    if (name.empty())
        throw SAXException("Empty name");
    XMLString& known = _knownNames[mark(name) % _knownNames.size()];
    if (known == name)
        return;
    if (!XMLCharacters::isNCName(name))
        throw SAXException("Invalid name", XMLString(name));
    known = name;
}

void StartTagWriter::enterElement(const XMLString& uri, const XMLString& localName, const XMLString& qname,
                                  const Attributes& attributes, XMLString& names)
{
    openContext();
    _isContextOpen = false;
    collectAttributes(attributes);

    split(localName, qname);
    const XMLString& name = localName.empty() ? _localName : localName;
    checkName(name);
    const XMLString* prefix = &_prefix;
    if (!uri.empty())
    {
        prefix = &elementPrefix(uri);
    }
    else if (!localName.empty())
    {
        takeBackDefaultNamespace(localName);
        prefix = &NO_PREFIX;
    }
    else if (!_prefix.empty())
    {
        literalURI();
    }

    if (!prefix->empty())
        names.append(*prefix).append(1, ':');
    names.append(name);
}

void StartTagWriter::collectAttributes(const Attributes& attributes)
{
    _attributes.clear();
    AttributesImpl::forEach(attributes, _copies,
                            [this](const AttributesImpl::Attribute& attribute)
                            {
                                if (isDeclaration(*attribute.uri, *attribute.localName, *attribute.qname, _prefix))
                                    declare(_prefix, *attribute.value);
                                else
                                    _attributes.push_back(attribute);
                            });
}

// Takes the prefix from the qualified name, and the local name, too, if it is not known otherwise.
void StartTagWriter::split(const XMLString& localName, const XMLString& qname)
{
    if (localName.empty())
        return Name::split(qname, _prefix, _localName);
    const std::size_t colon = qname.find(':');
    if (colon == XMLString::npos)
        _prefix.clear();
    else
        _prefix.assign(qname, 0, colon);
}

const XMLString& StartTagWriter::elementPrefix(const XMLString& uri)
{
    const XMLString* const mapped = _namespaces.findURI(_prefix);
    if (mapped && *mapped == uri)
        return _prefix;

    const XMLString* const other = _namespaces.findPrefix(uri);
    if (other && (_prefix.empty() || _namespaces.declaresPrefix(_prefix)))
        return *other;
    const XMLString& declared = _namespaces.declaresPrefix(_prefix) ? inventPrefix() : _prefix;
    declare(declared, uri);
    return declared;
}

// A name without namespace cannot be written inside a default namespace.
void StartTagWriter::takeBackDefaultNamespace(const XMLString& localName)
{
    if (!_hasDefaultNamespace || _namespaces.getURI(NO_PREFIX).empty())
        return;
    if (_namespaces.declaresPrefix(NO_PREFIX))
        throw SAXException("Element without namespace declares a default namespace", localName);
    declare(NO_PREFIX, XMLString());
}

const XMLString& StartTagWriter::attributePrefix(const XMLString& uri)
{
    const XMLString* const mapped = _prefix.empty() ? nullptr : _namespaces.findURI(_prefix);
    if (mapped && *mapped == uri)
        return _prefix;
    if (const XMLString* const other = _namespaces.findAttributePrefix(uri))
        return *other;
    // A prefix that is in use must not be declared anew: the element itself may have it.
    const XMLString& declared = _prefix.empty() || mapped ? inventPrefix() : _prefix;
    declare(declared, uri);
    writeDeclaration(declared, uri);
    return declared;
}

// The namespace of a name that is known by its qualified name only.
const XMLString& StartTagWriter::literalURI() const
{
    const XMLString& uri = _namespaces.getURI(_prefix);
    if (uri.empty())
        throw SAXException("Undeclared prefix", _prefix);
    return uri;
}

const XMLString& StartTagWriter::inventPrefix()
{
    do
    {
        _inventedPrefix = "ns" + std::to_string(++_inventedPrefixes);
    } while (_namespaces.findURI(_inventedPrefix));
    return _inventedPrefix;
}

void StartTagWriter::writeAttributes()
{
    const std::size_t declared = _namespaces.declaredCount();
    for (std::size_t i = 0; i < declared; ++i)
        writeDeclaration(_namespaces.declaredPrefix(i), _namespaces.declaredURI(i));

    _keys.clear();
    for (const AttributesImpl::Attribute& attribute : _attributes)
        writeAttribute(attribute);
    if (_keys.size() > 1)
        checkUnique();
}

void StartTagWriter::writeDeclaration(const XMLString& prefix, const XMLString& uri)
{
    _out.write(prefix.empty() ? " xmlns" : " xmlns:", prefix, "=\"");
    _out.writeAttributeValue(uri);
    _out.write('"');
}

void StartTagWriter::writeAttribute(const AttributesImpl::Attribute& attribute)
{
    const XMLString& uri = *attribute.uri;
    Key key = {uri, *attribute.localName};
    const bool isPlain = uri.empty() && !key.localName.empty();
    const XMLString& prefix = isPlain ? NO_PREFIX : qualifiedPrefix(attribute, key);
    checkName(key.localName);
    _keys.push_back(key);
    if (prefix.empty())
        _out.write(" ", key.localName, "=\"");
    else
        _out.write(" ", prefix, ":", key.localName, "=\"");
    _out.writeAttributeValue(*attribute.value);
    _out.write('"');
}

// The prefix of an attribute in a namespace, or of one that is known by its qualified name only.
const XMLString& StartTagWriter::qualifiedPrefix(const AttributesImpl::Attribute& attribute, Key& key)
{
    const XMLString& qname = *attribute.qname;
    split(*attribute.localName, qname);
    if (attribute.localName->empty())
        key.localName = std::string_view(qname).substr(_prefix.empty() ? 0 : _prefix.size() + 1);
    if (!attribute.uri->empty())
        return attributePrefix(*attribute.uri);
    if (!_prefix.empty())
        key.uri = literalURI();
    return _prefix;
}

void StartTagWriter::checkUnique()
{
    if (_keys.size() > FEW_ATTRIBUTES)
    {
        std::sort(_keys.begin(), _keys.end());
        const auto twice = std::adjacent_find(_keys.begin(), _keys.end());
        if (twice != _keys.end())
            throwDuplicate(twice->localName);
        return;
    }
    // Two attributes are compared only if their local names have the same mark.
    std::uint64_t seen = 0;
    for (auto key = _keys.begin(); key != _keys.end(); ++key)
    {
        const std::string_view name = key->localName;
        const std::uint64_t bit = std::uint64_t(1) << (mark(name) % 64);
        if ((seen & bit) != 0 && std::find(_keys.begin(), key, *key) != key)
            throwDuplicate(name);
        seen |= bit;
    }
}

void StartTagWriter::leaveElement()
{
    if (_isContextOpen)
        _namespaces.popContext();
    _isContextOpen = false;
    _namespaces.popContext();
}
} // namespace Vesk::XML
