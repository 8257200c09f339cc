// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_EVENTSTORE_H
#define VESK_BENCHMARKS_EVENTSTORE_H

#include "Vesk/XML/AttributesImpl.h"
#include "Vesk/XML/ContentHandler.h"
#include <cstddef>
#include <deque>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace Vesk::Benchmarks
{

/// The events of a document, decoded once and kept in memory, to be replayed through the handler interface.
///
/// To record, set the store as the content handler of a reader. Equal strings and names are kept once, as a reader's
/// tables keep them, and all is laid out in the order of its first use, so that replaying costs next to nothing but the
/// calls.
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
    enum Kind : unsigned int
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

    // The strings of a call, in its order: of an element its three names, of other events one or two strings.
    struct Strings
    {
        const std::string* first;
        const std::string* second;
        const std::string* third;

        bool operator<(const Strings& other) const
        {
            return std::tie(first, second, third) < std::tie(other.first, other.second, other.third);
        }
    };

    struct Event
    {
        Kind kind;
        unsigned int attributeCount;
        const Strings* strings;
    };

    struct Attribute
    {
        const Strings* name;
        const std::string* type;
        const std::string* value;
    };

    // How far a replay has come with the attributes.
    struct Position
    {
        std::deque<XML::AttributesImpl>::const_iterator prepared;
        const Attribute* attribute;
    };

    template <Attributes ATTRIBUTES>
    void replay(XML::ContentHandler& handler);
    template <Attributes ATTRIBUTES>
    const XML::Attributes& attributesOf(const Event& event, Position& position);

    void add(Kind kind, const std::string& first = {}, const std::string& second = {}, const std::string& third = {});
    const Strings* keep(const std::string& first, const std::string& second, const std::string& third);
    const std::string* keep(const std::string& text);

    std::vector<Event> _events;
    std::vector<Attribute> _attributes; // of all elements, one after another
    // One set for each element that has attributes, in their order.
    std::deque<XML::AttributesImpl> _prepared;
    const XML::AttributesImpl _none{};
    XML::AttributesImpl _reused;

    std::deque<std::string> _texts; // stay where they are; so do the elements of the set
    std::unordered_map<std::string_view, const std::string*> _textsByValue;
    std::set<Strings> _strings;
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_EVENTSTORE_H
