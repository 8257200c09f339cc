// SPDX-License-Identifier: MIT
#include "PrologHandler.h"
#include "Vesk/XML/XMLReader.h"
#include <string>
#include <utility>

namespace Vesk::FastInfoset
{

PrologHandler::PrologHandler(XML::ContentHandler& content, XML::LexicalHandler& lexical, XML::DTDHandler& dtd)
    : _content(content),
      _lexical(lexical),
      _dtd(dtd)
{
}

void PrologHandler::connect(XML::XMLReader& reader)
{
    reader.setFeature(XML::XMLReader::FEATURE_NAMESPACES, true);
    reader.setFeature(XML::XMLReader::FEATURE_NAMESPACE_PREFIXES, true);
    reader.setContentHandler(this);
    reader.setDTDHandler(this);
    reader.setProperty(XML::XMLReader::PROPERTY_LEXICAL_HANDLER, static_cast<XML::LexicalHandler*>(this));
}

void PrologHandler::hold(std::function<void()> event)
{
    _held.push_back(std::move(event));
}

void PrologHandler::endProlog()
{
    if (!_inProlog)
        return;
    _inProlog = false;
    for (const std::function<void()>& event : _held)
        event();
    _held.clear();
}

void PrologHandler::setDocumentLocator(const XML::Locator*)
{
}

void PrologHandler::startDocument()
{
    hold([this] { _content.startDocument(); });
}

void PrologHandler::endDocument()
{
    endProlog();
    _content.endDocument();
}

void PrologHandler::startElement(const XML::XMLString& uri, const XML::XMLString& localName,
                                 const XML::XMLString& qname, const XML::Attributes& attributes)
{
    endProlog();
    _content.startElement(uri, localName, qname, attributes);
}

void PrologHandler::endElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname)
{
    _content.endElement(uri, localName, qname);
}

void PrologHandler::characters(const XML::XMLChar ch[], int start, int length)
{
    _content.characters(ch, start, length);
}

void PrologHandler::ignorableWhitespace(const XML::XMLChar ch[], int start, int length)
{
    _content.ignorableWhitespace(ch, start, length);
}

void PrologHandler::processingInstruction(const XML::XMLString& target, const XML::XMLString& data)
{
    if (_inProlog)
        hold([this, target, data] { _content.processingInstruction(target, data); });
    else
        _content.processingInstruction(target, data);
}

void PrologHandler::startPrefixMapping(const XML::XMLString& prefix, const XML::XMLString& uri)
{
    endProlog();
    _content.startPrefixMapping(prefix, uri);
}

void PrologHandler::endPrefixMapping(const XML::XMLString& prefix)
{
    _content.endPrefixMapping(prefix);
}

void PrologHandler::skippedEntity(const XML::XMLString& name)
{
    _content.skippedEntity(name);
}

void PrologHandler::startDTD(const XML::XMLString& name, const XML::XMLString& publicId, const XML::XMLString& systemId)
{
    hold([this, name, publicId, systemId] { _lexical.startDTD(name, publicId, systemId); });
}

void PrologHandler::endDTD()
{
    hold([this] { _lexical.endDTD(); });
}

void PrologHandler::startEntity(const XML::XMLString& name)
{
    _lexical.startEntity(name);
}

void PrologHandler::endEntity(const XML::XMLString& name)
{
    _lexical.endEntity(name);
}

void PrologHandler::startCDATA()
{
    _lexical.startCDATA();
}

void PrologHandler::endCDATA()
{
    _lexical.endCDATA();
}

void PrologHandler::comment(const XML::XMLChar ch[], int start, int length)
{
    if (_inProlog)
    {
        const std::string text(ch + start, static_cast<std::size_t>(length));
        hold([this, text] { _lexical.comment(text.data(), 0, static_cast<int>(text.size())); });
    }
    else
    {
        _lexical.comment(ch, start, length);
    }
}

// The writer records declarations until the document starts, so they need not be held.
void PrologHandler::notationDecl(const XML::XMLString& name, const XML::XMLString* publicId,
                                 const XML::XMLString* systemId)
{
    _dtd.notationDecl(name, publicId, systemId);
}

void PrologHandler::unparsedEntityDecl(const XML::XMLString& name, const XML::XMLString* publicId,
                                       const XML::XMLString& systemId, const XML::XMLString& notationName)
{
    _dtd.unparsedEntityDecl(name, publicId, systemId, notationName);
}

} // namespace Vesk::FastInfoset
