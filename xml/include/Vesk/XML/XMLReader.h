// SPDX-License-Identifier: MIT
#ifndef VESK_XML_XMLREADER_H
#define VESK_XML_XMLREADER_H

#include "Vesk/XML/XMLString.h"
#include <cstddef>

namespace Vesk::XML
{
class ContentHandler;
class DTDHandler;
class EntityResolver;
class ErrorHandler;
class InputSource;

/// Reads documents and reports them to handlers, all on the caller's thread.
///
/// Handlers are borrowed: they must outlive their use; null takes a handler away. Handlers, features and properties may
/// be changed between parses only. A reader can parse several documents in turn.
class VESK_XML_API XMLReader
{
public:
    /// The handlers, which are borrowed; null if there is none.
    virtual void setEntityResolver(EntityResolver* resolver) = 0;
    virtual EntityResolver* getEntityResolver() const = 0;
    virtual void setDTDHandler(DTDHandler* handler) = 0;
    virtual DTDHandler* getDTDHandler() const = 0;
    virtual void setContentHandler(ContentHandler* handler) = 0;
    virtual ContentHandler* getContentHandler() const = 0;
    virtual void setErrorHandler(ErrorHandler* handler) = 0;
    virtual ErrorHandler* getErrorHandler() const = 0;

    /// Features and properties are named by the constants below. A name that the reader does not know throws
    /// SAXNotRecognizedException, a value that it cannot take SAXNotSupportedException.
    virtual void setFeature(const XMLString& featureId, bool state) = 0;
    virtual bool getFeature(const XMLString& featureId) const = 0;
    virtual void setProperty(const XMLString& propertyId, const XMLString& value) = 0;
    /// A handler is passed as a pointer to its interface: static_cast<LexicalHandler*>(&handler).
    virtual void setProperty(const XMLString& propertyId, void* value) = 0;
    virtual void* getProperty(const XMLString& propertyId) const = 0;

    /// Parses a whole document: what the source holds, or what the system identifier leads to.
    virtual void parse(InputSource* source) = 0;
    virtual void parse(const XMLString& systemId) = 0;
    /// Parses a document in memory, which is borrowed for the call.
    virtual void parseMemoryNP(const char* xml, std::size_t size) = 0;

    virtual ~XMLReader();

    /// Whether names are reported with namespace and local name.
    static const XMLString FEATURE_NAMESPACES;
    /// Whether qualified names, and with some readers xmlns attributes, are reported.
    static const XMLString FEATURE_NAMESPACE_PREFIXES;
    /// Whether external entities are read, in content and in document type declarations.
    static const XMLString FEATURE_EXTERNAL_GENERAL_ENTITIES;
    static const XMLString FEATURE_EXTERNAL_PARAMETER_ENTITIES;

    /// Takes a DeclHandler*.
    static const XMLString PROPERTY_DECLARATION_HANDLER;
    /// Takes a LexicalHandler*.
    static const XMLString PROPERTY_LEXICAL_HANDLER;
};
} // namespace Vesk::XML

#endif // VESK_XML_XMLREADER_H
