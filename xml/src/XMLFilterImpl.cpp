// SPDX-License-Identifier: MIT
#include "Vesk/XML/XMLFilterImpl.h"
#include "Vesk/Bugcheck.h"

namespace Vesk::XML
{
XMLFilterImpl::XMLFilterImpl(XMLReader* parent)
    : _parent(parent)
{
}

XMLReader& XMLFilterImpl::parent() const
{
    if (!_parent)
        Bugcheck::nullPointer("_parent", "src/XMLFilterImpl", 15);
    return *_parent;
}

void XMLFilterImpl::setFeature(const XMLString& featureId, bool state)
{
    parent().setFeature(featureId, state);
}

bool XMLFilterImpl::getFeature(const XMLString& featureId) const
{
    return parent().getFeature(featureId);
}

void XMLFilterImpl::setProperty(const XMLString& propertyId, const XMLString& value)
{
    parent().setProperty(propertyId, value);
}

void XMLFilterImpl::setProperty(const XMLString& propertyId, void* value)
{
    parent().setProperty(propertyId, value);
}

void* XMLFilterImpl::getProperty(const XMLString& propertyId) const
{
    return parent().getProperty(propertyId);
}

void XMLFilterImpl::setupParse()
{
    XMLReader& reader = parent();
    reader.setEntityResolver(_entityResolver ? this : nullptr);
    reader.setDTDHandler(this);
    reader.setContentHandler(this);
    reader.setErrorHandler(this);
}

void XMLFilterImpl::parse(InputSource* source)
{
    setupParse();
    parent().parse(source);
}

void XMLFilterImpl::parse(const XMLString& systemId)
{
    setupParse();
    parent().parse(systemId);
}

void XMLFilterImpl::parseMemoryNP(const char* xml, std::size_t size)
{
    setupParse();
    parent().parseMemoryNP(xml, size);
}

InputSource* XMLFilterImpl::resolveEntity(const XMLString* publicId, const XMLString& systemId)
{
    return _entityResolver ? _entityResolver->resolveEntity(publicId, systemId) : nullptr;
}

void XMLFilterImpl::releaseInputSource(InputSource* source)
{
    if (_entityResolver)
        _entityResolver->releaseInputSource(source);
}

void XMLFilterImpl::notationDecl(const XMLString& name, const XMLString* publicId, const XMLString* systemId)
{
    if (_dtdHandler)
        _dtdHandler->notationDecl(name, publicId, systemId);
}

void XMLFilterImpl::unparsedEntityDecl(const XMLString& name, const XMLString* publicId, const XMLString& systemId,
                                       const XMLString& notationName)
{
    if (_dtdHandler)
        _dtdHandler->unparsedEntityDecl(name, publicId, systemId, notationName);
}

void XMLFilterImpl::setDocumentLocator(const Locator* locator)
{
    if (_contentHandler)
        _contentHandler->setDocumentLocator(locator);
}

void XMLFilterImpl::startDocument()
{
    if (_contentHandler)
        _contentHandler->startDocument();
}

void XMLFilterImpl::endDocument()
{
    if (_contentHandler)
        _contentHandler->endDocument();
}

void XMLFilterImpl::startElement(const XMLString& uri, const XMLString& localName, const XMLString& qname,
                                 const Attributes& attributes)
{
    if (_contentHandler)
        _contentHandler->startElement(uri, localName, qname, attributes);
}

void XMLFilterImpl::endElement(const XMLString& uri, const XMLString& localName, const XMLString& qname)
{
    if (_contentHandler)
        _contentHandler->endElement(uri, localName, qname);
}

void XMLFilterImpl::characters(const XMLChar ch[], int start, int length)
{
    if (_contentHandler)
        _contentHandler->characters(ch, start, length);
}

void XMLFilterImpl::ignorableWhitespace(const XMLChar ch[], int start, int length)
{
    if (_contentHandler)
        _contentHandler->ignorableWhitespace(ch, start, length);
}

void XMLFilterImpl::processingInstruction(const XMLString& target, const XMLString& data)
{
    if (_contentHandler)
        _contentHandler->processingInstruction(target, data);
}

void XMLFilterImpl::startPrefixMapping(const XMLString& prefix, const XMLString& uri)
{
    if (_contentHandler)
        _contentHandler->startPrefixMapping(prefix, uri);
}

void XMLFilterImpl::endPrefixMapping(const XMLString& prefix)
{
    if (_contentHandler)
        _contentHandler->endPrefixMapping(prefix);
}

void XMLFilterImpl::skippedEntity(const XMLString& name)
{
    if (_contentHandler)
        _contentHandler->skippedEntity(name);
}

void XMLFilterImpl::warning(const SAXException& exception)
{
    if (_errorHandler)
        _errorHandler->warning(exception);
}

void XMLFilterImpl::error(const SAXException& exception)
{
    if (_errorHandler)
        _errorHandler->error(exception);
}

void XMLFilterImpl::fatalError(const SAXException& exception)
{
    if (_errorHandler)
        _errorHandler->fatalError(exception);
}
} // namespace Vesk::XML
