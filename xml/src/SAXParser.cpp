// SPDX-License-Identifier: MIT
#include "Vesk/XML/SAXParser.h"
#include "ExpatParser.h"
#include "ResolvedSource.h"
#include "Vesk/Bugcheck.h"
#include "Vesk/XML/SAXException.h"

namespace Vesk::XML
{
class SAXParser::Impl
{
public:
    SAXSettings settings;
    ExpatParser expat{settings};
};

SAXParser::SAXParser()
    : _impl(new Impl)
{
}

SAXParser::~SAXParser() = default;

void SAXParser::setEntityResolver(EntityResolver* resolver)
{
    _impl->settings.entityResolver = resolver;
}

EntityResolver* SAXParser::getEntityResolver() const
{
    return _impl->settings.entityResolver;
}

void SAXParser::setDTDHandler(DTDHandler* handler)
{
    _impl->settings.dtdHandler = handler;
}

DTDHandler* SAXParser::getDTDHandler() const
{
    return _impl->settings.dtdHandler;
}

void SAXParser::setContentHandler(ContentHandler* handler)
{
    _impl->settings.contentHandler = handler;
}

ContentHandler* SAXParser::getContentHandler() const
{
    return _impl->settings.contentHandler;
}

void SAXParser::setErrorHandler(ErrorHandler* handler)
{
    _impl->settings.errorHandler = handler;
}

ErrorHandler* SAXParser::getErrorHandler() const
{
    return _impl->settings.errorHandler;
}

void SAXParser::setFeature(const XMLString& featureId, bool state)
{
    if (featureId == FEATURE_NAMESPACE_PREFIXES)
        _impl->settings.namespacePrefixes = state;
    else if (featureId == FEATURE_EXTERNAL_GENERAL_ENTITIES)
        _impl->settings.externalGeneralEntities = state;
    else if (featureId == FEATURE_EXTERNAL_PARAMETER_ENTITIES)
        _impl->settings.externalParameterEntities = state;
    else if (featureId != FEATURE_NAMESPACES)
        throw SAXNotRecognizedException(featureId);
    else if (!state)
        throw SAXNotSupportedException(featureId, "namespace support cannot be disabled");
}

bool SAXParser::getFeature(const XMLString& featureId) const
{
    if (featureId == FEATURE_NAMESPACES)
        return true;
    if (featureId == FEATURE_NAMESPACE_PREFIXES)
        return _impl->settings.namespacePrefixes;
    if (featureId == FEATURE_EXTERNAL_GENERAL_ENTITIES)
        return _impl->settings.externalGeneralEntities;
    if (featureId == FEATURE_EXTERNAL_PARAMETER_ENTITIES)
        return _impl->settings.externalParameterEntities;
    throw SAXNotRecognizedException(featureId);
}

void SAXParser::setProperty(const XMLString& propertyId, const XMLString&)
{
    if (propertyId == PROPERTY_DECLARATION_HANDLER || propertyId == PROPERTY_LEXICAL_HANDLER)
        throw SAXNotSupportedException("property does not take a string value", propertyId);
    throw SAXNotRecognizedException(propertyId);
}

void SAXParser::setProperty(const XMLString& propertyId, void* value)
{
    if (propertyId == PROPERTY_DECLARATION_HANDLER)
        _impl->settings.declHandler = static_cast<DeclHandler*>(value);
    else if (propertyId == PROPERTY_LEXICAL_HANDLER)
        _impl->settings.lexicalHandler = static_cast<LexicalHandler*>(value);
    else
        throw SAXNotRecognizedException(propertyId);
}

void* SAXParser::getProperty(const XMLString& propertyId) const
{
    if (propertyId == PROPERTY_DECLARATION_HANDLER)
        return _impl->settings.declHandler;
    if (propertyId == PROPERTY_LEXICAL_HANDLER)
        return _impl->settings.lexicalHandler;
    throw SAXNotRecognizedException(propertyId);
}

void SAXParser::parse(InputSource* source)
{
    if (!source)
        Bugcheck::nullPointer("source", "src/SAXParser", 120);
    if (source->getByteStream() || source->getCharacterStream())
        _impl->expat.parse(*source);
    else
        parse(source->getSystemId());
}

void SAXParser::parse(const XMLString& systemId)
{
    ResolvedSource source;
    if (_impl->settings.entityResolver)
        source = resolveSource(*_impl->settings.entityResolver, nullptr, systemId);
    if (!source)
        source = openSource(systemId);
    if (!source)
        throw SAXException("Cannot resolve system identifier", systemId);
    _impl->expat.parse(*source);
}

void SAXParser::parseMemoryNP(const char* xml, std::size_t size)
{
    _impl->expat.parse(xml, size);
}
} // namespace Vesk::XML
