// SPDX-License-Identifier: MIT
#include "Vesk/XML/XMLWriter.h"
#include "DoctypeWriter.h"
#include "StartTagWriter.h"
#include "Vesk/XML/Attributes.h"
#include "Vesk/XML/NamespaceSupport.h"
#include "Vesk/XML/SAXException.h"
#include "XMLCharacters.h"
#include "XMLOutput.h"
#include <algorithm>

namespace Vesk::XML
{
namespace
{
// Names of few letters can take much memory if a document repeats a long one by reference, level after level.
constexpr std::size_t MAX_OPEN_NAME_OCTETS = 256 * 1024 * 1024;

// Deeper levels are not indented further: white space would outgrow the document.
constexpr std::size_t MAX_INDENTED_LEVELS = 32;

const XMLString SPACE = "space";
const XMLString PRESERVE = "preserve";
const XMLString EMPTY;

std::string_view view(const XMLChar ch[], int start, int length)
{
    return std::string_view(ch + start, static_cast<std::size_t>(std::max(length, 0)));
}

bool isWhitespace(std::string_view text)
{
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}
} // namespace

XMLWriter::XMLWriter(std::ostream& out, int options)
    : _options(options),
      _out(new XMLOutput(out)),
      _tags(new StartTagWriter(*_out)),
      _doctype(new DoctypeWriter(*_out))
{
}

XMLWriter::~XMLWriter()
{
    try
    {
        _out->flush();
    }
    catch (...)
    {
        // Nobody is left to tell.
    }
}

void XMLWriter::setDocumentLocator(const Locator*)
{
}

void XMLWriter::startDocument()
{
    _out->discard();
    _tags->reset();
    _doctype->reset();
    _open.clear();
    _openNames.clear();
    _hasRoot = false;
    _isTagOpen = false;
    _inCDATA = false;
    if ((_options & WRITE_XML_DECLARATION) != 0)
        _out->write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
}

void XMLWriter::endDocument()
{
    checkPlace("End of document");
    if (!_hasRoot || !_open.empty() || _doctype->isOpen())
        throw SAXException("End of document in the wrong place");
    if ((_options & PRETTY_PRINT) != 0)
        _out->write('\n');
    _out->flush();
}

void XMLWriter::startElement(const XMLString& uri, const XMLString& localName, const XMLString& qname,
                             const Attributes& attributes)
{
    checkPlace("Element");
    if (_doctype->isOpen() || (_hasRoot && _open.empty()))
        throw SAXException("Element in the wrong place", localName.empty() ? qname : localName);

    OpenElement element = {_openNames.size(), (_options & PRETTY_PRINT) == 0, false};
    if (!_open.empty())
    {
        startChild();
        element.isVerbatim = _open.back().isVerbatim;
    }
    _tags->enterElement(uri, localName, qname, attributes, _openNames);
    if (_openNames.size() > MAX_OPEN_NAME_OCTETS)
        throw SAXException("Elements nested too deeply for the length of their names");

    const std::string_view name = std::string_view(_openNames).substr(element.nameStart);
    if (_open.empty())
        _doctype->startRoot(name);
    _hasRoot = true;
    _out->write("<", name);
    _tags->writeAttributes();
    _isTagOpen = true;
    if (!element.isVerbatim)
        element.isVerbatim = attributes.getValue(NamespaceSupport::XML_NAMESPACE, SPACE) == PRESERVE;
    _open.push_back(element);
}

void XMLWriter::endElement(const XMLString&, const XMLString&, const XMLString&)
{
    checkPlace("End of element");
    if (_open.empty())
        throw SAXException("Unbalanced end of element");

    const OpenElement element = _open.back();
    _open.pop_back();
    if (_isTagOpen)
    {
        _isTagOpen = false;
        _out->write("/>");
    }
    else
    {
        if (element.hasChildren && !element.isVerbatim)
            indent();
        _out->write("</", std::string_view(_openNames).substr(element.nameStart), ">");
    }
    _openNames.resize(element.nameStart);
    _tags->leaveElement();
}

void XMLWriter::characters(const XMLChar ch[], int start, int length)
{
    const std::string_view text = view(ch, start, length);
    if (text.empty())
        return;
    if (_open.empty() && !_doctype->isOpen() && isWhitespace(text))
        return; // layout around the root element
    startText("Character data");
    if (_inCDATA)
        writeCDATA(text);
    else
        _out->writeText(text);
}

void XMLWriter::ignorableWhitespace(const XMLChar ch[], int start, int length)
{
    characters(ch, start, length);
}

void XMLWriter::processingInstruction(const XMLString& target, const XMLString& data)
{
    const bool isXML = target.size() == 3 && (target[0] == 'x' || target[0] == 'X') &&
                       (target[1] == 'm' || target[1] == 'M') && (target[2] == 'l' || target[2] == 'L');
    if (isXML || !XMLCharacters::isNCName(target))
        throw SAXException("Invalid name", target);
    if (data.find("?>") != XMLString::npos)
        throw SAXException("Processing instruction contains \"?>\"", target);

    startItem("Processing instruction");
    _out->write("<?", target, data.empty() ? "" : " ");
    _out->writeVerbatim(data);
    _out->write("?>");
    endItem();
}

void XMLWriter::startPrefixMapping(const XMLString& prefix, const XMLString& uri)
{
    _tags->declarePrefix(prefix, uri);
}

void XMLWriter::endPrefixMapping(const XMLString&)
{
}

void XMLWriter::skippedEntity(const XMLString& name)
{
    // SAX also reports parameter entities ("%name") and the external subset ("[dtd]").
    if (!name.empty() && (name[0] == '%' || name[0] == '['))
        return;
    if (!XMLCharacters::isNCName(name))
        throw SAXException("Invalid name", name);
    if (!_doctype->hasExternalSubset() || _inCDATA)
        throw SAXException("Reference to an undeclared entity", name);
    startText("Entity reference");
    _out->write("&", name, ";");
}

void XMLWriter::startDTD(const XMLString& name, const XMLString& publicId, const XMLString& systemId)
{
    _doctype->start(name, publicId, systemId);
}

void XMLWriter::endDTD()
{
    _doctype->end();
}

void XMLWriter::startEntity(const XMLString&)
{
}

void XMLWriter::endEntity(const XMLString&)
{
}

void XMLWriter::startCDATA()
{
    checkPlace("CDATA section");
    startText("CDATA section");
    _out->write("<![CDATA[");
    _inCDATA = true;
    _closingBrackets = 0;
}

void XMLWriter::endCDATA()
{
    if (!_inCDATA)
        throw SAXException("Unbalanced end of CDATA section");
    _inCDATA = false;
    _out->write("]]>");
}

void XMLWriter::comment(const XMLChar ch[], int start, int length)
{
    const std::string_view text = view(ch, start, length);
    if (text.find("--") != std::string_view::npos || (!text.empty() && text.back() == '-'))
        throw SAXException("Comment contains \"--\" or ends in \"-\"");

    startItem("Comment");
    _out->write("<!--");
    _out->writeVerbatim(text);
    _out->write("-->");
    endItem();
}

void XMLWriter::notationDecl(const XMLString& name, const XMLString* publicId, const XMLString* systemId)
{
    _doctype->addNotation(name, publicId ? *publicId : EMPTY, systemId ? *systemId : EMPTY);
}

void XMLWriter::unparsedEntityDecl(const XMLString& name, const XMLString* publicId, const XMLString& systemId,
                                   const XMLString& notationName)
{
    _doctype->addUnparsedEntity(name, publicId ? *publicId : EMPTY, systemId, notationName);
}

// Only text may stand in a CDATA section.
void XMLWriter::checkPlace(const char* item) const
{
    if (_inCDATA)
        throw SAXException(std::string(item) + " inside a CDATA section");
}

// A comment or processing instruction may stand anywhere; outside of the root element it gets a line of its own.
void XMLWriter::startItem(const char* item)
{
    checkPlace(item);
    if (_doctype->isOpen())
        _doctype->startItem();
    else if (!_open.empty())
        startChild();
    else if (_hasRoot)
        _out->write('\n');
}

void XMLWriter::endItem()
{
    if (!_hasRoot)
        _out->write('\n');
}

void XMLWriter::startChild()
{
    closeStartTag();
    OpenElement& parent = _open.back();
    parent.hasChildren = true;
    if (!parent.isVerbatim)
        indent();
}

void XMLWriter::startText(const char* item)
{
    if (_open.empty())
        throw SAXException(std::string(item) + " outside of the root element");
    closeStartTag();
    _open.back().isVerbatim = true;
}

void XMLWriter::closeStartTag()
{
    if (_isTagOpen)
        _out->write('>');
    _isTagOpen = false;
}

void XMLWriter::indent()
{
    _out->write('\n');
    for (std::size_t level = std::min(_open.size(), MAX_INDENTED_LEVELS); level > 0; --level)
        _out->write("  ");
}

// Neither "]]>" nor a carriage return can stand in a CDATA section: there the section ends and another one starts.
void XMLWriter::writeCDATA(std::string_view text)
{
    std::size_t written = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const bool isEnd = text[i] == '>' && _closingBrackets == 2;
        if (isEnd || text[i] == '\r')
        {
            _out->writeVerbatim(text.substr(written, i - written));
            _out->write(isEnd ? "]]><![CDATA[" : "]]>&#xD;<![CDATA[");
            written = isEnd ? i : i + 1;
        }
        _closingBrackets = text[i] == ']' ? std::min(_closingBrackets + 1, 2) : 0;
    }
    _out->writeVerbatim(text.substr(written));
}
} // namespace Vesk::XML
