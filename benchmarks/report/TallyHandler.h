// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_TALLYHANDLER_H
#define VESK_BENCHMARKS_TALLYHANDLER_H

#include "Tally.h"
#include "Vesk/XML/Attributes.h"
#include "Vesk/XML/ContentHandler.h"
#include <string>

namespace Vesk::Benchmarks
{

/// Counts what a reader of this project reports.
class TallyHandler final : public XML::ContentHandler
{
public:
    /// Of the last document.
    const Tally& tally() const { return _tally; }

    /// Of a Fast Infoset document.
    static Tally tallyOfFIS(const std::string& fis);

    void setDocumentLocator(const XML::Locator*) override {}
    void startDocument() override { _tally = Tally(); }
    void endDocument() override {}

    void startElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString&,
                      const XML::Attributes& attributes) override
    {
        _tally.addElement(Tally::expandedOctets(uri.size(), localName.size()));
        const int count = attributes.getLength();
        for (int i = 0; i < count; ++i)
        {
            _tally.addAttribute(Tally::expandedOctets(attributes.getURI(i).size(), attributes.getLocalName(i).size()),
                                attributes.getValue(i).size());
        }
    }
    void endElement(const XML::XMLString&, const XML::XMLString&, const XML::XMLString&) override { _tally.addEnd(); }

    void characters(const XML::XMLChar[], int, int length) override
    {
        _tally.addText(static_cast<std::size_t>(length));
    }
    void ignorableWhitespace(const XML::XMLChar[], int, int length) override
    {
        _tally.addText(static_cast<std::size_t>(length));
    }

    void processingInstruction(const XML::XMLString&, const XML::XMLString&) override {}
    void startPrefixMapping(const XML::XMLString&, const XML::XMLString&) override {}
    void endPrefixMapping(const XML::XMLString&) override {}
    void skippedEntity(const XML::XMLString&) override {}

private:
    Tally _tally;
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_TALLYHANDLER_H
