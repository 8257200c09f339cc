// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/TypingFilter.h"
#include "IndexForecast.h"
#include "TypedText.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"

namespace Vesk::FastInfoset
{

namespace
{

// Keeps a document of one long text from filling the memory.
constexpr std::size_t MAX_HELD_OCTETS = 16 * 1024 * 1024;

} // namespace

TypingFilter::TypingFilter(FastInfosetWriter& writer, int maxIndexedLength)
    : _writer(writer),
      _forecast(std::make_unique<IndexForecast>(maxIndexedLength))
{
}

TypingFilter::~TypingFilter() = default;

void TypingFilter::setDocumentLocator(const XML::Locator* locator)
{
    _writer.setDocumentLocator(locator);
}

void TypingFilter::startDocument()
{
    _writer.startDocument();
}

void TypingFilter::endDocument()
{
    endRun();
    _writer.endDocument();
}

void TypingFilter::startElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname,
                                const XML::Attributes& attributes)
{
    endRun();
    _writer.startElement(uri, localName, qname, attributes);
}

void TypingFilter::endElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname)
{
    endRun();
    _writer.endElement(uri, localName, qname);
}

void TypingFilter::characters(const XML::XMLChar ch[], int start, int length)
{
    if (!_keep && start >= 0 && length >= 0)
    {
        const std::string_view piece(ch + start, static_cast<std::size_t>(length));
        if (piece.size() <= MAX_HELD_OCTETS - _run.size() && TypedText::mayContain(piece))
        {
            _run += piece;
            return;
        }
    }
    keepRun();
    _writer.characters(ch, start, length);
}

void TypingFilter::ignorableWhitespace(const XML::XMLChar ch[], int start, int length)
{
    characters(ch, start, length);
}

void TypingFilter::processingInstruction(const XML::XMLString& target, const XML::XMLString& data)
{
    endRun();
    _writer.processingInstruction(target, data);
}

void TypingFilter::startPrefixMapping(const XML::XMLString& prefix, const XML::XMLString& uri)
{
    endRun();
    _writer.startPrefixMapping(prefix, uri);
}

void TypingFilter::endPrefixMapping(const XML::XMLString& prefix)
{
    _writer.endPrefixMapping(prefix);
}

void TypingFilter::skippedEntity(const XML::XMLString& name)
{
    keepRun();
    _writer.skippedEntity(name);
}

void TypingFilter::startDTD(const XML::XMLString& name, const XML::XMLString& publicId, const XML::XMLString& systemId)
{
    _writer.startDTD(name, publicId, systemId);
}

void TypingFilter::endDTD()
{
    _writer.endDTD();
}

// Text goes on over the bounds of entities, of which the binary form knows nothing.
void TypingFilter::startEntity(const XML::XMLString& name)
{
    _writer.startEntity(name);
}

void TypingFilter::endEntity(const XML::XMLString& name)
{
    _writer.endEntity(name);
}

void TypingFilter::startCDATA()
{
    keepRun();
    _writer.startCDATA();
}

void TypingFilter::endCDATA()
{
    _writer.endCDATA();
}

void TypingFilter::comment(const XML::XMLChar ch[], int start, int length)
{
    endRun();
    _writer.comment(ch, start, length);
}

// What was held back goes out as text, and so does the rest of the run. Were a part of it a value, it could come to
// stand beside another one, and a writer that takes both from a reader would join them with a space between.
void TypingFilter::keepRun()
{
    _keep = true;
    writeRun();
}

void TypingFilter::writeRun()
{
    if (!_run.empty())
        _writer.characters(_run);
    _run.clear();
}

void TypingFilter::endRun()
{
    _keep = false;
    if (_run.empty())
        return;
    const TypedText typed(_run);
    if (typed.isShorter() && !_forecast->prefersText(_run, typed))
    {
        _writer.encodedData(typed.value());
        _run.clear();
    }
    else
    {
        writeRun();
    }
}

} // namespace Vesk::FastInfoset
