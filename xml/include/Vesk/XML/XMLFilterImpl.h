// SPDX-License-Identifier: MIT
#ifndef VESK_XML_XMLFILTERIMPL_H
#define VESK_XML_XMLFILTERIMPL_H

#include "Vesk/XML/ContentHandler.h"
#include "Vesk/XML/DTDHandler.h"
#include "Vesk/XML/EntityResolver.h"
#include "Vesk/XML/ErrorHandler.h"
#include "Vesk/XML/XMLFilter.h"

namespace Vesk::XML
{
/// A filter that passes everything on unchanged; derived classes override the events they are interested in.
///
/// parse puts the filter itself in the parent's place for content, DTD, error and entity events and passes them on to
/// the handlers set on the filter. Features and properties, the lexical handler among them, are the parent's. Using a
/// filter without a parent throws NullPointerException.
class VESK_XML_API XMLFilterImpl : public XMLFilter,
                                   public EntityResolver,
                                   public DTDHandler,
                                   public ContentHandler,
                                   public ErrorHandler
{
public:
    /// Without a parent at first.
    XMLFilterImpl() = default;
    /// Borrows the parent.
    explicit XMLFilterImpl(XMLReader* parent);
    XMLFilterImpl(const XMLFilterImpl&) = delete;
    XMLFilterImpl& operator=(const XMLFilterImpl&) = delete;
    ~XMLFilterImpl() override = default;

    XMLReader* getParent() const override { return _parent; }
    void setParent(XMLReader* parent) override { _parent = parent; }

    void setEntityResolver(EntityResolver* resolver) override { _entityResolver = resolver; }
    EntityResolver* getEntityResolver() const override { return _entityResolver; }
    void setDTDHandler(DTDHandler* handler) override { _dtdHandler = handler; }
    DTDHandler* getDTDHandler() const override { return _dtdHandler; }
    void setContentHandler(ContentHandler* handler) override { _contentHandler = handler; }
    ContentHandler* getContentHandler() const override { return _contentHandler; }
    void setErrorHandler(ErrorHandler* handler) override { _errorHandler = handler; }
    ErrorHandler* getErrorHandler() const override { return _errorHandler; }

    void setFeature(const XMLString& featureId, bool state) override;
    bool getFeature(const XMLString& featureId) const override;
    void setProperty(const XMLString& propertyId, const XMLString& value) override;
    void setProperty(const XMLString& propertyId, void* value) override;
    void* getProperty(const XMLString& propertyId) const override;

    void parse(InputSource* source) override;
    void parse(const XMLString& systemId) override;
    void parseMemoryNP(const char* xml, std::size_t size) override;

    InputSource* resolveEntity(const XMLString* publicId, const XMLString& systemId) override;
    void releaseInputSource(InputSource* source) override;

    void notationDecl(const XMLString& name, const XMLString* publicId, const XMLString* systemId) override;
    void unparsedEntityDecl(const XMLString& name, const XMLString* publicId, const XMLString& systemId,
                            const XMLString& notationName) override;

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

    void warning(const SAXException& exception) override;
    void error(const SAXException& exception) override;
    void fatalError(const SAXException& exception) override;

protected:
    /// Called by every parse before the parent starts: makes the filter the parent's handler.
    virtual void setupParse();

private:
    XMLReader& parent() const;

    XMLReader* _parent = nullptr;
    EntityResolver* _entityResolver = nullptr;
    DTDHandler* _dtdHandler = nullptr;
    ContentHandler* _contentHandler = nullptr;
    ErrorHandler* _errorHandler = nullptr;
};
} // namespace Vesk::XML

#endif // VESK_XML_XMLFILTERIMPL_H
