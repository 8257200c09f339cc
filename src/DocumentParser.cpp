// SPDX-License-Identifier: MIT
#include "DocumentParser.h"
#include "PrimitiveCode.h"
#include "ReleaseLarge.h"
#include "TextLength.h"
#include "Vesk/FastInfoset/CDataEncoding.h"
#include "Vesk/FastInfoset/Decoder.h"
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FISDocumentHandler.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/XML/ContentHandler.h"
#include "Vesk/XML/LexicalHandler.h"

namespace Vesk::FastInfoset
{

namespace
{

// A terminator is four bits; it ends namespace attributes, attributes, elements and the document. Octets from
// TERMINATOR_OCTETS on start with one.
constexpr unsigned int TERMINATOR = 0xF;
constexpr unsigned int TERMINATOR_OCTETS = TERMINATOR << 4;

constexpr unsigned int HALF_OCTET = 4;
// How many bits of an octet are left behind those that tell what it is.
constexpr unsigned int ELEMENT_NAME_BITS = 6;
constexpr unsigned int ATTRIBUTE_NAME_BITS = 7;
constexpr unsigned int CHUNK_BITS = 6;
constexpr unsigned int NEW_VALUE_MASK = 0x3C; // of the bits of a chunk: not indexed, not to be, and the form
constexpr unsigned int NEW_VALUE = 0x0C;      // a value of an encoding algorithm

constexpr unsigned int NAMESPACE_ATTRIBUTES = 0x38; // in the six bits where an element's name would start

using Part = StructureObserver::Part;
using Structure = StructureObserver::Structure;

// What is kept from one document to the next.
constexpr std::size_t KEPT_ELEMENTS = 1024;
constexpr std::size_t KEPT_BUFFERS = 64;
constexpr std::size_t KEPT_BUFFER_OCTETS = 4096;

} // namespace

template <class Observation>
DocumentParser<Observation>::DocumentParser()
    : _strings(_observation),
      _items(_strings, _observation)
{
}

template <class Observation>
void DocumentParser<Observation>::parseDocument(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                                const ParserHandlers& handlers, int externalDepth)
{
    begin(reader, vocabulary, handlers);
    _observation.start(Structure::DOCUMENT);
    parseHeader(externalDepth);
    if (_handlers.content)
        _handlers.content->startDocument();
    parseChildren();
    _observation.end(Structure::DOCUMENT);
    if (_handlers.content)
        _handlers.content->endDocument();
}

// Whatever a document that failed half-way has left behind is forgotten.
template <class Observation>
void DocumentParser<Observation>::begin(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                        const ParserHandlers& handlers)
{
    _reader = &reader;
    _vocabulary = &vocabulary;
    _handlers = handlers;
    _observation.begin(reader, vocabulary, handlers.observer);
    releaseLarge(_openElements, KEPT_ELEMENTS);
    _openElements.clear();
    releaseLarge(_prefixes, KEPT_ELEMENTS);
    _prefixes.clear();
    if (_valueBuffers.size() > KEPT_BUFFERS)
        _valueBuffers.resize(KEPT_BUFFERS);
    for (const auto& buffer : _valueBuffers)
        releaseLarge(*buffer, KEPT_BUFFER_OCTETS);
}

template <class Observation>
void DocumentParser<Observation>::parseHeader(int externalDepth)
{
    _observation.start(Structure::HEADER);
    Decoder::documentPreHeader(*_reader, _xmlDeclaration, _observation.pointer());
    if (_handlers.document)
        _handlers.document->setWriteXMLDeclaration(!_xmlDeclaration.empty());
    const Decoder::OpenHeaderParts parts =
        Decoder::documentHeader(*_reader, *_vocabulary, _handlers.document, externalDepth, _observation.pointer());
    if (_handlers.document)
        _handlers.document->setDocumentVocabulary(*_vocabulary);

    _strings.begin(*_reader, *_vocabulary, _handlers.namespacePrefixes);
    _items.begin(*_reader, _handlers);
    _typedDelivery.begin(_handlers.typedContent);
    _items.parseDocumentChildren(parts);
    _observation.end(Structure::HEADER);
}

// The children of the document and, in the same loop, those of every element: a child that is an element opens it, a
// terminator closes the innermost one or, when none is open, the document. By a child's first octet:
//
//   0.......    element
//   10......    character chunk
//   110..... or 1110....    another item
//   1111....    terminator
template <class Observation>
void DocumentParser<Observation>::parseChildren()
{
    for (;;)
    {
        const unsigned int octet =
            PrimitiveCode::readOctet(*_reader, "Unexpected end of stream while parsing element children");
        if (octet < 0x80)
            parseElement(octet);
        else if (octet < 0xC0)
            parseCharacterChunk(octet);
        else if (!(octet < TERMINATOR_OCTETS ? parseItem(octet) : endElements(octet)))
            return;
    }
}

//   110001sp    document type declaration
//   110010sp    unexpanded entity reference
//   11100001    processing instruction
//   11100010    comment
//
// Returns false when the document ends, as a terminator may stand in the octet in which a declaration ends.
template <class Observation>
bool DocumentParser<Observation>::parseItem(unsigned int octet)
{
    if (octet >> 2 == 0b110001)
        return endSecondHalf(_items.parseDocumentTypeDeclaration(octet));
    if (octet >> 2 == 0b110010)
        _items.parseUnexpandedEntityReference(octet);
    else if (octet == 0b11100001)
        _items.parseProcessingInstruction();
    else if (octet == 0b11100010)
        _items.parseComment();
    else if (octet < 0b11100000)
        throw FISEncodingException("Invalid child element");
    else
        throw FISEncodingException("Parse error: unknown element child code");
    return true;
}

// X.891 C.3. The children are left to parseChildren.
//
//   0annnnnn    whether attributes follow, the name
//   0a111000    namespace attributes, then ??nnnnnn, the name
template <class Observation>
void DocumentParser<Observation>::parseElement(unsigned int octet)
{
    const bool hasAttributes = (octet & 0x40) != 0;
    const std::size_t outerPrefixes = _prefixes.size();
    _observation.start(Structure::ELEMENT);
    if ((octet & 0x3F) == NAMESPACE_ATTRIBUTES)
    {
        _observation.part(Part::START);
        parseNamespaceAttributes();
        octet = PrimitiveCode::readOctet(*_reader, "Unexpected end of stream while parsing element");
        _observation.part(Part::PADDING, ELEMENT_NAME_BITS);
    }
    else
    {
        _observation.part(Part::START, ELEMENT_NAME_BITS);
    }
    const ResolvedName& name = _strings.parseElementName(octet);

    _attributes.clear();
    const unsigned int half = hasAttributes ? parseAttributes() : 0;
    _openElements.push_back({&name, outerPrefixes});
    if (_handlers.content)
        _handlers.content->startElement(*name.namespaceName, *name.localName, qualifiedName(name), _attributes);

    // The terminator of the attributes leaves half an octet, which may hold that of the element.
    if (half == TERMINATOR)
    {
        _observation.part(Part::TERMINATOR);
        endElement();
    }
    else if (hasAttributes)
    {
        _observation.part(Part::PADDING);
    }
}

// 110011pn and the namespace attribute, for each; 1111???? ends the list.
template <class Observation>
void DocumentParser<Observation>::parseNamespaceAttributes()
{
    _observation.start(Structure::NAMESPACE_ATTRIBUTES);
    for (;;)
    {
        const unsigned int octet = PrimitiveCode::readOctet(*_reader, "Unexpected end of stream while parsing element");
        if (octet >= TERMINATOR_OCTETS)
        {
            _observation.part(Part::TERMINATOR, HALF_OCTET);
            _observation.end(Structure::NAMESPACE_ATTRIBUTES);
            return;
        }
        parseNamespaceAttribute(octet);
    }
}

// ??????pn (X.891 C.12): prefix and namespace name, as far as they are present.
template <class Observation>
void DocumentParser<Observation>::parseNamespaceAttribute(unsigned int octet)
{
    _observation.start(Structure::NAMESPACE_ATTRIBUTE);
    _observation.part(Part::START);
    const std::string& prefix = (octet & 2) != 0 ? _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::PREFIX)
                                                 : FastInfosetParser::EMPTY_STRING;
    const std::string& namespaceName = (octet & 1) != 0
                                           ? _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::NAMESPACE_NAME)
                                           : FastInfosetParser::EMPTY_STRING;
    _observation.end(Structure::NAMESPACE_ATTRIBUTE);
    _prefixes.push_back(&prefix);
    if (_handlers.content)
        _handlers.content->startPrefixMapping(prefix, namespaceName);
}

