// SPDX-License-Identifier: MIT
#include "Vesk/XML/LexicalFilterImpl.h"

namespace Vesk::XML
{
void LexicalFilterImpl::setProperty(const XMLString& propertyId, void* value)
{
    if (propertyId == PROPERTY_LEXICAL_HANDLER)
        _lexicalHandler = static_cast<LexicalHandler*>(value);
    else
        XMLFilterImpl::setProperty(propertyId, value);
}

void* LexicalFilterImpl::getProperty(const XMLString& propertyId) const
{
    return propertyId == PROPERTY_LEXICAL_HANDLER ? _lexicalHandler : XMLFilterImpl::getProperty(propertyId);
}

void LexicalFilterImpl::setupParse()
{
    XMLFilterImpl::setupParse();
    XMLFilterImpl::setProperty(PROPERTY_LEXICAL_HANDLER, static_cast<LexicalHandler*>(this));
}

void LexicalFilterImpl::startDTD(const XMLString& name, const XMLString& publicId, const XMLString& systemId)
{
    if (_lexicalHandler)
        _lexicalHandler->startDTD(name, publicId, systemId);
}

void LexicalFilterImpl::endDTD()
{
    if (_lexicalHandler)
        _lexicalHandler->endDTD();
}

void LexicalFilterImpl::startEntity(const XMLString& name)
{
    if (_lexicalHandler)
        _lexicalHandler->startEntity(name);
}

void LexicalFilterImpl::endEntity(const XMLString& name)
{
    if (_lexicalHandler)
        _lexicalHandler->endEntity(name);
}

void LexicalFilterImpl::startCDATA()
{
    if (_lexicalHandler)
        _lexicalHandler->startCDATA();
}

void LexicalFilterImpl::endCDATA()
{
    if (_lexicalHandler)
        _lexicalHandler->endCDATA();
}

void LexicalFilterImpl::comment(const XMLChar ch[], int start, int length)
{
    if (_lexicalHandler)
        _lexicalHandler->comment(ch, start, length);
}
} // namespace Vesk::XML
