// SPDX-License-Identifier: MIT
#ifndef VESK_XML_ATTRIBUTESIMPL_H
#define VESK_XML_ATTRIBUTESIMPL_H

#include "Vesk/XML/Attributes.h"
#include <cstddef>
#include <deque>
#include <typeinfo>
#include <vector>

namespace Vesk::XML
{
/// A set of attributes to be filled, element after element, without allocating memory once it has grown.
///
/// Each attribute is five references: to strings that the set owns (addAttribute, setters) or to strings of the caller
/// (addReferences). Copying makes a set that owns everything. An attribute's index must be valid where one is set or
/// removed, else RangeException.
class VESK_XML_API AttributesImpl : public Attributes
{
public:
    /// An empty set.
    AttributesImpl() = default;
    /// Copies the attributes and their strings.
    AttributesImpl(const Attributes& attributes);
    AttributesImpl(const AttributesImpl& attributes);
    AttributesImpl& operator=(const AttributesImpl& attributes);
    ~AttributesImpl() override = default;

    int getIndex(const XMLString& qname) const override;
    int getIndex(const XMLString& namespaceURI, const XMLString& localName) const override;
    int getLength() const override { return static_cast<int>(_attributes.size()); }

    const XMLString& getLocalName(int index) const override { return *at(index).localName; }
    const XMLString& getQName(int index) const override { return *at(index).qname; }
    const XMLString& getURI(int index) const override { return *at(index).uri; }

    const XMLString& getType(int index) const override { return *at(index).type; }
    const XMLString& getType(const XMLString& qname) const override;
    const XMLString& getType(const XMLString& namespaceURI, const XMLString& localName) const override;

    const XMLString& getValue(int index) const override { return *at(index).value; }
    const XMLString& getValue(const XMLString& qname) const override;
    const XMLString& getValue(const XMLString& namespaceURI, const XMLString& localName) const override;

    /// Replaces the content with a copy of the given set.
    void setAttributes(const Attributes& attributes);

    /// Adds an attribute and copies its strings.
    void addAttribute(const XMLString& uri, const XMLString& localName, const XMLString& qname, const XMLString& type,
                      const XMLString& value);

    /// Adds an attribute and borrows its strings: they must stay where they are, and unchanged, until the set is
    /// cleared, assigned or destroyed.
    void addReferences(const XMLString& uri, const XMLString& localName, const XMLString& qname, const XMLString& type,
                       const XMLString& value)
    {
        _attributes.emplace_back() = {&uri, &localName, &qname, &type, &value};
    }

    /// Removes an attribute; those behind it move up.
    void removeAttribute(int index);

    /// Removes all attributes. The memory of the set and of its own strings is kept for what is added next.
    void clear()
    {
        _attributes.clear();
        _ownedCount = 0;
    }

    /// Makes room for this many attributes.
    void reserve(std::size_t count) { _attributes.reserve(count); }

    /// Each gives the attribute a string of its own; the one it replaces is kept until clear.
    void setURI(int index, const XMLString& uri);
    void setLocalName(int index, const XMLString& localName);
    void setQName(int index, const XMLString& qname);
    void setType(int index, const XMLString& type);
    void setValue(int index, const XMLString& value);

    /// The strings of an attribute, borrowed.
    struct Attribute
    {
        /// What the getters of Attributes return.
        const XMLString* uri;
        const XMLString* localName;
        const XMLString* qname;
        const XMLString* type;
        const XMLString* value;
    };

    /// Calls visit with every Attribute of a set. One of another class is copied into copies first, because it may make
    /// each string only when it is asked for it. The strings are good until the set or copies change.
    template <class Visit>
    static void forEach(const Attributes& attributes, AttributesImpl& copies, Visit visit);

private:
    const Attribute& at(int index) const
    {
        return static_cast<std::size_t>(index) < _attributes.size() ? _attributes[static_cast<std::size_t>(index)]
                                                                    : NO_ATTRIBUTE;
    }
    Attribute& existing(int index);
    const XMLString* own(const XMLString& text);

    static const Attribute NO_ATTRIBUTE;

    std::vector<Attribute> _attributes;
    // A deque, because its strings stay where they are when it grows. The first _ownedCount of them are in use.
    std::deque<XMLString> _owned;
    std::size_t _ownedCount = 0;
};

template <class Visit>
void AttributesImpl::forEach(const Attributes& attributes, AttributesImpl& copies, Visit visit)
{
    // A class that derives from this one may have getters of its own.
    const bool isOfThisClass = typeid(attributes) == typeid(AttributesImpl);
    if (!isOfThisClass)
        copies.setAttributes(attributes);
    for (const Attribute& attribute :
         (isOfThisClass ? static_cast<const AttributesImpl&>(attributes) : copies)._attributes)
        visit(attribute);
}
} // namespace Vesk::XML

#endif // VESK_XML_ATTRIBUTESIMPL_H
