// SPDX-License-Identifier: MIT
#include "EventStore.h"

namespace Vesk::Benchmarks
{

void EventStore::replay(XML::ContentHandler& handler, Attributes attributes)
{
    if (attributes == PREPARED)
        replay<PREPARED>(handler);
    else if (attributes == REFERENCES)
        replay<REFERENCES>(handler);
    else
        replay<COPIES>(handler);
}

template <EventStore::Attributes ATTRIBUTES>
void EventStore::replay(XML::ContentHandler& handler)
{
    Position position{_prepared.begin(), _attributes.data()};
    for (const Event& event : _events)
    {
        const Strings& strings = *event.strings;
        switch (event.kind)
        {
        case START_DOCUMENT:
            handler.startDocument();
            break;
        case END_DOCUMENT:
            handler.endDocument();
            break;
        case START_ELEMENT:
            handler.startElement(*strings.first, *strings.second, *strings.third,
                                 attributesOf<ATTRIBUTES>(event, position));
            break;
        case END_ELEMENT:
            handler.endElement(*strings.first, *strings.second, *strings.third);
            break;
        case CHARACTERS:
            handler.characters(strings.first->data(), 0, static_cast<int>(strings.first->size()));
            break;
        case PROCESSING_INSTRUCTION:
            handler.processingInstruction(*strings.first, *strings.second);
            break;
        case START_PREFIX_MAPPING:
            handler.startPrefixMapping(*strings.first, *strings.second);
            break;
        case END_PREFIX_MAPPING:
            handler.endPrefixMapping(*strings.first);
            break;
        case SKIPPED_ENTITY:
            handler.skippedEntity(*strings.first);
            break;
        }
    }
}

template <EventStore::Attributes ATTRIBUTES>
inline const XML::Attributes& EventStore::attributesOf(const Event& event, Position& position)
{
    if constexpr (ATTRIBUTES == PREPARED)
    {
        return event.attributeCount > 0 ? *position.prepared++ : _none;
    }
    else
    {
        _reused.clear();
        for (unsigned int i = 0; i < event.attributeCount; ++i)
        {
            const Attribute& attribute = *position.attribute++;
            const Strings& name = *attribute.name;
            if constexpr (ATTRIBUTES == REFERENCES)
                _reused.addReferences(*name.first, *name.second, *name.third, *attribute.type, *attribute.value);
            else
                _reused.addAttribute(*name.first, *name.second, *name.third, *attribute.type, *attribute.value);
        }
        return _reused;
    }
}

void EventStore::startDocument()
{
    add(START_DOCUMENT);
}

void EventStore::endDocument()
{
    add(END_DOCUMENT);
}

void EventStore::startElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname,
                              const XML::Attributes& attributes)
{
    add(START_ELEMENT, uri, localName, qname);
    const int count = attributes.getLength();
    if (count == 0)
        return;
    _events.back().attributeCount = static_cast<unsigned int>(count);
    XML::AttributesImpl& prepared = _prepared.emplace_back();
    for (int i = 0; i < count; ++i)
    {
        const Strings* const name = keep(attributes.getURI(i), attributes.getLocalName(i), attributes.getQName(i));
        _attributes.push_back({name, keep(attributes.getType(i)), keep(attributes.getValue(i))});
        prepared.addReferences(*name->first, *name->second, *name->third, *_attributes.back().type,
                               *_attributes.back().value);
    }
}

void EventStore::endElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname)
{
    add(END_ELEMENT, uri, localName, qname);
}

void EventStore::characters(const XML::XMLChar ch[], int start, int length)
{
    add(CHARACTERS, std::string(ch + start, static_cast<std::size_t>(length)));
}

void EventStore::ignorableWhitespace(const XML::XMLChar ch[], int start, int length)
{
    characters(ch, start, length);
}

void EventStore::processingInstruction(const XML::XMLString& target, const XML::XMLString& data)
{
    add(PROCESSING_INSTRUCTION, target, data);
}

void EventStore::startPrefixMapping(const XML::XMLString& prefix, const XML::XMLString& uri)
{
    add(START_PREFIX_MAPPING, prefix, uri);
}

void EventStore::endPrefixMapping(const XML::XMLString& prefix)
{
    add(END_PREFIX_MAPPING, prefix);
}

void EventStore::skippedEntity(const XML::XMLString& name)
{
    add(SKIPPED_ENTITY, name);
}

void EventStore::add(Kind kind, const std::string& first, const std::string& second, const std::string& third)
{
    _events.push_back({kind, 0, keep(first, second, third)});
}

const EventStore::Strings* EventStore::keep(const std::string& first, const std::string& second,
                                            const std::string& third)
{
    return &*_strings.insert({keep(first), keep(second), keep(third)}).first;
}

const std::string* EventStore::keep(const std::string& text)
{
    const auto known = _textsByValue.find(text);
    if (known != _textsByValue.end())
        return known->second;
    const std::string& kept = _texts.emplace_back(text);
    _textsByValue.emplace(kept, &kept);
    return &kept;
}

} // namespace Vesk::Benchmarks
