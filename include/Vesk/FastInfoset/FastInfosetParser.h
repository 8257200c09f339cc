// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_FASTINFOSETPARSER_H
#define VESK_FASTINFOSET_FASTINFOSETPARSER_H

#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/FastInfoset.h"
#include "Vesk/FastInfoset/OctetLocator.h"
#include "Vesk/FastInfoset/ResolvedQualName.h"
#include "Vesk/XML/XMLReader.h"
#include <cstddef>
#include <memory>
#include <string>

namespace Vesk::XML
{
class DeclHandler;
class LexicalHandler;
class XMLWriter;
} // namespace Vesk::XML

namespace Vesk::FastInfoset
{

class BitStreamReader;
class ExternalVocabulary;
class FastInfosetWriter;
class FISContentHandler;
class FISDocumentHandler;
class Observed;
class StructureObserver;
class Unobserved;

template <class Observation>
class DocumentParser;

/// Turns a Fast Infoset document into SAX events.
///
/// The document comes from an input source, a system identifier or a block of memory. Events go to the handlers that
/// are set, in document order, on the calling thread. Handlers are borrowed: they must outlive the parse. A content
/// handler that is a FISContentHandler receives typed values as such; any other receives their text as characters.
///
/// What is as in every SAX parser: strings, attributes and characters handed to a handler are good during the call only.
/// What is particular:
///   - attributes carry no qualified name and no type; ask by (uri, localName);
///   - namespace declarations are reported as prefix mappings only, never as attributes;
///   - the qualified name of an element is "prefix:localName" where there is a prefix and the namespace-prefixes
///     feature is on (the default), and empty otherwise;
///   - the characters of a call are followed by a zero octet;
///   - a document type declaration has no name, and entity references that were not expanded are dropped;
///   - the locator, lent before the first event, is an OctetLocator.
///
/// One parser serves one document at a time, any number of documents in turn, and one thread. It reads each document as
/// a fresh parser would, also after one that failed half-way, with one exception: a parser that was given a vocabulary
/// prepared for an external URI keeps what documents naming that URI add to it, so use a fresh parser for each of them.
///
/// Everything that goes wrong is thrown by parse: FISParseException for input that ends too soon, FISEncodingException
/// for codes that cannot stand where they stand, FISException for a bad header, AssertionViolationException for broken
/// structure, std::out_of_range for indexes beyond a table, IOException for a failing stream, and whatever a handler
/// throws. The error handler is stored but never called. A handler that calls parse of the parser that calls it gets
/// InvalidAccessException.
class VESK_FASTINFOSET_API FastInfosetParser : public XML::XMLReader
{
public:
    /// The strings of a qualified name.
    using ResolvedQualName = FastInfoset::ResolvedQualName;

    /// ""
    static const std::string EMPTY_STRING;
    /// "xmlns"
    static const std::string XMLNS;

    /// A parser with tables of the given kind. The vector tables are the fastest and read every document; connecting a
    /// FastInfosetWriter takes map or hash tables, because the writer takes the tables over and has to look values up.
    explicit FastInfosetParser(DocumentVocabulary::VocabularyImpl impl = DocumentVocabulary::VOC_VECTOR);

    /// A parser with a copy of the vocabulary. If that was prepared for an external URI, documents that name the URI are
    /// read with it and nothing is opened.
    explicit FastInfosetParser(const DocumentVocabulary& vocabulary);

    FastInfosetParser(const FastInfosetParser&) = delete;
    FastInfosetParser& operator=(const FastInfosetParser&) = delete;
    ~FastInfosetParser() override;

    /// \name XMLReader
    /// The entity resolver and the error handler are kept for getters only.
    /// @{
    void setEntityResolver(XML::EntityResolver* resolver) override;
    XML::EntityResolver* getEntityResolver() const override;
    void setDTDHandler(XML::DTDHandler* handler) override;
    XML::DTDHandler* getDTDHandler() const override;
    void setContentHandler(XML::ContentHandler* handler) override;
    XML::ContentHandler* getContentHandler() const override;
    void setErrorHandler(XML::ErrorHandler* handler) override;
    XML::ErrorHandler* getErrorHandler() const override;

