// SPDX-License-Identifier: MIT
#ifndef VESK_XML_SAXPARSER_H
#define VESK_XML_SAXPARSER_H

#include "Vesk/XML/XMLReader.h"
#include <memory>

namespace Vesk::XML
{
/// Parses XML text, with namespaces, and reports it as SAX2 events.
///
/// Encodings are UTF-8, UTF-16, ISO-8859-1 and US-ASCII, as told by the input source, else by the document; handlers
/// get UTF-8. Adjacent character data arrives as one call of characters, in blocks of at most 1 MiB that are cut
/// between characters. Every text that characters and comment hand over is followed by a zero octet. Without a lexical
/// handler, comments and the bounds of CDATA sections do not divide text.
///
/// Comments inside the document type declaration are not reported. Attribute types are always "CDATA". A reference to
/// an entity that is declared outside of what was read is reported as skippedEntity in content; in attribute values it
/// reads as nothing, and the error handler gets a warning, one for each start tag that has such a reference.
/// An external subset or parameter entity that is not read is reported as skippedEntity, too; behind the latter, unless
/// the document is standalone, declarations have no effect and are not reported, except for notations. Internal
/// parameter entities are always expanded. ignorableWhitespace, startEntity and endEntity are never called.
///
/// Features:
/// - FEATURE_NAMESPACES: true, cannot be switched off.
/// - FEATURE_NAMESPACE_PREFIXES: false. When true, namespace declarations are also listed as attributes in front of the
///   others: qualified name "xmlns" or "xmlns:p", URI and local name empty.
/// - FEATURE_EXTERNAL_GENERAL_ENTITIES, FEATURE_EXTERNAL_PARAMETER_ENTITIES: false. When true and an entity resolver is
///   set, external entities that it resolves are read; without a resolver they are skipped. The latter feature, which
///   is also for external subsets, has no effect on documents that say standalone="yes".
///
/// Properties: PROPERTY_LEXICAL_HANDLER, PROPERTY_DECLARATION_HANDLER.
///
/// Bounds: a namespace name has at most 16 KiB, a document at most 500 entities that refer to other entities, external
/// entities are nested at most 32 deep, and expat limits how much text entities may unfold to.
///
/// A document that is not well-formed, or goes beyond a bound, throws SAXParseException, after the error handler's
/// fatalError. An exception from a handler passes through to the caller of parse. No events follow a failure; the
/// parser can then parse another document. A parser serves one thread and one document at a time; copying is not meant.
class VESK_XML_API SAXParser : public XMLReader
{
public:
    SAXParser();
    SAXParser(const SAXParser&) = delete;
    SAXParser& operator=(const SAXParser&) = delete;

    void setEntityResolver(EntityResolver* resolver) override;
    EntityResolver* getEntityResolver() const override;
    void setDTDHandler(DTDHandler* handler) override;
    DTDHandler* getDTDHandler() const override;
    void setContentHandler(ContentHandler* handler) override;
    ContentHandler* getContentHandler() const override;
    void setErrorHandler(ErrorHandler* handler) override;
    ErrorHandler* getErrorHandler() const override;

    void setFeature(const XMLString& featureId, bool state) override;
    bool getFeature(const XMLString& featureId) const override;
    void setProperty(const XMLString& propertyId, const XMLString& value) override;
    void setProperty(const XMLString& propertyId, void* value) override;
    void* getProperty(const XMLString& propertyId) const override;

    /// Reads the source's byte stream, else its character stream, else its system identifier, to the end.
    void parse(InputSource* source) override;
    /// Reads what the entity resolver, else EntityResolverImpl, opens; SAXException if neither can.
    void parse(const XMLString& systemId) override;
    void parseMemoryNP(const char* xml, std::size_t size) override;

    ~SAXParser() override;

private:
    class Impl;

    std::unique_ptr<Impl> _impl;
};
} // namespace Vesk::XML

#endif // VESK_XML_SAXPARSER_H
