// SPDX-License-Identifier: MIT
#ifndef VESK_XML_XMLWRITER_H
#define VESK_XML_XMLWRITER_H

#include "Vesk/XML/ContentHandler.h"
#include "Vesk/XML/DTDHandler.h"
#include "Vesk/XML/LexicalHandler.h"
#include <iosfwd>

namespace Vesk::XML
{
/// Writes the events of a document as XML text in UTF-8.
class VESK_XML_API XMLWriter : public ContentHandler, public LexicalHandler, public DTDHandler
{
public:
    enum Options
    {
        /// Neither of the others.
        CANONICAL = 0,
        WRITE_XML_DECLARATION = 0x01,
        PRETTY_PRINT = 0x02
    };

    /// Borrows the stream, which must outlive the writer.
    XMLWriter(std::ostream& out, int options);
    XMLWriter(const XMLWriter&) = delete;
    XMLWriter& operator=(const XMLWriter&) = delete;
    ~XMLWriter() override;

    void setDocumentLocator(const Locator* locator) override;
    void startDocument() override;
    void endDocument() override;
    void startElement(const XMLString& uri, const XMLString& localName, const XMLString& qname,
                      const Attributes& attributes) override;
    void endElement(const XMLString& uri, const XMLString& localName, const XMLString& qname) override;
    void characters(const XMLChar ch[], int start, int length) override;
    void ignorableWhitespace(const XMLChar ch[], int start, int length) override;
    void processingInstruction(const XMLString& target, const XMLString& data) override;
    void startPrefixMapping(const XMLString& prefix, const XMLString& uri) override;
    void endPrefixMapping(const XMLString& prefix) override;
    void skippedEntity(const XMLString& name) override;

    void startDTD(const XMLString& name, const XMLString& publicId, const XMLString& systemId) override;
    void endDTD() override;
    void startEntity(const XMLString& name) override;
    void endEntity(const XMLString& name) override;
    void startCDATA() override;
    void endCDATA() override;
    void comment(const XMLChar ch[], int start, int length) override;

    void notationDecl(const XMLString& name, const XMLString* publicId, const XMLString* systemId) override;
    void unparsedEntityDecl(const XMLString& name, const XMLString* publicId, const XMLString& systemId,
                            const XMLString& notationName) override;
};
} // namespace Vesk::XML

#endif // VESK_XML_XMLWRITER_H
