// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_EVENTSTORE_H
#define VESK_BENCHMARKS_EVENTSTORE_H

#include "Vesk/XML/AttributesImpl.h"
#include "Vesk/XML/ContentHandler.h"
#include <cstddef>
#include <deque>
#include <string>
#include <unordered_set>
#include <vector>

namespace Vesk::Benchmarks
{

/// The events of a document, decoded once and kept in memory, to be replayed through the handler interface.
///
/// To record, set the store as the content handler of a reader. Equal strings are kept once, as a reader's tables keep
/// them.
class EventStore final : public XML::ContentHandler
{
public:
    /// How the attributes of an element are handed over.
    enum Attributes
    {
        PREPARED,   ///< in a set that was filled when the event was recorded
        REFERENCES, ///< in one reused set, filled with references for each element
        COPIES      ///< in one reused set, filled with copies for each element
    };

    EventStore() = default;
    EventStore(const EventStore&) = delete;
    EventStore& operator=(const EventStore&) = delete;

    void replay(XML::ContentHandler& handler, Attributes attributes);

    std::size_t eventCount() const { return _events.size(); }

    void setDocumentLocator(const XML::Locator*) override {}
    void startDocument() override;
    void endDocument() override;
    void startElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname,
                      const XML::Attributes& attributes) override;
    void endElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname) override;
    void characters(const XML::XMLChar ch[], int start, int length) override;
    void ignorableWhitespace(const XML::XMLChar ch[], int start, int length) override;
    void processingInstruction(const XML::XMLString& target, const XML::XMLString& data) override;
    void startPrefixMapping(const XML::XMLString& prefix, const XML::XMLString& uri) override;
    void endPrefixMapping(const XML::XMLString& prefix) override;
    void skippedEntity(const XML::XMLString& name) override;

private:
    enum Kind
    {
        START_DOCUMENT,
        END_DOCUMENT,
        START_ELEMENT,
        END_ELEMENT,
        CHARACTERS,
        PROCESSING_INSTRUCTION,
        START_PREFIX_MAPPING,
        END_PREFIX_MAPPING,
        SKIPPED_ENTITY
    };

    // The strings are those of the call, in its order.
    struct Event
    {
        Kind kind;
        const std::string* first;
        const std::string* second;
        const std::string* third;
        const XML::AttributesImpl* attributes;
    };

    void add(Kind kind, const std::string& first = {}, const std::string& second = {}, const std::string& third = {});
    const std::string& keep(const std::string& text);
    const XML::Attributes& filled(const XML::AttributesImpl& prepared, Attributes attributes);

    std::vector<Event> _events;
    std::unordered_set<std::string> _strings;       // its elements stay where they are
    std::deque<XML::AttributesImpl> _attributes{1}; // the first is empty and serves all elements without attributes
    XML::AttributesImpl _reused;
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_EVENTSTORE_H
