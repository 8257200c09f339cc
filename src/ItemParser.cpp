// SPDX-License-Identifier: MIT
#include "ItemParser.h"
#include "PrimitiveCode.h"
#include "StringParser.h"
#include "TextLength.h"
#include "Vesk/Bugcheck.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/XML/ContentHandler.h"
#include "Vesk/XML/DTDHandler.h"
#include "Vesk/XML/LexicalHandler.h"

namespace Vesk::FastInfoset
{

namespace
{

// The identifying bits of the items in the header's lists; the last bits of the octet say which identifiers follow.
constexpr unsigned int NOTATION = 0b110000;
constexpr unsigned int UNPARSED_ENTITY = 0b1101000;

// A terminator fills half an octet; what is in the other half is not looked at, but for some of its bits in the lists.
constexpr unsigned int TERMINATOR = 0b1111;
constexpr unsigned int HALF_OCTET = 4;

// The first half of a processing instruction's octet, which is all that a document type declaration looks at.
constexpr unsigned int PROCESSING_INSTRUCTION = 0b1110;

using Part = StructureObserver::Part;
using Structure = StructureObserver::Structure;

const char FILE_NAME[] = "src/FastInfosetParser";

const std::string& orEmpty(const std::string* text)
{
    return text ? *text : FastInfosetParser::EMPTY_STRING;
}

} // namespace

template <class Observation>
void ItemParser<Observation>::begin(BitStreamReader& reader, const ParserHandlers& handlers)
{
    _reader = &reader;
    _handlers = handlers;
}

template <class Observation>
void ItemParser<Observation>::parseDocumentChildren(const Decoder::OpenHeaderParts& parts)
{
    if (parts.notations)
        parseNotations();
    if (parts.unparsedEntities)
        parseUnparsedEntities();
    if (parts.characterEncodingScheme)
    {
        // Literals are taken for UTF-8 whatever it says.
        _reader->skip(1);
        if (_reader->bitOffset() == 0)
            throw FISParseException("Unexpected end of stream while parsing character encoding scheme");
        Decoder::nonEmptyOctetString(*_reader, _buffer);
        _observation.string(_buffer);
    }
    if (parts.standalone)
    {
        const unsigned int octet =
            PrimitiveCode::readOctet(*_reader, "Unexpected end of stream while parsing standalone flag");
        _observation.flags(Part::STANDALONE, octet & 1);
    }
    if (parts.version)
        _strings.parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::OTHER_STRING, _buffer);
}

// 110000sp and the notation, for each; 111100?? ends the list.
template <class Observation>
void ItemParser<Observation>::parseNotations()
{
    _observation.start(Structure::NOTATIONS);
    for (;;)
    {
        const unsigned int octet =
            PrimitiveCode::readOctet(*_reader, "Unexpected end of stream while parsing notation");
        if (octet >> 2 == NOTATION)
            parseNotation(octet);
        else if (octet >> 2 == TERMINATOR << 2)
            return endList(Structure::NOTATIONS);
        else
            Bugcheck::assertion("id == 60", FILE_NAME, __LINE__);
    }
}

// 1101000p and the entity, for each; 1111000? ends the list.
template <class Observation>
void ItemParser<Observation>::parseUnparsedEntities()
{
    _observation.start(Structure::UNPARSED_ENTITIES);
    for (;;)
    {
        const unsigned int octet =
            PrimitiveCode::readOctet(*_reader, "Unexpected end of stream while parsing unparsed entity");
        if (octet >> 1 == UNPARSED_ENTITY)
            parseUnparsedEntity(octet);
        else if (octet >> 1 == TERMINATOR << 3)
            return endList(Structure::UNPARSED_ENTITIES);
        else
            Bugcheck::assertion("id == 120", FILE_NAME, __LINE__);
    }
}

template <class Observation>
void ItemParser<Observation>::parseComment()
{
    _observation.start(Structure::COMMENT);
    _observation.part(Part::START);
    const std::string& text = _strings.parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::OTHER_STRING, _buffer);
    _observation.end(Structure::COMMENT);
    if (_handlers.lexical)
        _handlers.lexical->comment(text.data(), 0, textLength(text));
}