// 0nnnnnnn and the attribute, for each; an octet that starts with a 1 bit, as a terminator does, ends the list. Returns
// the other half of that octet.
template <class Observation>
unsigned int DocumentParser<Observation>::parseAttributes()
{
    _usedValueBuffers = 0;
    nextValueBuffer();
    _observation.start(Structure::ATTRIBUTES);
    for (;;)
    {
        const unsigned int octet = PrimitiveCode::readOctet(*_reader, "Unexpected end of stream while parsing element");
        if (octet >= 0x80)
        {
            _observation.part(Part::TERMINATOR, HALF_OCTET);
            _observation.end(Structure::ATTRIBUTES);
            return octet & 0xF;
        }
        parseAttribute(octet);
    }
}

// X.891 C.4. Values are text even where they are stored as typed data.
template <class Observation>
inline void DocumentParser<Observation>::parseAttribute(unsigned int octet)
{
    _observation.start(Structure::ATTRIBUTE);
    _observation.part(Part::START, ATTRIBUTE_NAME_BITS);
    const ResolvedName& name = _strings.parseAttributeName(octet);
    const std::string& value =
        _strings.parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::ATTRIBUTE_VALUE, *_valueBuffer);
    _observation.end(Structure::ATTRIBUTE);
    if (&value == _valueBuffer)
        nextValueBuffer();
    _attributes.addReferences(*name.namespaceName, *name.localName, FastInfosetParser::EMPTY_STRING,
                              FastInfosetParser::EMPTY_STRING, value);
}

