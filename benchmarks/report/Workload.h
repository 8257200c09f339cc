// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_WORKLOAD_H
#define VESK_BENCHMARKS_WORKLOAD_H

#include "Corpus.h"
#include "EventStore.h"
#include "ExpatTally.h"
#include <cstddef>
#include <deque>
#include <limits>
#include <string>
#include <vector>

namespace Vesk::Benchmarks
{

/// An item in all the forms that contestants start from, and what they have to count in it.
class Workload
{
public:
    /// The item is borrowed.
    explicit Workload(const Item& item);

    std::size_t documentCount() const { return _item.documents.size(); }
    const std::string& xml(std::size_t document) const { return _item.documents[document]; }
    const std::string& fis(std::size_t document) const { return _fis[document]; }

    /// The events as FastInfosetParser reports them and as SAXParser does: the former without the qualified names of
    /// attributes, the latter with what it takes to write XML text.
    EventStore& parserEvents(std::size_t document) { return _parserEvents[document]; }
    EventStore& textEvents(std::size_t document) { return _textEvents[document]; }

    /// Of all documents together, as expat counts them.
    const Tally& expected(ExpatTally::Names names) const
    {
        return names == ExpatTally::EXPANDED ? _expanded : _qualified;
    }

    std::size_t xmlOctets() const { return _xmlOctets; }
    /// Of SAXParser's content handler.
    std::size_t eventCount() const { return _eventCount; }

private:
    const Item& _item;
    std::vector<std::string> _fis;
    std::deque<EventStore> _parserEvents;
    std::deque<EventStore> _textEvents;
    Tally _expanded;
    Tally _qualified;
    std::size_t _xmlOctets = 0;
    std::size_t _eventCount = 0;
};

/// Converts a document with the converter. Strings of up to maxIndexedLength octets are indexed.
std::string convertedToFIS(const std::string& xml, int maxIndexedLength);

/// The limit that the writer uses if nobody sets another.
constexpr int DEFAULT_INDEXED_LENGTH = 16;
constexpr int NO_LIMIT = std::numeric_limits<int>::max();

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_WORKLOAD_H
