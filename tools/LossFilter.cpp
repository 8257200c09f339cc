// SPDX-License-Identifier: MIT
#include "LossFilter.h"
#include "Vesk/XML/Locator.h"
#include "Vesk/XML/SAXParseException.h"

namespace Vesk::Tool
{

namespace
{

std::string placeText(int line, int column)
{
    return "line " + std::to_string(line) + ", column " + std::to_string(column) + ": ";
}

} // namespace

LossFilter::LossFilter(XML::XMLReader& parser, LossListener& listener)
    : LexicalFilterImpl(&parser),
      _listener(listener)
{
}

void LossFilter::setupParse()
{
    LexicalFilterImpl::setupParse();
    LexicalFilterImpl::setProperty(PROPERTY_DECLARATION_HANDLER, static_cast<XML::DeclHandler*>(this));
}

void LossFilter::setDocumentLocator(const XML::Locator* locator)
{
    _locator = locator;
    LexicalFilterImpl::setDocumentLocator(locator);
}

std::string LossFilter::place() const
{
    return _locator ? placeText(_locator->getLineNumber(), _locator->getColumnNumber()) : std::string();
}

// The name of a document type is not stored; whoever writes text again takes that of the root element.
void LossFilter::startElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname,
                              const XML::Attributes& attributes)
{
    if (!_documentTypeName.empty())
    {
        if (_documentTypeName != qname)
            _listener.lost(_documentTypePlace + "the document type's name \"" + _documentTypeName +
                           "\" is not that of the root element");
        _documentTypeName.clear();
    }
    LexicalFilterImpl::startElement(uri, localName, qname, attributes);
}

// Of the external subset, startDTD has told.
void LossFilter::skippedEntity(const XML::XMLString& name)
{
    if (name[0] == '%')
    {
        _hasSkippedDeclarations = true;
        _listener.noted(place() + "the parameter entity \"" + name +
                        ";\" is not read; default attribute values that it declares are not added, nor, unless the "
                        "document is standalone, those that the internal subset declares behind it");
    }
    else if (name != "[dtd]")
    {
        _listener.lost(place() + "the reference \"&" + name + ";\" cannot be expanded");
    }
    LexicalFilterImpl::skippedEntity(name);
}

void LossFilter::warning(const XML::SAXException& exception)
{
    if (const auto* warning = dynamic_cast<const XML::SAXParseException*>(&exception))
        _listener.lost(placeText(warning->getLineNumber(), warning->getColumnNumber()) + warning->getText());
    LexicalFilterImpl::warning(exception);
}

void LossFilter::startDTD(const XML::XMLString& name, const XML::XMLString& publicId, const XML::XMLString& systemId)
{
    _documentTypeName = name;
    _documentTypePlace = place();
    if (!systemId.empty())
        _listener.noted(_documentTypePlace + "the external subset " + systemId +
                        " is not read; default attribute values that it declares are not added");
    LexicalFilterImpl::startDTD(name, publicId, systemId);
}

void LossFilter::endDTD()
{
    if (_hasDeclarations)
        _listener.noted(_documentTypePlace +
                        (_hasSkippedDeclarations
                             ? "the internal subset is left out; the effects of what was read on the content, "
                               "notations, unparsed entities and processing instructions stay"
                             : "the internal subset is left out; its effects on the content, notations, unparsed "
                               "entities and processing instructions stay"));
    LexicalFilterImpl::endDTD();
}

void LossFilter::attributeDecl(const XML::XMLString&, const XML::XMLString&, const XML::XMLString&,
                               const XML::XMLString*, const XML::XMLString*)
{
    _hasDeclarations = true;
}

void LossFilter::elementDecl(const XML::XMLString&, const XML::XMLString&)
{
    _hasDeclarations = true;
}

void LossFilter::externalEntityDecl(const XML::XMLString&, const XML::XMLString*, const XML::XMLString&)
{
    _hasDeclarations = true;
}

void LossFilter::internalEntityDecl(const XML::XMLString&, const XML::XMLString&)
{
    _hasDeclarations = true;
}

} // namespace Vesk::Tool
