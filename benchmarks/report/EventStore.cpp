// SPDX-License-Identifier: MIT
#include "EventStore.h"

namespace Vesk::Benchmarks
{

void EventStore::replay(XML::ContentHandler& handler, Attributes attributes)
{
    for (const Event& event : _events)
    {
        switch (event.kind)
        {
        case START_DOCUMENT:
            handler.startDocument();
            break;
        case END_DOCUMENT:
            handler.endDocument();
            break;
        case START_ELEMENT:
            handler.startElement(*event.first, *event.second, *event.third, filled(*event.attributes, attributes));
            break;
        case END_ELEMENT:
            handler.endElement(*event.first, *event.second, *event.third);
            break;
        case CHARACTERS:
            handler.characters(event.first->data(), 0, static_cast<int>(event.first->size()));
            break;
        case PROCESSING_INSTRUCTION:
            handler.processingInstruction(*event.first, *event.second);
            break;
        case START_PREFIX_MAPPING:
            handler.startPrefixMapping(*event.first, *event.second);
            break;
        case END_PREFIX_MAPPING:
            handler.endPrefixMapping(*event.first);
            break;
        case SKIPPED_ENTITY:
            handler.skippedEntity(*event.first);
            break;
        }
    }
}

inline const XML::Attributes& EventStore::filled(const XML::AttributesImpl& prepared, Attributes attributes)
{
    if (attributes == PREPARED)
        return prepared;
    _reused.clear();
    const int count = prepared.getLength();
    for (int i = 0; i < count; ++i)
    {
        if (attributes == REFERENCES)
        {
            _reused.addReferences(prepared.getURI(i), prepared.getLocalName(i), prepared.getQName(i),
                                  prepared.getType(i), prepared.getValue(i));
        }
        else
        {
            _reused.addAttribute(prepared.getURI(i), prepared.getLocalName(i), prepared.getQName(i),
                                 prepared.getType(i), prepared.getValue(i));
        }
    }
    return _reused;
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
    if (attributes.getLength() == 0)
        return;
    XML::AttributesImpl& kept = _attributes.emplace_back();
    for (int i = 0; i < attributes.getLength(); ++i)
    {
        kept.addReferences(keep(attributes.getURI(i)), keep(attributes.getLocalName(i)), keep(attributes.getQName(i)),
                           keep(attributes.getType(i)), keep(attributes.getValue(i)));
    }
    _events.back().attributes = &kept;
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
    _events.push_back({kind, &keep(first), &keep(second), &keep(third), &_attributes.front()});
}

const std::string& EventStore::keep(const std::string& text)
{
    return *_strings.insert(text).first;
}

} // namespace Vesk::Benchmarks
