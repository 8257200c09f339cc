// SPDX-License-Identifier: MIT
#include "Vesk/XML/AttributesImpl.h"
#include "ExceptionMatcher.h"
#include <gtest/gtest.h>

using namespace Vesk;
using namespace Vesk::XML;

namespace
{
AttributesImpl twoAttributes()
{
    AttributesImpl attributes;
    attributes.addAttribute("urn:a", "id", "a:id", "ID", "1");
    attributes.addAttribute("", "id", "id", "CDATA", "2");
    return attributes;
}
} // namespace

TEST(AttributesImplTest, FindsAttributesByEveryName)
{
    const AttributesImpl attributes = twoAttributes();
    EXPECT_EQ(attributes.getLength(), 2);
    EXPECT_EQ(attributes.getIndex("a:id"), 0);
    EXPECT_EQ(attributes.getIndex("", "id"), 1);
    EXPECT_EQ(attributes.getIndex("urn:b", "id"), -1);
    EXPECT_EQ(attributes.getIndex("b:id"), -1);
    EXPECT_EQ(attributes.getURI(0), "urn:a");
    EXPECT_EQ(attributes.getLocalName(0), "id");
    EXPECT_EQ(attributes.getQName(0), "a:id");
    EXPECT_EQ(attributes.getType("a:id"), "ID");
    EXPECT_EQ(attributes.getType("", "id"), "CDATA");
    EXPECT_EQ(attributes.getValue("urn:a", "id"), "1");
    EXPECT_EQ(attributes.getValue("id"), "2");
}

TEST(AttributesImplTest, UnknownAttributesAreEmpty)
{
    const AttributesImpl attributes = twoAttributes();
    for (const int index : {-1, 2, 1000})
    {
        EXPECT_EQ(attributes.getURI(index), "");
        EXPECT_EQ(attributes.getLocalName(index), "");
        EXPECT_EQ(attributes.getQName(index), "");
        EXPECT_EQ(attributes.getType(index), "");
        EXPECT_EQ(attributes.getValue(index), "");
    }
    EXPECT_EQ(attributes.getValue("b:id"), "");
    EXPECT_EQ(attributes.getType("urn:b", "id"), "");
}

TEST(AttributesImplTest, ReferencesAreTheCallersStrings)
{
    const std::string name = "n";
    const std::string none;
    std::string value = "before";
    AttributesImpl attributes;
    attributes.addReferences(none, name, name, none, value);
    value = "after";
    EXPECT_EQ(&attributes.getValue(0), &value);
    EXPECT_EQ(attributes.getValue("n"), "after");
}

TEST(AttributesImplTest, CopiesOwnTheirStrings)
{
    std::string text = "text";
    AttributesImpl attributes;
    attributes.addReferences(text, text, text, text, text);
    const AttributesImpl copy(attributes);
    AttributesImpl assigned = twoAttributes();
    assigned = attributes;
    const Attributes& interface = attributes;
    const AttributesImpl fromInterface(interface);
    text = "changed";
    const AttributesImpl* const copies[] = {&copy, &assigned, &fromInterface};
    for (const AttributesImpl* other : copies)
    {
        ASSERT_EQ(other->getLength(), 1);
        EXPECT_EQ(other->getURI(0), "text");
        EXPECT_EQ(other->getType(0), "text");
        EXPECT_EQ(other->getValue(0), "text");
    }
}

TEST(AttributesImplTest, AssigningToItselfChangesNothing)
{
    AttributesImpl attributes = twoAttributes();
    const AttributesImpl& same = attributes;
    attributes = same;
    attributes.setAttributes(attributes);
    ASSERT_EQ(attributes.getLength(), 2);
    EXPECT_EQ(attributes.getValue(0), "1");
}

TEST(AttributesImplTest, StringsStayWhereTheyAreWhenTheSetGrows)
{
    AttributesImpl attributes;
    attributes.addAttribute("", "first", "", "", "value");
    const std::string& value = attributes.getValue(0);
    for (int i = 0; i < 1000; ++i)
        attributes.addAttribute("", std::to_string(i), "", "", "");
    EXPECT_EQ(&attributes.getValue(0), &value);
}

TEST(AttributesImplTest, ClearKeepsTheStringsForTheNextElement)
{
    AttributesImpl attributes;
    attributes.addAttribute("", "n", "", "", std::string(1000, 'x'));
    const char* const memory = attributes.getValue(0).data();
    attributes.clear();
    EXPECT_EQ(attributes.getLength(), 0);
    attributes.addAttribute("", "m", "", "", std::string(900, 'y'));
    EXPECT_EQ(attributes.getValue(0).data(), memory);
    EXPECT_EQ(attributes.getValue("", "m"), std::string(900, 'y'));
}

TEST(AttributesImplTest, SetsAndRemovesAttributes)
{
    AttributesImpl attributes = twoAttributes();
    attributes.setURI(1, "urn:b");
    attributes.setLocalName(1, "name");
    attributes.setQName(1, "b:name");
    attributes.setType(1, "NMTOKEN");
    attributes.setValue(1, attributes.getValue(0));
    attributes.removeAttribute(0);
    ASSERT_EQ(attributes.getLength(), 1);
    EXPECT_EQ(attributes.getIndex("urn:b", "name"), 0);
    EXPECT_EQ(attributes.getIndex("b:name"), 0);
    EXPECT_EQ(attributes.getType(0), "NMTOKEN");
    EXPECT_EQ(attributes.getValue(0), "1");
    EXPECT_VESK_THROW(attributes.setValue(1, ""), RangeException, "No attribute with this index: 1");
    EXPECT_VESK_THROW(attributes.removeAttribute(-1), RangeException, "No attribute with this index: -1");
}

TEST(AttributesImplTest, ForEachVisitsSetsOfOtherClassesThroughTheirGetters)
{
    // Makes a name when it is asked for it.
    class Renamed : public AttributesImpl
    {
    public:
        const XMLString& getLocalName(int index) const override
        {
            _name = "other" + std::to_string(index);
            return _name;
        }

    private:
        mutable XMLString _name;
    };
    const auto visited = [](const Attributes& attributes)
    {
        AttributesImpl copies;
        std::vector<AttributesImpl::Attribute> all;
        AttributesImpl::forEach(attributes, copies,
                                [&](const AttributesImpl::Attribute& attribute) { all.push_back(attribute); });
        std::string text;
        for (const AttributesImpl::Attribute& attribute : all)
        {
            text += *attribute.uri + '|' + *attribute.localName + '|' + *attribute.qname + '|' + *attribute.type + '|' +
                    *attribute.value + ' ';
        }
        return text;
    };
    Renamed renamed;
    renamed.addAttribute("u", "a", "p:a", "CDATA", "1");
    renamed.addAttribute("", "b", "b", "ID", "2");
    EXPECT_EQ(visited(renamed), "u|other0|p:a|CDATA|1 |other1|b|ID|2 ");
    EXPECT_EQ(visited(AttributesImpl(static_cast<const AttributesImpl&>(renamed))),
              "u|other0|p:a|CDATA|1 |other1|b|ID|2 ");
    AttributesImpl plain;
    plain.addAttribute("u", "a", "p:a", "CDATA", "1");
    EXPECT_EQ(visited(plain), "u|a|p:a|CDATA|1 ");
    EXPECT_EQ(visited(AttributesImpl()), "");
}
