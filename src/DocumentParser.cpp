// SPDX-License-Identifier: MIT
#include "DocumentParser.h"
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

constexpr unsigned int TERMINATOR = 0xF;            // four bits; ends attributes, elements and the document
constexpr unsigned int NAMESPACE_ATTRIBUTES = 0x38; // in the six bits where an element's name would start

} // namespace

DocumentParser::DocumentParser()
    : _items(_strings)
{
}

void DocumentParser::parseDocument(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                   const ParserHandlers& handlers, int externalDepth)
{
    begin(reader, vocabulary, handlers);
    parseHeader(externalDepth);
    if (_handlers.content)
        _handlers.content->startDocument();
    parseChildren();
    if (_handlers.content)
        _handlers.content->endDocument();
}

// Whatever a document that failed half-way has left behind is forgotten.
void DocumentParser::begin(BitStreamReader& reader, DocumentVocabulary& vocabulary, const ParserHandlers& handlers)
{
    _reader = &reader;
    _vocabulary = &vocabulary;
    _handlers = handlers;
    _openElements.clear();
    _prefixes.clear();
}

void DocumentParser::parseHeader(int externalDepth)
{
    Decoder::documentPreHeader(*_reader, _xmlDeclaration);
    if (_handlers.document)
        _handlers.document->setWriteXMLDeclaration(!_xmlDeclaration.empty());
    const Decoder::OpenHeaderParts parts =
        Decoder::documentHeader(*_reader, *_vocabulary, _handlers.document, externalDepth);
    if (_handlers.document)
        _handlers.document->setDocumentVocabulary(*_vocabulary);

    _strings.begin(*_reader, *_vocabulary);
    _items.begin(*_reader, _handlers);
    _items.parseDocumentChildren(parts);
}

// The children of the document and, in the same loop, those of every element: a child that is an element opens it, a
// terminator closes the innermost one or, when none is open, the document. Nothing behind that is read.
void DocumentParser::parseChildren()
{
    for (;;)
    {
        unsigned char bits = 0;
        if (!_reader->peek(bits, 4))
            throw FISParseException("Unexpected end of stream while parsing element children");
        if (bits != TERMINATOR)
        {
            parseElementChild();
        }
        else
        {
            if (_openElements.empty())
                return;
            _reader->skip(4);
            endElement();
        }
    }
}

// By the child's first octet:
//
//   0.......    element
//   10......    character chunk
//   110001..    document type declaration
//   110010..    unexpanded entity reference
//   11100001    processing instruction
//   11100010    comment
void DocumentParser::parseElementChild()
{
    _reader->align();
    unsigned char octet = 0;
    if (!_reader->peek(octet, 8))
        throw FISParseException("Unexpected end of stream while parsing element children");

    if (octet < 0x80)
    {
        _reader->skip(1);
        parseElement();
    }
    else if (octet < 0xC0)
    {
        _reader->skip(2);
        parseCharacterChunk();
    }
    else if (octet < 0xE0)
    {
        _reader->skip(6);
        if ((octet & 0xFC) == 0xC4)
            _items.parseDocumentTypeDeclaration();
        else if ((octet & 0xFC) == 0xC8)
            _items.parseUnexpandedEntityReference();
        else
            throw FISEncodingException("Invalid child element");
    }
    else if (octet == 0xE1)
    {
        _reader->skip(8);
        _items.parseProcessingInstruction();
    }
    else if (octet == 0xE2)
    {
        _reader->skip(8);
        _items.parseComment();
    }
    else
    {
        throw FISEncodingException("Parse error: unknown element child code");
    }
}

// Behind the element's 0 bit (X.891 C.3): whether attributes follow, namespace attributes, the name, attributes. The
// children and the terminator are left to parseChildren.
void DocumentParser::parseElement()
{
    if (_reader->bitOffset() != 1)
        throw FISEncodingException("Illegal startposition for an Element value");
    const unsigned int bits = _reader->restOfOctet();
    const std::size_t outerPrefixes = _prefixes.size();

    if ((bits & 0x3F) == NAMESPACE_ATTRIBUTES)
        parseNamespaceAttributes();
    else
        _reader->skip(1);
    const ResolvedName& name = _strings.parseQualifiedNameOrIndex(true);

    _attributes.clear();
    if ((bits & 0x40) != 0)
        parseAttributes();

    _openElements.push_back({&name, outerPrefixes});
    if (_handlers.content)
        _handlers.content->startElement(*name.namespaceName, *name.localName, qualifiedName(name), _attributes);
}

