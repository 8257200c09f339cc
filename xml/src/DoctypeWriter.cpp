// SPDX-License-Identifier: MIT
#include "DoctypeWriter.h"
#include "Vesk/XML/Name.h"
#include "Vesk/XML/SAXException.h"
#include "XMLCharacters.h"
#include "XMLOutput.h"

namespace Vesk::XML
{
namespace
{
const XMLString& checkedNCName(const XMLString& name)
{
    if (!XMLCharacters::isNCName(name))
        throw SAXException("Invalid name", name);
    return name;
}

const XMLString& checkedQName(const XMLString& qname)
{
    XMLString prefix;
    XMLString localName;
    Name::split(qname, prefix, localName);
    if (!XMLCharacters::isNCName(localName) || (localName.size() != qname.size() && !XMLCharacters::isNCName(prefix)))
        throw SAXException("Invalid name", qname);
    return qname;
}

XMLString publicLiteral(const XMLString& publicId)
{
    constexpr const char* ALLOWED =
        " \r\nabcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-'()+,./:=?;!*#@$_%";
    if (publicId.find_first_not_of(ALLOWED) != XMLString::npos)
        throw SAXException("Public identifier cannot be written", publicId);
    return "\"" + publicId + "\"";
}

XMLString systemLiteral(const XMLString& systemId)
{
    const char quote = systemId.find('"') == XMLString::npos ? '"' : '\'';
    if (systemId.find(quote) != XMLString::npos)
        throw SAXException("System identifier cannot be written", systemId);
    return quote + systemId + quote;
}

// A document type or an entity with a public identifier needs a system identifier as well, be it empty.
XMLString externalId(const XMLString& publicId, const XMLString& systemId)
{
    if (publicId.empty())
        return "SYSTEM " + systemLiteral(systemId);
    return "PUBLIC " + publicLiteral(publicId) + " " + systemLiteral(systemId);
}
} // namespace

DoctypeWriter::DoctypeWriter(XMLOutput& out)
    : _out(out)
{
}

void DoctypeWriter::reset()
{
    _isOpen = false;
    _isWritten = false;
    _hasSubset = false;
    _hasExternalSubset = false;
    _hasRoot = false;
}

void DoctypeWriter::start(const XMLString& name, const XMLString& publicId, const XMLString& systemId)
{
    if (_isWritten || _hasRoot)
        throw SAXException("Document type declaration in the wrong place");
    _isWritten = true;
    _isOpen = true;
    _hasExternalSubset = !systemId.empty();

    _out.write("<!DOCTYPE ");
    if (name.empty())
        _out.hold(); // until the root element names it
    else
        _out.write(checkedQName(name));
    if (!publicId.empty() || !systemId.empty())
    {
        _out.write(' ');
        _out.writeVerbatim(externalId(publicId, systemId));
    }
    if (!_declarations.empty())
    {
        openSubset();
        _out.writeVerbatim(_declarations);
        _declarations.clear();
    }
}

void DoctypeWriter::end()
{
    if (!_isOpen)
        throw SAXException("Unbalanced end of the document type declaration");
    _isOpen = false;
    _out.write(_hasSubset ? "]>\n" : ">\n");
}

void DoctypeWriter::startItem()
{
    openSubset();
}

void DoctypeWriter::openSubset()
{
    if (!_hasSubset)
        _out.write(" [\n");
    _hasSubset = true;
}

void DoctypeWriter::addNotation(const XMLString& name, const XMLString& publicId, const XMLString& systemId)
{
    const bool isPublicOnly = !publicId.empty() && systemId.empty();
    addDeclaration("<!NOTATION " + checkedNCName(name) + " " +
                   (isPublicOnly ? "PUBLIC " + publicLiteral(publicId) : externalId(publicId, systemId)) + ">\n");
}

void DoctypeWriter::addUnparsedEntity(const XMLString& name, const XMLString& publicId, const XMLString& systemId,
                                      const XMLString& notationName)
{
    addDeclaration("<!ENTITY " + checkedNCName(name) + " " + externalId(publicId, systemId) + " NDATA " +
                   checkedNCName(notationName) + ">\n");
}

void DoctypeWriter::addDeclaration(const XMLString& text)
{
    if (_isOpen)
    {
        openSubset();
        _out.writeVerbatim(text);
        return;
    }
    if (_isWritten || _hasRoot)
        throw SAXException("Notation or entity declaration in the wrong place");
    if (text.size() > XMLOutput::MAX_HELD_OCTETS - _declarations.size())
        throw SAXException("Too much in front of the root element");
    _declarations += text;
}

void DoctypeWriter::startRoot(std::string_view name)
{
    _hasRoot = true;
    if (_out.isHolding())
        _out.release(name);
    if (_declarations.empty())
        return;
    _out.write("<!DOCTYPE ");
    _out.write(name);
    openSubset();
    _out.writeVerbatim(_declarations);
    _out.write("]>\n");
    _declarations.clear();
}
} // namespace Vesk::XML
