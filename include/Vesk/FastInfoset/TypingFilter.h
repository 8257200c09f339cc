// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_TYPINGFILTER_H
#define VESK_FASTINFOSET_TYPINGFILTER_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include "Vesk/XML/ContentHandler.h"
#include "Vesk/XML/LexicalHandler.h"
#include <cstddef>
#include <memory>
#include <string>

namespace Vesk::FastInfoset
{

class FastInfosetWriter;
class IndexForecast;

/// Stands between a reader of XML text and a FastInfosetWriter and has text stored as values where that takes fewer
/// octets:
///
///     FastInfosetWriter writer(out, false, DocumentVocabulary::VOC_MAP);
///     TypingFilter filter(writer);
///     SAXParser parser;
///     parser.setContentHandler(&filter);
///     parser.setProperty(XMLReader::PROPERTY_LEXICAL_HANDLER, static_cast<LexicalHandler*>(&filter));
///     parser.parse(path);
///
/// All the text between two tags, comments or processing instructions is replaced if it is, octet for octet, the text
/// that a built-in encoding algorithm gives back for a list of integers, floats, doubles, booleans or UUIDs with one
/// space between them, or for a block of octets in base64 or hexadecimal. So a reader that asks for text gets the very
/// same text; one with a FISContentHandler gets the values, also of what was meant as something else: every word of
/// eight letters is base64 as well.
///
/// Text with a CDATA section or a skipped entity in it, text of more than 16 MiB, and attribute values stay text. Short
/// text that repeats stays text, too, because an index takes fewer octets than any value.
///
/// The same document gives the same octets every time. A filter serves one writer, one document and one thread.
class VESK_FASTINFOSET_API TypingFilter : public XML::ContentHandler, public XML::LexicalHandler
{
public:
    /// The writer is borrowed. maxIndexedLength: text of up to so many octets is indexed by the writer.
    explicit TypingFilter(FastInfosetWriter& writer, int maxIndexedLength = 16);
    TypingFilter(const TypingFilter&) = delete;
    TypingFilter& operator=(const TypingFilter&) = delete;
    ~TypingFilter() override;

    void setDocumentLocator(const XML::Locator* locator) override;
    void startDocument() override;
    void endDocument() override;
    void startElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname,
                      const XML::Attributes& attributes) override;
    void endElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname) override;
    void characters(const XML::XMLChar ch[], int start, int length) override;
    void ignorableWhitespace(const XML::XMLChar ch[], int start, int length) override;
    void processingInstruction(const XML::XMLString& target, const XML::XMLString& data) override;
    void startPrefixMapping(const XML::XMLString& prefix, const XML::XMLString& uri) override;
    void endPrefixMapping(const XML::XMLString& prefix) override;
    void skippedEntity(const XML::XMLString& name) override;

    void startDTD(const XML::XMLString& name, const XML::XMLString& publicId, const XML::XMLString& systemId) override;
    void endDTD() override;
    void startEntity(const XML::XMLString& name) override;
    void endEntity(const XML::XMLString& name) override;
    void startCDATA() override;
    void endCDATA() override;
    void comment(const XML::XMLChar ch[], int start, int length) override;

private:
    void writeRun();
    void keepRun();
    void endRun();

    FastInfosetWriter& _writer;
    std::unique_ptr<IndexForecast> _forecast;
    std::string _run;   // the text since the last tag, comment or processing instruction, while it may become a value
    bool _keep = false; // the rest of the run passes through as text
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_TYPINGFILTER_H