// Behind the mark that announces them: namespace attributes of 110011 each, the octet 11110000, two bits that are not
// looked at. The element's name follows at bit offset 2.
void DocumentParser::parseNamespaceAttributes()
{
    _reader->align();
    for (;;)
    {
        unsigned int bits = 0;
        if (!_reader->read(bits, 6))
            throw FISParseException("Unexpected end of stream while parsing element");
        if (bits >> 2 == TERMINATOR)
            break;
        parseNamespaceAttribute();
    }
    unsigned int padding = 0;
    if (!_reader->read(padding, 4))
        throw FISParseException("Unexpected end of stream while parsing element");
}

// At bit offset 6 (X.891 C.12): prefix present, namespace name present, and those that are.
void DocumentParser::parseNamespaceAttribute()
{
    if (_reader->bitOffset() != 6)
        throw FISEncodingException("Illegal startposition for a NamespaceAttribute value");
    const unsigned int present = _reader->restOfOctet();
    _reader->align();
    const std::string& prefix = (present & 2) != 0 ? _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::PREFIX)
                                                   : FastInfosetParser::EMPTY_STRING;
    const std::string& namespaceName = (present & 1) != 0
                                           ? _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::NAMESPACE_NAME)
                                           : FastInfosetParser::EMPTY_STRING;
    _prefixes.push_back(&prefix);
    if (_handlers.content)
        _handlers.content->startPrefixMapping(prefix, namespaceName);
}

// Each attribute starts with a 0 bit, so the first bit of the terminator ends the list. Leaves bit offset 4.
void DocumentParser::parseAttributes()
{
    _usedValueBuffers = 0;
    for (;;)
    {
        bool end = false;
        if (!_reader->read(end))
            throw FISParseException("Unexpected end of stream while parsing element");
        if (end)
            break;
        parseAttribute();
    }
    _reader->skip(3);
}

// Behind its 0 bit (X.891 C.4): name and value. Values are text even where they are stored as typed data.
void DocumentParser::parseAttribute()
{
    if (_reader->bitOffset() != 1)
        throw FISEncodingException("Illegal startposition for a Attribute value");
    const ResolvedName& name = _strings.parseQualifiedNameOrIndex(false);
    std::string& buffer = nextValueBuffer();
    const std::string& value =
        _strings.parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::ATTRIBUTE_VALUE, buffer);
    if (&value == &buffer)
        ++_usedValueBuffers;
    _attributes.addReferences(*name.namespaceName, *name.localName, FastInfosetParser::EMPTY_STRING,
                              FastInfosetParser::EMPTY_STRING, value);
}

std::string& DocumentParser::nextValueBuffer()
{
    if (_usedValueBuffers == _valueBuffers.size())
        _valueBuffers.emplace_back();
    return _valueBuffers[_usedValueBuffers];
}

// Behind its bits 10 (X.891 C.7).
void DocumentParser::parseCharacterChunk()
{
    const StringParser::Content content =
        _strings.parseNonIdentifyingStringOrIndex(DocumentVocabulary::CONTENT_CHARACTER_CHUNK);
    if (content.value)
        deliver(content);
    else if (_handlers.content)
        _handlers.content->characters(content.text->data(), 0, textLength(*content.text));
}

// A typed value; how it reaches the handler is its own matter.
void DocumentParser::deliver(const StringParser::Content& content)
{
    const bool isCDATA = _handlers.lexical && content.value->type() == CDataEncoding::TYPE;
    if (isCDATA)
        _handlers.lexical->startCDATA();
    if (_handlers.typedContent)
        content.value->handle(_handlers.typedContent);
    else
        content.value->handle(_handlers.content);
    if (isCDATA)
        _handlers.lexical->endCDATA();
}

// The innermost open element ends.
void DocumentParser::endElement()
{
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

const std::string& DocumentParser::qualifiedName(const ResolvedName& name) const
{
    return _handlers.namespacePrefixes ? name.qualifiedName : FastInfosetParser::EMPTY_STRING;
}

} // namespace Vesk::FastInfoset
