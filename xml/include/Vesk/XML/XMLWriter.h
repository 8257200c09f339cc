// SPDX-License-Identifier: MIT
#ifndef VESK_XML_XMLWRITER_H
#define VESK_XML_XMLWRITER_H

#include "Vesk/XML/ContentHandler.h"
#include "Vesk/XML/DTDHandler.h"
#include "Vesk/XML/LexicalHandler.h"
#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string_view>
#include <vector>

namespace Vesk::XML
{
class DoctypeWriter;
class StartTagWriter;
class XMLOutput;

/// Writes the events of a document as XML 1.0 text in UTF-8.
///
/// The text is well-formed and gives a reader the same events again. Characters are escaped where they must be. What
/// XML text cannot say throws SAXException: characters that XML does not allow, ill-formed UTF-8, invalid names (by the
/// fifth edition), "--" in a comment, "?>" in a processing instruction, the same attribute twice, an undeclared prefix,
/// a prefix declared for no namespace, events in an order that no document has. The output is then incomplete, and the
/// writer can only be destroyed.
///
/// What XML text does not keep: carriage returns in comments and processing instructions are read back as
/// line feeds, white space around the root element is not written, "]]>" and carriage returns end a CDATA section and
/// start another one.
///
/// Names: an element or attribute is written with the prefix of its qualified name if that prefix stands for its
/// namespace, else with another one that does; if there is none, one is declared on the spot. An attribute in a
/// namespace never takes the default prefix. An element without a namespace takes the default namespace back where
/// there is one. Attributes named "xmlns" or "xmlns:..." are declarations, like startPrefixMapping.
///
/// Document type: a declaration without a name gets the name of the root element; it is held back, with everything
/// between it and the root element (at most 16 MiB). Notations and unparsed entities go into its internal subset, also
/// those that arrive before it; if there is no declaration, one is made for them. A skipped entity is written as a
/// reference if the document type has a system identifier, without which the reference would not be well-formed.
///
/// Output is buffered until endDocument or destruction. Nesting costs heap memory only; the names of the open elements
/// together take at most 256 MiB, more throws SAXException. A writer serves one thread; after endDocument it can write
/// another document to the same stream.
class VESK_XML_API XMLWriter : public ContentHandler, public LexicalHandler, public DTDHandler
{
public:
    /// What may be asked of a writer.
    enum Options
    {
        /// None of the others: nothing is added to the document.
        CANONICAL = 0,
        /// Starts with an XML declaration.
        WRITE_XML_DECLARATION = 0x01,
        /// Puts every element, comment and processing instruction on a line of its own, indented by two spaces a level
        /// (up to 32 levels), except inside an element in which character data has come before, and inside
        /// xml:space="preserve". So text is never touched, and an element that has only text stays on one line; but in
        /// mixed content that starts with an element, white space is added in front of that element.
        PRETTY_PRINT = 0x02
    };

    /// Borrows the stream, which must outlive the writer. Options are a combination of the constants above; other bits
    /// have no effect.
    XMLWriter(std::ostream& out, int options);
    XMLWriter(const XMLWriter&) = delete;
    XMLWriter& operator=(const XMLWriter&) = delete;
    /// Writes what is still buffered; a failure of the stream goes unnoticed here, but not in endDocument.
    ~XMLWriter() override;

    /// Has no effect.
    void setDocumentLocator(const Locator* locator) override;
    void startDocument() override;
    /// Flushes the stream. Throws IOException if the stream fails, here as in all events.
    void endDocument() override;

    /// Empty strings stand for what is unknown: the local name can be left to the qualified name and vice versa.
    void startElement(const XMLString& uri, const XMLString& localName, const XMLString& qname,
                      const Attributes& attributes) override;
    /// Ends the innermost open element; the names are not looked at.
    void endElement(const XMLString& uri, const XMLString& localName, const XMLString& qname) override;
    void characters(const XMLChar ch[], int start, int length) override;
    /// The same as characters.
    void ignorableWhitespace(const XMLChar ch[], int start, int length) override;
    void processingInstruction(const XMLString& target, const XMLString& data) override;
    void startPrefixMapping(const XMLString& prefix, const XMLString& uri) override;
    /// Has no effect: a declaration ends with its element.
    void endPrefixMapping(const XMLString& prefix) override;
    void skippedEntity(const XMLString& name) override;

    void startDTD(const XMLString& name, const XMLString& publicId, const XMLString& systemId) override;
    void endDTD() override;
    /// The bounds of entities have no effect: their replacement text is written.
    void startEntity(const XMLString& name) override;
    void endEntity(const XMLString& name) override;
    void startCDATA() override;
    void endCDATA() override;
    void comment(const XMLChar ch[], int start, int length) override;

    /// An empty identifier counts as absent.
    void notationDecl(const XMLString& name, const XMLString* publicId, const XMLString* systemId) override;
    void unparsedEntityDecl(const XMLString& name, const XMLString* publicId, const XMLString& systemId,
                            const XMLString& notationName) override;

private:
    struct OpenElement
    {
        std::size_t nameStart; // in _openNames
        bool isVerbatim;       // no white space may be added
        bool hasChildren;
    };

    void checkPlace(const char* item) const;
    void startItem(const char* item);
    void endItem();
    void startChild();
    void startText(const char* item);
    void closeStartTag();
    void indent();
    void writeCDATA(std::string_view text);

    const int _options;
    std::unique_ptr<XMLOutput> _out;
    std::unique_ptr<StartTagWriter> _tags;
    std::unique_ptr<DoctypeWriter> _doctype;
    std::vector<OpenElement> _open;
    XMLString _openNames; // the names of the open elements, one after the other
    bool _hasRoot = false;
    bool _isTagOpen = false; // the start tag of the innermost element still lacks its ">"
    bool _inCDATA = false;
    int _closingBrackets = 0; // how many "]" the CDATA section ends with, at most 2
};
} // namespace Vesk::XML

#endif // VESK_XML_XMLWRITER_H
