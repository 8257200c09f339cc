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

void WhitespaceFilter::startDocument()
{
    endRun();
    _preserved.clear();
    LexicalFilterImpl::startDocument();
}

void WhitespaceFilter::startElement(const XMLString& uri, const XMLString& localName, const XMLString& qname,
                                    const Attributes& attributes)
{
    endRun();
    const int space = attributes.getIndex(NamespaceSupport::XML_NAMESPACE, SPACE);
    _preserved.push_back(space >= 0 ? attributes.getValue(space) == PRESERVE : isPreserved());
    LexicalFilterImpl::startElement(uri, localName, qname, attributes);
}

void WhitespaceFilter::endElement(const XMLString& uri, const XMLString& localName, const XMLString& qname)
{
    endRun();
    if (!_preserved.empty())
        _preserved.pop_back();
    LexicalFilterImpl::endElement(uri, localName, qname);
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
    LexicalFilterImpl::characters(ch, start, length);
}

void WhitespaceFilter::ignorableWhitespace(const XMLChar ch[], int start, int length)
{
    if (isPreserved())
        LexicalFilterImpl::ignorableWhitespace(ch, start, length);
}

void WhitespaceFilter::processingInstruction(const XMLString& target, const XMLString& data)
{
    endRun();
    LexicalFilterImpl::processingInstruction(target, data);
}

void WhitespaceFilter::skippedEntity(const XMLString& name)
{
    keepRun();
    LexicalFilterImpl::skippedEntity(name);
}

void WhitespaceFilter::startDTD(const XMLString& name, const XMLString& publicId, const XMLString& systemId)
{
    endRun();
    LexicalFilterImpl::startDTD(name, publicId, systemId);
}

void WhitespaceFilter::startCDATA()
{
    keepRun();
    LexicalFilterImpl::startCDATA();
}

void WhitespaceFilter::comment(const XMLChar ch[], int start, int length)
{
    endRun();
    LexicalFilterImpl::comment(ch, start, length);
}

// White space that was held back turns out to belong to text.
void WhitespaceFilter::keepRun()
{
    _keep = true;
    if (!_whitespace.empty())
        LexicalFilterImpl::characters(_whitespace.c_str(), 0, static_cast<int>(_whitespace.size()));
    _whitespace.clear();
}

void WhitespaceFilter::endRun()
{
    _keep = false;
    _whitespace.clear();
}
} // namespace Vesk::XML
