// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_FASTINFOSETWRITER_H
#define VESK_FASTINFOSET_FASTINFOSETWRITER_H

#include "Vesk/AutoPtr.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/Encoding.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FISDocumentHandler.h"
#include "Vesk/FastInfoset/FastInfoset.h"
#include "Vesk/FastInfoset/Notation.h"
#include "Vesk/FastInfoset/UnparsedEntity.h"
#include "Vesk/XML/DTDHandler.h"
#include "Vesk/XML/LexicalHandler.h"
#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace Vesk::XML
{
class AttributesImpl;
}

namespace Vesk::FastInfoset
{

class Converter;
class ElementWriter;
class ItemWriter;
class StringWriter;

/// Turns events into a Fast Infoset document.
///
/// The output stream is borrowed: it must outlive the writer. The document streams: at the end of each event its
/// finished octets are handed to the stream in one call, and flushed with every item that starts on an octet boundary;
/// a caller to whom flushing is expensive passes a stream that ignores it. Only typed values, and notations and
/// unparsed entities declared before startDocument, wait in memory.
///
/// Names and strings enter the vocabulary when they are first written and go out as indexes from then on; other text
/// does so if it has at most 16 octets. A writer on a stream alone uses the hash tables, whose sizes are fixed (see
/// DocumentVocabulary::VocabularyImpl): a further entry throws PoolOverflowException. For documents of unknown size
/// choose VOC_MAP.
///
/// Events have to come in the order of a well-formed document; the writer checks little of it. A namespace declaration
/// may come as startPrefixMapping, as an xmlns attribute, or as both; prefixes that names need and nobody declared are
/// declared by the writer, "ns1", "ns2" and so on for those that have none. Text is UTF-8 and is not checked.
///
/// One writer writes one document and serves one thread. After an exception the document is incomplete; destroying the
/// writer is all that is left to do. Once the stream has failed, every event throws the same IOException.
class VESK_FASTINFOSET_API FastInfosetWriter : public FISContentHandler,
                                               public XML::LexicalHandler,
                                               public XML::DTDHandler,
                                               public FISDocumentHandler
{
public:
    /// A writer with hash tables that writes no XML declaration.
    explicit FastInfosetWriter(std::ostream& stream);

    /// A writer with tables of the given kind. Throws InvalidArgumentException for VOC_VECTOR, with which values cannot
    /// be looked up.
    FastInfosetWriter(std::ostream& stream, bool writeXMLDeclaration, DocumentVocabulary::VocabularyImpl impl);

    /// A writer with a copy of the vocabulary, whose contents become the initial vocabulary of the document. Throws
    /// InvalidArgumentException for one with vector tables.
    FastInfosetWriter(std::ostream& stream, bool writeXMLDeclaration, const DocumentVocabulary& vocabulary);

    FastInfosetWriter(const FastInfosetWriter&) = delete;
    FastInfosetWriter& operator=(const FastInfosetWriter&) = delete;

    /// Pads the last octet and flushes the stream. Ends no element and no document.
    ~FastInfosetWriter() override;

    /// \name Configuration, before startDocument
    /// @{

    /// Whether the document starts with "<?xml encoding='finf'?>".
    void setWriteXMLDeclaration(bool write) override;

    /// Replaces the vocabulary by a copy. Throws InvalidArgumentException for one with vector tables.
    void setDocumentVocabulary(const DocumentVocabulary& vocabulary) override;

    /// The vocabulary, including all that has been written. Its tables must not be replaced while a document is written.
    DocumentVocabulary& getDocumentVocabulary() override;
    const DocumentVocabulary& getDocumentVocabulary() const override;

    /// Names an external vocabulary, which is left out of the initial vocabulary. Whether the reader can get it is the
    /// caller's concern. The writer's own vocabulary is not changed: hand it the same entries, in the same order, with
    /// setDocumentVocabulary or the constructor.
    void setExternalVocabulary(const std::string& uri, const DocumentVocabulary& vocabulary) override;

    /// @}
    /// \name ContentHandler
    /// @{
    void setDocumentLocator(const XML::Locator* locator) override;
    void startDocument() override;
    void endDocument() override;

    /// Throws FISException "Tag mismatch" for an element without a local name that has a URI or no qualified name.
    void startElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname,
                      const XML::Attributes& attributes) override;
    /// Ends the innermost element; the names are not compared.
    void endElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname) override;
    /// The text ends at a zero octet, if there is one before start + length. No text writes nothing.
    void characters(const XML::XMLChar ch[], int start, int length) override;
    void ignorableWhitespace(const XML::XMLChar ch[], int start, int length) override;
    void processingInstruction(const XML::XMLString& target, const XML::XMLString& data) override;
    void startPrefixMapping(const XML::XMLString& prefix, const XML::XMLString& uri) override;
    void endPrefixMapping(const XML::XMLString& prefix) override;
    /// Writes nothing.
    void skippedEntity(const XML::XMLString& name) override;
    /// @}

    /// \name Typed values
    /// Values wait until another event comes; consecutive ones of one kind go out together, as one encoded value.
    /// @{
    void binaryData(const char* data, std::size_t octetCount) override;
    void encodedData(short value) override;
    void encodedData(int value) override;
    void encodedData(long value) override;
    void encodedData(bool value) override;
    void encodedData(float value) override;
    void encodedData(double value) override;
    void encodedData(const UUID& value) override;
    /// Values of any kind: HexEncoding, which no other operation gives, or many of a kind at once. The object is shared
    /// and takes in values of its kind that come next; leave it alone afterwards. Throws NullPointerException for null.
    void encodedData(const AutoPtr<Encoding>& values);
    /// A pointer would be taken for a bool.
    void encodedData(const void*) = delete;
    /// @}

    /// \name LexicalHandler
    /// The name of a document type declaration is not written, nor are the boundaries of entities. Comments between
    /// startDTD and endDTD are written in a place where no reader expects them: leave them out.
    /// @{
    void startDTD(const XML::XMLString& name, const XML::XMLString& publicId, const XML::XMLString& systemId) override;
    void endDTD() override;
    void startEntity(const XML::XMLString& name) override;
    void endEntity(const XML::XMLString& name) override;
    /// Text up to endCDATA goes out as CDATA. Throws FISException "Cannot nest CDATA sections" within one.
    void startCDATA() override;
    void endCDATA() override;
    void comment(const XML::XMLChar ch[], int start, int length) override;
    /// @}

    /// \name DTDHandler, before startDocument
    /// Afterwards the header is written and a declaration fails a check. Absent identifiers go out as empty ones.
    /// @{
    void notationDecl(const XML::XMLString& name, const XML::XMLString* publicId,
                      const XML::XMLString* systemId) override;
    void unparsedEntityDecl(const XML::XMLString& name, const XML::XMLString* publicId, const XML::XMLString& systemId,
                            const XML::XMLString& notationName) override;
    /// @}

    /// \name Convenience
    /// @{

    /// The whole string as text; it ends at a zero octet, if there is one.
    void characters(const std::string& text);
    /// An element without attributes.
    void startElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname);
    /// Start and end of an element in one call.
    void emptyElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname);
    void emptyElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname,
                      const XML::Attributes& attributes);

    /// An element with character content and up to three attributes in no namespace; those without a name are left out.
    void dataElement(const XML::XMLString& uri, const XML::XMLString& localName, const XML::XMLString& qname,
                     const XML::XMLString& data, const XML::XMLString& attr1Name = XML::XMLString(),
                     const XML::XMLString& attr1Value = XML::XMLString(),
                     const XML::XMLString& attr2Name = XML::XMLString(),
                     const XML::XMLString& attr2Value = XML::XMLString(),
                     const XML::XMLString& attr3Name = XML::XMLString(),
                     const XML::XMLString& attr3Value = XML::XMLString());

    /// Always throw FISException: only whole documents are written.
    void startFragment();
    void endFragment();
    /// @}

private:
    friend class Converter;

    enum State
    {
        UNINITIALIZED,
        DOCUMENT,
        ELEMENT,
        CDATA,
        DTD
    };

    class Event;

    void pushState(State state);
    void popState();
    void checkBalance() const;
    template <class ValueEncoding, class Value>
    void insertValue(const Value& value);
    void insertEncoding(const AutoPtr<Encoding>& encoding);
    void handleEncodedData();
    void writeText(const char* text, std::size_t octetCount);
    void setMaxIndexedLength(int octetCount);

    BitStreamWriter _stream;
    bool _writeXMLDeclaration;
    DocumentVocabulary _vocabulary;
    std::vector<State> _states;
    std::vector<AutoPtr<Encoding>> _encodedData; // typed values that wait
    std::vector<Notation> _notations;
    std::vector<UnparsedEntity> _unparsedEntities;
    std::string _externalVocabularyURI;
    std::unique_ptr<DocumentVocabulary> _externalVocabulary; // null without a URI
    std::unique_ptr<StringWriter> _strings;
    std::unique_ptr<ElementWriter> _elements;
    std::unique_ptr<ItemWriter> _items;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_FASTINFOSETWRITER_H
