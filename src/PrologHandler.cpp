// SPDX-License-Identifier: MIT
#include "PrologHandler.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/XML/XMLReader.h"
#include <string>
#include <utility>

namespace Vesk::FastInfoset
{

PrologHandler::PrologHandler(FastInfosetWriter& writer)
    : _writer(writer)
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
    hold([this] { _writer.startDocument(); });
}

void PrologHandler::endDocument()
{
    endProlog();
    _writer.endDocument();
}

void PrologHandler::startElement(const XML::XMLString& uri, const XML::XMLString& localName,
                                 const XML::XMLString& qname, const XML::Attributes& attributes)
{
    endProlog();
    _writer.startElement(uri, localName, qname, attributes);
}

void PrologHandler::endElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname)
{
    _writer.endElement(uri, localName, qname);
}

void PrologHandler::characters(const XML::XMLChar ch[], int start, int length)
{
    _writer.characters(ch, start, length);
}

void PrologHandler::ignorableWhitespace(const XML::XMLChar ch[], int start, int length)
{
    _writer.ignorableWhitespace(ch, start, length);
}

void PrologHandler::processingInstruction(const XML::XMLString& target, const XML::XMLString& data)
{
    if (_inProlog)
        hold([this, target, data] { _writer.processingInstruction(target, data); });
    else
        _writer.processingInstruction(target, data);
}

void PrologHandler::startPrefixMapping(const XML::XMLString& prefix, const XML::XMLString& uri)
{
    endProlog();
    _writer.startPrefixMapping(prefix, uri);
}

void PrologHandler::endPrefixMapping(const XML::XMLString& prefix)
{
    _writer.endPrefixMapping(prefix);
}

void PrologHandler::skippedEntity(const XML::XMLString& name)
{
    _writer.skippedEntity(name);
}

void PrologHandler::startDTD(const XML::XMLString& name, const XML::XMLString& publicId, const XML::XMLString& systemId)
{
    hold([this, name, publicId, systemId] { _writer.startDTD(name, publicId, systemId); });
}

void PrologHandler::endDTD()
{
    hold([this] { _writer.endDTD(); });
}

void PrologHandler::startEntity(const XML::XMLString& name)
{
    _writer.startEntity(name);
}

void PrologHandler::endEntity(const XML::XMLString& name)
{
    _writer.endEntity(name);
}

void PrologHandler::startCDATA()
{
    _writer.startCDATA();
}

void PrologHandler::endCDATA()
{
    _writer.endCDATA();
}

void PrologHandler::comment(const XML::XMLChar ch[], int start, int length)
{
    if (_inProlog)
    {
        const std::string text(ch + start, static_cast<std::size_t>(length));
        hold([this, text] { _writer.comment(text.data(), 0, static_cast<int>(text.size())); });
    }
    else
    {
        _writer.comment(ch, start, length);
    }
}

// The writer records declarations until the document starts, so they need not be held.
void PrologHandler::notationDecl(const XML::XMLString& name, const XML::XMLString* publicId,
                                 const XML::XMLString* systemId)
{
    _writer.notationDecl(name, publicId, systemId);
}

void PrologHandler::unparsedEntityDecl(const XML::XMLString& name, const XML::XMLString* publicId,
                                       const XML::XMLString& systemId, const XML::XMLString& notationName)
{
    _writer.unparsedEntityDecl(name, publicId, systemId, notationName);
}

} // namespace Vesk::FastInfoset
