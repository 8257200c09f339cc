// SPDX-License-Identifier: MIT
#include "../Contestants.h"
#include "Vesk/Exception.h"
#include <cstring>
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

namespace Vesk::Benchmarks
{

namespace
{

// The library's own callbacks for declarations stay and need the context as user data, so the tally has another place.
Tally& tallyOf(void* context)
{
    return *static_cast<Tally*>(static_cast<xmlParserCtxtPtr>(context)->_private);
}

std::size_t octetsOf(const xmlChar* text)
{
    return text ? std::strlen(reinterpret_cast<const char*>(text)) : 0;
}

// An attribute is local name, prefix, URI, start and end of its value.
constexpr int ATTRIBUTE_FIELDS = 5;

void startElement(void* context, const xmlChar* localName, const xmlChar*, const xmlChar* uri, int, const xmlChar**,
                  int attributeCount, int, const xmlChar** attributes)
{
    Tally& tally = tallyOf(context);
    tally.addElement(Tally::expandedOctets(octetsOf(uri), octetsOf(localName)));
    for (int i = 0; i < attributeCount; ++i, attributes += ATTRIBUTE_FIELDS)
    {
        tally.addAttribute(Tally::expandedOctets(octetsOf(attributes[2]), octetsOf(attributes[0])),
                           static_cast<std::size_t>(attributes[4] - attributes[3]));
    }
}

void endElement(void* context, const xmlChar*, const xmlChar*, const xmlChar*)
{
    tallyOf(context).addEnd();
}

void characters(void* context, const xmlChar*, int length)
{
    tallyOf(context).addText(static_cast<std::size_t>(length));
}

class LibXML final : public Contestant
{
public:
    explicit LibXML(Workload& items)
        : Contestant(items),
          _context(xmlNewParserCtxt(), xmlFreeParserCtxt)
    {
        _context->_private = &_tally;
        xmlSAXHandler& handler = *_context->sax;
        handler.startElementNs = startElement;
        handler.endElementNs = endElement;
        handler.characters = characters;
        handler.cdataBlock = characters;
        handler.ignorableWhitespace = characters;
        // Without these no tree is built and nothing outside of the document is looked for.
        handler.comment = nullptr;
        handler.processingInstruction = nullptr;
        handler.reference = nullptr;
        handler.externalSubset = nullptr;
    }

private:
    void process(std::size_t document) override
    {
        const std::string& xml = workload().xml(document);
        _tally = Tally();
        xmlFreeDoc(xmlCtxtReadMemory(_context.get(), xml.data(), static_cast<int>(xml.size()), nullptr, nullptr,
                                     XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_HUGE | XML_PARSE_NOERROR |
                                         XML_PARSE_NOWARNING));
        if (!_context->wellFormed)
            throw DataFormatException("Not well-formed for libxml2");
    }
    Tally documentTally() override { return _tally; }

    std::unique_ptr<xmlParserCtxt, void (*)(xmlParserCtxtPtr)> _context;
    Tally _tally;
};

} // namespace

ContestantPtr makeLibXML(Workload& workload)
{
    return std::make_unique<LibXML>(workload);
}

} // namespace Vesk::Benchmarks
