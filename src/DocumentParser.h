// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_DOCUMENTPARSER_H
#define VESK_FASTINFOSET_DOCUMENTPARSER_H

#include "ItemParser.h"
#include "ParserHandlers.h"
#include "StringParser.h"
#include "TypedDelivery.h"
#include "Vesk/XML/AttributesImpl.h"
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace Vesk::FastInfoset
{

class BitStreamReader;
class DocumentVocabulary;

/// Reads a document: header, children, elements and their attributes, and reports them as SAX events.
///
/// A document is read octet by octet: every structure starts in an octet that is looked at as a whole, and ends on an
/// octet boundary or, as terminators do, in the middle of an octet whose other half is known by then.
///
/// Its buffers and resolved names are kept from one document to the next, so that small documents in turn cost no
/// allocations. What it reads into and reports to is borrowed for the time of parseDocument.
///
/// Observation is Unobserved or Observed.
template <class Observation>
class DocumentParser
{
public:
    DocumentParser();
    DocumentParser(const DocumentParser&) = delete;
    DocumentParser& operator=(const DocumentParser&) = delete;

    /// Reads the document from its first octet to its terminator, which is left unread.
    /// externalDepth counts the external vocabularies that are being loaded around this document.
    void parseDocument(BitStreamReader& reader, DocumentVocabulary& vocabulary, const ParserHandlers& handlers,
                       int externalDepth);

private:
    struct OpenElement
    {
        const ResolvedName* name;
        std::size_t prefixes; // how many prefixes were declared before its own
    };

    void begin(BitStreamReader& reader, DocumentVocabulary& vocabulary, const ParserHandlers& handlers);
    void parseHeader(int externalDepth);
    void parseChildren();
    bool parseItem(unsigned int octet);
    void parseElement(unsigned int octet);
    void parseNamespaceAttributes();
    void parseNamespaceAttribute(unsigned int octet);
    unsigned int parseAttributes();
    void parseAttribute(unsigned int octet);
    void parseCharacterChunk(unsigned int octet);
    bool deliverTyped();
    void deliver(const Encoding& value);
    bool endElements(unsigned int octet);
    bool endSecondHalf(unsigned int octet);
    void endElement();
    void nextValueBuffer();
    const std::string& qualifiedName(const ResolvedName& name) const;

    BitStreamReader* _reader = nullptr;
    DocumentVocabulary* _vocabulary = nullptr;
    ParserHandlers _handlers;
    Observation _observation;
    StringParser<Observation> _strings;
    ItemParser<Observation> _items;
    TypedDelivery _typedDelivery;

    // Nesting costs heap, not stack: the elements that are open, and the prefixes that they declare.
    std::vector<OpenElement> _openElements;
    std::vector<const std::string*> _prefixes;

    XML::AttributesImpl _attributes; // of the element being read
    // Their values that are in no table, and where the next one goes.
    std::vector<std::unique_ptr<std::string>> _valueBuffers;
    std::size_t _usedValueBuffers = 0;
    std::string* _valueBuffer = nullptr;
    std::string _xmlDeclaration;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_DOCUMENTPARSER_H
