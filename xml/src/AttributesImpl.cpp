// SPDX-License-Identifier: MIT
#include "Vesk/XML/AttributesImpl.h"
#include "Vesk/Exception.h"

namespace Vesk::XML
{
namespace
{
const XMLString EMPTY;
} // namespace

const AttributesImpl::Attribute AttributesImpl::NO_ATTRIBUTE = {&EMPTY, &EMPTY, &EMPTY, &EMPTY, &EMPTY};

AttributesImpl::AttributesImpl(const Attributes& attributes)
{
    setAttributes(attributes);
}

AttributesImpl::AttributesImpl(const AttributesImpl& attributes)
    : Attributes(attributes)
{
    setAttributes(attributes);
}

AttributesImpl& AttributesImpl::operator=(const AttributesImpl& attributes)
{
    setAttributes(attributes);
    return *this;
}

int AttributesImpl::getIndex(const XMLString& qname) const
{
    for (std::size_t i = 0; i < _attributes.size(); ++i)
    {
        if (*_attributes[i].qname == qname)
            return static_cast<int>(i);
    }
    return -1;
}

int AttributesImpl::getIndex(const XMLString& namespaceURI, const XMLString& localName) const
{
    for (std::size_t i = 0; i < _attributes.size(); ++i)
    {
        if (*_attributes[i].localName == localName && *_attributes[i].uri == namespaceURI)
            return static_cast<int>(i);
    }
    return -1;
}

const XMLString& AttributesImpl::getType(const XMLString& qname) const
{
    return getType(getIndex(qname));
}

const XMLString& AttributesImpl::getType(const XMLString& namespaceURI, const XMLString& localName) const
{
    return getType(getIndex(namespaceURI, localName));
}

const XMLString& AttributesImpl::getValue(const XMLString& qname) const
{
    return getValue(getIndex(qname));
}

const XMLString& AttributesImpl::getValue(const XMLString& namespaceURI, const XMLString& localName) const
{
    return getValue(getIndex(namespaceURI, localName));
}

void AttributesImpl::setAttributes(const Attributes& attributes)
{
    if (&attributes == this)
        return;
    clear();
    for (int i = 0; i < attributes.getLength(); ++i)
    {
        addAttribute(attributes.getURI(i), attributes.getLocalName(i), attributes.getQName(i), attributes.getType(i),
                     attributes.getValue(i));
    }
}

void AttributesImpl::addAttribute(const XMLString& uri, const XMLString& localName, const XMLString& qname,
                                  const XMLString& type, const XMLString& value)
{
    _attributes.push_back({own(uri), own(localName), own(qname), own(type), own(value)});
}

void AttributesImpl::removeAttribute(int index)
{
    existing(index);
    _attributes.erase(_attributes.begin() + index);
}

void AttributesImpl::setURI(int index, const XMLString& uri)
{
    existing(index).uri = own(uri);
}

void AttributesImpl::setLocalName(int index, const XMLString& localName)
{
    existing(index).localName = own(localName);
}

void AttributesImpl::setQName(int index, const XMLString& qname)
{
    existing(index).qname = own(qname);
}

void AttributesImpl::setType(int index, const XMLString& type)
{
    existing(index).type = own(type);
}

void AttributesImpl::setValue(int index, const XMLString& value)
{
    existing(index).value = own(value);
}

AttributesImpl::Attribute& AttributesImpl::existing(int index)
{
    if (static_cast<std::size_t>(index) >= _attributes.size())
        throw RangeException("No attribute with this index", std::to_string(index));
    return _attributes[static_cast<std::size_t>(index)];
}

const XMLString* AttributesImpl::own(const XMLString& text)
{
    if (text.empty())
        return &EMPTY;
    if (_ownedCount == _owned.size())
        _owned.emplace_back();
    XMLString& owned = _owned[_ownedCount++];
    owned = text;
    return &owned;
}
} // namespace Vesk::XML