// X.891 C.7
template <class Observation>
inline void DocumentParser<Observation>::parseCharacterChunk(unsigned int octet)
{
    if (!Observation::ENABLED && (octet & NEW_VALUE_MASK) == NEW_VALUE && deliverTyped())
        return;
    _observation.start(Structure::CHARACTER_CHUNK);
    _observation.part(Part::START, CHUNK_BITS);
    AutoPtr<Encoding> value;
    const std::string* const text = _strings.parseCharacterChunk(octet, value);
    _observation.end(Structure::CHARACTER_CHUNK);
    if (!text)
        deliver(*value);
    else if (_handlers.content)
        _handlers.content->characters(text->data(), 0, textLength(*text));
}

// Numbers and octets on the short way, behind the algorithm's index in the last two bits of the octet and six more.
// Returns false, and stands where it stood, if it is not for this value.
template <class Observation>
bool DocumentParser<Observation>::deliverTyped()
{
    if (!_typedDelivery.isPossible())
        return false;
    _reader->unread(2);
    const unsigned int algorithm = PrimitiveCode::smallInteger(*_reader);
    if (_typedDelivery.deliver(*_reader, algorithm))
        return true;
    _reader->unread(6);
    return false;
}

// A typed value; how it reaches the handler is its own matter.
template <class Observation>
void DocumentParser<Observation>::deliver(const Encoding& value)
{
    const bool isCDATA = _handlers.lexical && value.type() == CDataEncoding::TYPE;
    if (isCDATA)
        _handlers.lexical->startCDATA();
    if (_handlers.typedContent)
        _typedDelivery.deliver(value);
    else
        value.handle(_handlers.content);
    if (isCDATA)
        _handlers.lexical->endCDATA();
}

// One terminator, and another one in the other half of the octet or padding. Returns false when the document ends.
template <class Observation>
bool DocumentParser<Observation>::endElements(unsigned int octet)
{
    _observation.part(Part::TERMINATOR, HALF_OCTET);
    if (_openElements.empty())
    {
        _observation.part(Part::PADDING);
        return false;
    }
    endElement();
    return endSecondHalf(octet);
}

template <class Observation>
bool DocumentParser<Observation>::endSecondHalf(unsigned int octet)
{
    if ((octet & 0xF) != TERMINATOR)
    {
        _observation.part(Part::PADDING);
        return true;
    }
    _observation.part(Part::TERMINATOR);
    if (_openElements.empty())
        return false;
    endElement();
    return true;
}

// The innermost open element ends.
template <class Observation>
inline void DocumentParser<Observation>::endElement()
{
    _observation.end(Structure::ELEMENT);
    const OpenElement element = _openElements.back();
    _openElements.pop_back();
    if (_handlers.content)
    {
        const ResolvedName& name = *element.name;
        _handlers.content->endElement(*name.namespaceName, *name.localName, qualifiedName(name));
        for (std::size_t i = element.prefixes; i < _prefixes.size(); ++i)
            _handlers.content->endPrefixMapping(*_prefixes[i]);
    }
    _prefixes.resize(element.prefixes);
}

template <class Observation>
void DocumentParser<Observation>::nextValueBuffer()
{
    if (_usedValueBuffers == _valueBuffers.size())
        _valueBuffers.push_back(std::make_unique<std::string>());
    _valueBuffer = _valueBuffers[_usedValueBuffers].get();
    ++_usedValueBuffers;
}

template <class Observation>
const std::string& DocumentParser<Observation>::qualifiedName(const ResolvedName& name) const
{
    return _handlers.namespacePrefixes ? name.qualifiedName : FastInfosetParser::EMPTY_STRING;
}

template class DocumentParser<Unobserved>;
template class DocumentParser<Observed>;

} // namespace Vesk::FastInfoset
