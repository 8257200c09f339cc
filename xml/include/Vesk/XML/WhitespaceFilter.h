// SPDX-License-Identifier: MIT
#ifndef VESK_XML_WHITESPACEFILTER_H
#define VESK_XML_WHITESPACEFILTER_H

#include "Vesk/XML/LexicalFilterImpl.h"
#include <vector>

namespace Vesk::XML
{
/// Drops white space that only lays out the document.
///
/// A run of character data that stands between tags, comments or processing instructions is dropped if it is white
/// space only, and kept byte for byte otherwise. A run that contains a CDATA section or a skipped entity is kept, and
/// so are everything inside xml:space="preserve" and white space of more than 16 MiB. A run goes on over the calls of
/// characters that it is split into.
class VESK_XML_API WhitespaceFilter : public LexicalFilterImpl
{
public:
    using LexicalFilterImpl::LexicalFilterImpl;

    void startDocument() override;
    void startElement(const XMLString& uri, const XMLString& localName, const XMLString& qname,
                      const Attributes& attributes) override;
    void endElement(const XMLString& uri, const XMLString& localName, const XMLString& qname) override;
    void characters(const XMLChar ch[], int start, int length) override;
    void ignorableWhitespace(const XMLChar ch[], int start, int length) override;
    void processingInstruction(const XMLString& target, const XMLString& data) override;
    void skippedEntity(const XMLString& name) override;

    void startDTD(const XMLString& name, const XMLString& publicId, const XMLString& systemId) override;
    void startCDATA() override;
    void comment(const XMLChar ch[], int start, int length) override;

private:
    bool isPreserved() const { return !_preserved.empty() && _preserved.back(); }
    void keepRun();
    void endRun();

    XMLString _whitespace;        // the run so far, while it is white space only
    bool _keep = false;           // the rest of the run passes through
    std::vector<bool> _preserved; // per open element: is it inside xml:space="preserve"?
};
} // namespace Vesk::XML

#endif // VESK_XML_WHITESPACEFILTER_H
