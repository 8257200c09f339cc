// SPDX-License-Identifier: MIT
#include "Vesk/XML/WhitespaceFilter.h"
#include "Vesk/XML/Attributes.h"
#include "Vesk/XML/NamespaceSupport.h"
#include <algorithm>

namespace Vesk::XML
{
namespace
{
// No layout is that long. The bound keeps a document of nothing but spaces from filling the memory.
constexpr std::size_t MAX_HELD_OCTETS = 16 * 1024 * 1024;

const XMLString SPACE = "space";
const XMLString PRESERVE = "preserve";

bool isWhitespace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}
} // namespace

WhitespaceFilter::WhitespaceFilter(XMLReader* parent)
    : XMLFilterImpl(parent)
{
}

void WhitespaceFilter::setProperty(const XMLString& propertyId, void* value)
{
    if (propertyId == PROPERTY_LEXICAL_HANDLER)
        _lexicalHandler = static_cast<LexicalHandler*>(value);
    else
        XMLFilterImpl::setProperty(propertyId, value);
}

void* WhitespaceFilter::getProperty(const XMLString& propertyId) const
{
    return propertyId == PROPERTY_LEXICAL_HANDLER ? _lexicalHandler : XMLFilterImpl::getProperty(propertyId);
}

void WhitespaceFilter::setupParse()
{
    XMLFilterImpl::setupParse();
    XMLFilterImpl::setProperty(PROPERTY_LEXICAL_HANDLER, static_cast<LexicalHandler*>(this));
}

void WhitespaceFilter::startDocument()
{
    endRun();
    _preserved.clear();
    XMLFilterImpl::startDocument();
}

void WhitespaceFilter::startElement(const XMLString& uri, const XMLString& localName, const XMLString& qname,
                                    const Attributes& attributes)
{
    endRun();
    const int space = attributes.getIndex(NamespaceSupport::XML_NAMESPACE, SPACE);
    _preserved.push_back(space >= 0 ? attributes.getValue(space) == PRESERVE : isPreserved());
    XMLFilterImpl::startElement(uri, localName, qname, attributes);
}

void WhitespaceFilter::endElement(const XMLString& uri, const XMLString& localName, const XMLString& qname)
{
    endRun();
    if (!_preserved.empty())
        _preserved.pop_back();
    XMLFilterImpl::endElement(uri, localName, qname);
}

void WhitespaceFilter::characters(const XMLChar ch[], int start, int length)
{
    if (!_keep && !isPreserved())
    {
        const XMLChar* const text = ch + start;
        if (_whitespace.size() < MAX_HELD_OCTETS && std::all_of(text, text + length, isWhitespace))
        {
            _whitespace.append(text, static_cast<std::size_t>(length));
            return;
        }
        keepRun();
    }
    XMLFilterImpl::characters(ch, start, length);
}

void WhitespaceFilter::ignorableWhitespace(const XMLChar ch[], int start, int length)
{
    if (isPreserved())
        XMLFilterImpl::ignorableWhitespace(ch, start, length);
}

void WhitespaceFilter::processingInstruction(const XMLString& target, const XMLString& data)
{
    endRun();
    XMLFilterImpl::processingInstruction(target, data);
}

void WhitespaceFilter::skippedEntity(const XMLString& name)
{
    keepRun();
    XMLFilterImpl::skippedEntity(name);
}

void WhitespaceFilter::startDTD(const XMLString& name, const XMLString& publicId, const XMLString& systemId)
{
    endRun();
    if (_lexicalHandler)
        _lexicalHandler->startDTD(name, publicId, systemId);
}

void WhitespaceFilter::endDTD()
{
    if (_lexicalHandler)
        _lexicalHandler->endDTD();
}

void WhitespaceFilter::startEntity(const XMLString& name)
{
    if (_lexicalHandler)
        _lexicalHandler->startEntity(name);
}

void WhitespaceFilter::endEntity(const XMLString& name)
{
    if (_lexicalHandler)
        _lexicalHandler->endEntity(name);
}

void WhitespaceFilter::startCDATA()
{
    keepRun();
    if (_lexicalHandler)
        _lexicalHandler->startCDATA();
}

void WhitespaceFilter::endCDATA()
{
    if (_lexicalHandler)
        _lexicalHandler->endCDATA();
}

void WhitespaceFilter::comment(const XMLChar ch[], int start, int length)
{
    endRun();
    if (_lexicalHandler)
        _lexicalHandler->comment(ch, start, length);
}

// White space that was held back turns out to belong to text.
void WhitespaceFilter::keepRun()
{
    _keep = true;
    if (!_whitespace.empty())
        XMLFilterImpl::characters(_whitespace.c_str(), 0, static_cast<int>(_whitespace.size()));
    _whitespace.clear();
}

void WhitespaceFilter::endRun()
{
    _keep = false;
    _whitespace.clear();
}
} // namespace Vesk::XML
