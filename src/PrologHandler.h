// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_PROLOGHANDLER_H
#define VESK_FASTINFOSET_PROLOGHANDLER_H

#include "Vesk/XML/ContentHandler.h"
#include "Vesk/XML/DTDHandler.h"
#include "Vesk/XML/LexicalHandler.h"
#include <functional>
#include <vector>

namespace Vesk::XML
{
class XMLReader;
}

namespace Vesk::FastInfoset
{

/// Stands between a reader of XML text and a FastInfosetWriter and brings the prolog into the writer's order.
///
/// Text declares notations and unparsed entities behind the start of the document; the binary form has them in its
/// header, so the writer takes them before startDocument only. Everything up to the root element is held back. Then the
/// declarations go first and the rest follows in its order; later events pass straight through.
class PrologHandler : public XML::ContentHandler, public XML::LexicalHandler, public XML::DTDHandler
{
public:
    /// The writer, or what stands in front of it, is borrowed.
    PrologHandler(XML::ContentHandler& content, XML::LexicalHandler& lexical, XML::DTDHandler& dtd);

    /// Makes the reader report namespaces as the writer wants them, and everything to this handler.
    void connect(XML::XMLReader& reader);

    void setDocumentLocator(const XML::Locator* locator) override;
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

    void startDTD(const XML::XMLString& name, const XML::XMLString& publicId, const XML::XMLString& systemId) override;
    void endDTD() override;
    void startEntity(const XML::XMLString& name) override;
    void endEntity(const XML::XMLString& name) override;
    void startCDATA() override;
    void endCDATA() override;
    void comment(const XML::XMLChar ch[], int start, int length) override;

    void notationDecl(const XML::XMLString& name, const XML::XMLString* publicId,
                      const XML::XMLString* systemId) override;
    void unparsedEntityDecl(const XML::XMLString& name, const XML::XMLString* publicId, const XML::XMLString& systemId,
                            const XML::XMLString& notationName) override;

private:
    void hold(std::function<void()> event);
    void endProlog();

    XML::ContentHandler& _content;
    XML::LexicalHandler& _lexical;
    XML::DTDHandler& _dtd;
    bool _inProlog = true;
    std::vector<std::function<void()>> _held;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_PROLOGHANDLER_H
