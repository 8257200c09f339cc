// SPDX-License-Identifier: MIT
//
// Any octets as a document. Memory and stream have to give the same events, and the same class of exception; so have a
// parser that is observed, which has to tell of every bit once, and one whose handler takes arrays.
#include "EventText.h"
#include "Fuzz.h"
#include "ServedVocabulary.h"
#include "TestStreams.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/StructureObserver.h"
#include "Vesk/XML/InputSource.h"
#include <vector>

using namespace Vesk;
using namespace Vesk::FastInfoset;

namespace
{

template <class Events>
std::string eventsFromMemory(DocumentVocabulary::VocabularyImpl tables, const std::string& document)
{
    FastInfosetParser parser(tables);
    Events events;
    events.attachTo(parser);
    const std::string refusal = Fuzz::refusalOf([&] { parser.parseMemoryNP(document.data(), document.size()); });
    return events.events() + refusal;
}

template <class Events>
std::string eventsFromStream(DocumentVocabulary::VocabularyImpl tables, const std::string& document)
{
    FastInfosetParser parser(tables);
    Events events;
    events.attachTo(parser);
    BlockInputStream stream(document, 1 + document.size() % 7);
    XML::InputSource source(stream);
    const std::string refusal = Fuzz::refusalOf([&] { parser.parse(&source); });
    return events.events() + refusal;
}

/// Takes parts that follow each other and structures that nest.
class Continuity : public StructureObserver
{
public:
    void startStructure(Structure structure) override { _open.push_back(structure); }
    void part(const Part& part) override
    {
        Fuzz::require(part.beginBit == _endBit && part.endBit >= part.beginBit, "parts leave a gap or overlap");
        _endBit = part.endBit;
    }
    void endStructure(Structure structure) override
    {
        Fuzz::require(!_open.empty() && _open.back() == structure, "structures do not nest");
        _open.pop_back();
    }

private:
    std::vector<Structure> _open;
    unsigned long _endBit = 0;
};

std::string eventsUnderObservation(DocumentVocabulary::VocabularyImpl tables, const std::string& document)
{
    FastInfosetParser parser(tables);
    Fuzz::TypedEventText events;
    Continuity continuity;
    events.attachTo(parser);
    parser.setStructureObserver(&continuity);
    const std::string refusal = Fuzz::refusalOf([&] { parser.parseMemoryNP(document.data(), document.size()); });
    return events.events() + refusal;
}

template <class Events>
void compare(DocumentVocabulary::VocabularyImpl tables, const std::string& document)
{
    Fuzz::requireEqual(eventsFromStream<Events>(tables, document), eventsFromMemory<Events>(tables, document),
                       "stream and memory give different events");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string document = Fuzz::octetsOf(data, size);
    const Fuzz::ServedVocabulary served(document);
    for (const auto tables :
         {DocumentVocabulary::VOC_VECTOR, DocumentVocabulary::VOC_MAP, DocumentVocabulary::VOC_HASH})
    {
        compare<Fuzz::PlainEventText>(tables, document);
        compare<Fuzz::TypedEventText>(tables, document);
    }
    const std::string typedEvents = eventsFromMemory<Fuzz::TypedEventText>(DocumentVocabulary::VOC_VECTOR, document);
    Fuzz::requireEqual(eventsUnderObservation(DocumentVocabulary::VOC_VECTOR, document), typedEvents,
                       "a parser that is observed gives different events");
    Fuzz::requireEqual(eventsFromMemory<Fuzz::ArrayEventText>(DocumentVocabulary::VOC_VECTOR, document), typedEvents,
                       "arrays hold different numbers");
    // From the octets where they are: nothing behind them may be read.
    FastInfosetParser parser;
    Fuzz::refusalOf([&] { parser.parseMemoryNP(reinterpret_cast<const char*>(data), size); });
    return 0;
}