template <class Observation>
void ItemParser<Observation>::parseProcessingInstruction()
{
    _observation.start(Structure::PROCESSING_INSTRUCTION);
    _observation.part(Part::START);
    const std::string& target = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    const std::string& data = _strings.parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::OTHER_STRING, _buffer);
    _observation.end(Structure::PROCESSING_INSTRUCTION);
    if (_handlers.content)
        _handlers.content->processingInstruction(target, data);
}

// ??????sp: system identifier, public identifier. Behind them processing instructions and the terminator.
template <class Observation>
unsigned int ItemParser<Observation>::parseDocumentTypeDeclaration(unsigned int octet)
{
    _observation.start(Structure::DOCUMENT_TYPE_DECLARATION);
    _observation.part(Part::START);
    const std::string* systemId = optionalURI((octet & 2) != 0);
    const std::string* publicId = optionalURI((octet & 1) != 0);
    if (_handlers.lexical)
        _handlers.lexical->startDTD(FastInfosetParser::EMPTY_STRING, orEmpty(publicId), orEmpty(systemId));

    // Anything but a processing instruction is taken for the terminator at first; behind one only a terminator ends.
    const char* const endOfStream = "Unexpected end of stream while parsing document type declaration";
    unsigned int last = PrimitiveCode::readOctet(*_reader, endOfStream);
    if (last >> 4 == PROCESSING_INSTRUCTION)
    {
        for (; last >> 4 != TERMINATOR; last = PrimitiveCode::readOctet(*_reader, endOfStream))
            parseProcessingInstruction();
    }
    _observation.part(Part::TERMINATOR, HALF_OCTET);
    _observation.end(Structure::DOCUMENT_TYPE_DECLARATION);
    if (_handlers.lexical)
        _handlers.lexical->endDTD();
    return last;
}

// ??????sp: name, system identifier, public identifier.
template <class Observation>
void ItemParser<Observation>::parseUnexpandedEntityReference(unsigned int octet)
{
    _observation.start(Structure::ENTITY_REFERENCE);
    _observation.part(Part::START);
    _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    optionalURI((octet & 2) != 0);
    optionalURI((octet & 1) != 0);
    _observation.end(Structure::ENTITY_REFERENCE);
}

// ??????sp: name, system identifier, public identifier.
template <class Observation>
void ItemParser<Observation>::parseNotation(unsigned int octet)
{
    _observation.start(Structure::NOTATION);
    _observation.part(Part::START);
    const std::string& name = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    const std::string* systemId = optionalURI((octet & 2) != 0);
    const std::string* publicId = optionalURI((octet & 1) != 0);
    _observation.end(Structure::NOTATION);
    if (_handlers.dtd)
        _handlers.dtd->notationDecl(name, publicId, systemId);
}

// ???????p: name, system identifier, public identifier, notation name.
template <class Observation>
void ItemParser<Observation>::parseUnparsedEntity(unsigned int octet)
{
    _observation.start(Structure::UNPARSED_ENTITY);
    _observation.part(Part::START);
    const std::string& name = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    const std::string& systemId = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_URI);
    const std::string* publicId = optionalURI((octet & 1) != 0);
    const std::string& notationName = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    _observation.end(Structure::UNPARSED_ENTITY);
    if (publicId && publicId->empty())
        publicId = nullptr;
    if (_handlers.dtd)
        _handlers.dtd->unparsedEntityDecl(name, publicId, systemId, notationName);
}

// The terminator of a list has the rest of its octet to itself.
template <class Observation>
void ItemParser<Observation>::endList(Structure structure)
{
    _observation.part(Part::TERMINATOR, HALF_OCTET);
    _observation.part(Part::PADDING);
    _observation.end(structure);
}

template <class Observation>
const std::string* ItemParser<Observation>::optionalURI(bool isPresent)
{
    return isPresent ? &_strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_URI) : nullptr;
}

template class ItemParser<Unobserved>;
template class ItemParser<Observed>;

} // namespace Vesk::FastInfoset
