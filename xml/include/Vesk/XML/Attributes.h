// SPDX-License-Identifier: MIT
#ifndef VESK_XML_ATTRIBUTES_H
#define VESK_XML_ATTRIBUTES_H

#include "Vesk/XML/XMLString.h"

namespace Vesk::XML
{
/// The attributes of one element, in document order.
///
/// A set received in a callback is borrowed: it and the strings it returns live until the callback returns.
/// An index outside 0 to getLength() - 1, or a name that is not in the set, gives the empty string.
class VESK_XML_API Attributes
{
public:
    /// The index of the attribute with this qualified name, or -1.
    virtual int getIndex(const XMLString& qname) const = 0;
    /// The index of the attribute with this namespace URI (empty: none) and local name, or -1.
    virtual int getIndex(const XMLString& namespaceURI, const XMLString& localName) const = 0;
    /// The number of attributes.
    virtual int getLength() const = 0;

    /// The parts of the name. Empty where the reader does not know them, or for an attribute in no namespace.
    virtual const XMLString& getLocalName(int index) const = 0;
    virtual const XMLString& getQName(int index) const = 0;
    virtual const XMLString& getURI(int index) const = 0;

    /// The type of the attribute, such as "CDATA" or "ID"; empty where the reader does not know it.
    virtual const XMLString& getType(int index) const = 0;
    virtual const XMLString& getType(const XMLString& qname) const = 0;
    virtual const XMLString& getType(const XMLString& namespaceURI, const XMLString& localName) const = 0;

    /// The value, with references replaced.
    virtual const XMLString& getValue(int index) const = 0;
    virtual const XMLString& getValue(const XMLString& qname) const = 0;
    virtual const XMLString& getValue(const XMLString& namespaceURI, const XMLString& localName) const = 0;

    virtual ~Attributes() = default;
};
} // namespace Vesk::XML

#endif // VESK_XML_ATTRIBUTES_H