    /// FEATURE_NAMESPACES is always on: switching it off throws SAXNotSupportedException.
    /// FEATURE_NAMESPACE_PREFIXES (default on) decides whether elements with a prefix get a qualified name.
    /// Any other feature throws SAXNotRecognizedException.
    void setFeature(const XML::XMLString& featureId, bool state) override;
    bool getFeature(const XML::XMLString& featureId) const override;

    /// PROPERTY_DECLARATION_HANDLER and PROPERTY_LEXICAL_HANDLER take a pointer to the handler, never a string
    /// (SAXNotSupportedException). Any other property throws SAXNotRecognizedException.
    void setProperty(const XML::XMLString& propertyId, const XML::XMLString& value) override;
    void setProperty(const XML::XMLString& propertyId, void* value) override;
    void* getProperty(const XML::XMLString& propertyId) const override;

    /// Parses from the byte stream of the source, else from its character stream, else from its system identifier.
    void parse(XML::InputSource* source) override;

    /// Opens the system identifier with a resolver of the library's own (XML::EntityResolverImpl) and parses what it
    /// finds. Throws FISParseException if nothing can be opened.
    void parse(const XML::XMLString& systemId) override;

    /// Parses the size octets at xml, which are borrowed during the call.
    void parseMemoryNP(const char* xml, std::size_t size) override;
    /// @}

    /// Sets the handler that is told of vocabularies and the XML declaration.
    void setDocumentHandler(FISDocumentHandler* handler);
    FISDocumentHandler* getDocumentHandler() const;

    /// Sets who is told of every structure and its place in the document. The parser is slower then; without an observer,
    /// which is the default, it costs nothing. The observer is borrowed; null takes it away.
    void setStructureObserver(StructureObserver* observer);
    StructureObserver* getStructureObserver() const;

    /// How many octets of the document the parser has read: while it parses what OctetLocator::octetOffset tells, and
    /// afterwards where the parse ended, the reason for a failure being in or right behind the octets read last. 0 before
    /// the first parse.
    unsigned long octetOffset() const;

    /// Makes the parser drive the writer: sets it as content, DTD and lexical handler and, if it is a FastInfosetWriter,
    /// as document handler. Does nothing for null.
    void initialize(XML::XMLWriter* writer);
    void initialize(FastInfosetWriter* writer);

private:
    friend class ExternalVocabulary;

    template <typename Writer>
    void connect(Writer& writer, FISDocumentHandler* documentHandler);
    void parseDocument(BitStreamReader& reader, const XML::InputSource* source = nullptr);

    XML::EntityResolver* _entityResolver = nullptr;
    XML::DTDHandler* _dtdHandler = nullptr;
    XML::ContentHandler* _contentHandler = nullptr;
    XML::ErrorHandler* _errorHandler = nullptr;
    XML::DeclHandler* _declHandler = nullptr;
    XML::LexicalHandler* _lexicalHandler = nullptr;
    FISDocumentHandler* _documentHandler = nullptr;
    FISContentHandler* _typedContentHandler = nullptr; // the content handler, if it takes typed values
    StructureObserver* _structureObserver = nullptr;
    OctetLocator _locator;
    bool _namespacePrefixes = true;
    int _externalDepth = 0; // how many external vocabularies are being loaded around this parser
    bool _parsing = false;
    DocumentVocabulary _vocabulary;
    // What documents must not change for those after them: an external vocabulary brings tables of its own kind, an
    // initial one adds alphabets.
    const DocumentVocabulary::VocabularyImpl _implementation;
    const DocumentRestrictedAlphabet _preparedAlphabets;
    std::unique_ptr<DocumentParser<Unobserved>> _documentParser;
    std::unique_ptr<DocumentParser<Observed>> _observedParser; // made when it is needed
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_FASTINFOSETPARSER_H
