// SPDX-License-Identifier: MIT
#include "ItemParser.h"
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

// The first half of a processing instruction's octet, which is all that a document type declaration looks at.
constexpr unsigned int PROCESSING_INSTRUCTION = 0b1110;

const char FILE_NAME[] = "src/FastInfosetParser";

const std::string& orEmpty(const std::string* text)
{
    return text ? *text : FastInfosetParser::EMPTY_STRING;
}

} // namespace

void ItemParser::begin(BitStreamReader& reader, const ParserHandlers& handlers)
{
    _reader = &reader;
    _handlers = handlers;
}

void ItemParser::parseDocumentChildren(const Decoder::OpenHeaderParts& parts)
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
    }
    if (parts.standalone)
        readOctet("Unexpected end of stream while parsing standalone flag");
    if (parts.version)
        _strings.parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::OTHER_STRING, _buffer);
}

// 110000sp and the notation, for each; 111100?? ends the list.
void ItemParser::parseNotations()
{
    for (;;)
    {
        const unsigned int octet = readOctet("Unexpected end of stream while parsing notation");
        if (octet >> 2 == NOTATION)
            parseNotation(octet);
        else if (octet >> 2 == TERMINATOR << 2)
            return;
        else
            Bugcheck::assertion("id == 60", FILE_NAME, __LINE__);
    }
}

// 1101000p and the entity, for each; 1111000? ends the list.
void ItemParser::parseUnparsedEntities()
{
    for (;;)
    {
        const unsigned int octet = readOctet("Unexpected end of stream while parsing unparsed entity");
        if (octet >> 1 == UNPARSED_ENTITY)
            parseUnparsedEntity(octet);
        else if (octet >> 1 == TERMINATOR << 3)
            return;
        else
            Bugcheck::assertion("id == 120", FILE_NAME, __LINE__);
    }
}

void ItemParser::parseComment()
{
    const std::string& text = _strings.parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::OTHER_STRING, _buffer);
    if (_handlers.lexical)
        _handlers.lexical->comment(text.data(), 0, textLength(text));
}

void ItemParser::parseProcessingInstruction()
{
    const std::string& target = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    const std::string& data = _strings.parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::OTHER_STRING, _buffer);
    if (_handlers.content)
        _handlers.content->processingInstruction(target, data);
}

// ??????sp: system identifier, public identifier. Behind them processing instructions and the terminator.
unsigned int ItemParser::parseDocumentTypeDeclaration(unsigned int octet)
{
    const std::string* systemId = optionalURI((octet & 2) != 0);
    const std::string* publicId = optionalURI((octet & 1) != 0);
    if (_handlers.lexical)
        _handlers.lexical->startDTD(FastInfosetParser::EMPTY_STRING, orEmpty(publicId), orEmpty(systemId));

    // Anything but a processing instruction is taken for the terminator at first; behind one only a terminator ends.
    const char* const endOfStream = "Unexpected end of stream while parsing document type declaration";
    unsigned int last = readOctet(endOfStream);
    if (last >> 4 == PROCESSING_INSTRUCTION)
    {
        for (; last >> 4 != TERMINATOR; last = readOctet(endOfStream))
            parseProcessingInstruction();
    }
    if (_handlers.lexical)
        _handlers.lexical->endDTD();
    return last;
}

// ??????sp: name, system identifier, public identifier.
void ItemParser::parseUnexpandedEntityReference(unsigned int octet)
{
    _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    optionalURI((octet & 2) != 0);
    optionalURI((octet & 1) != 0);
}

// ??????sp: name, system identifier, public identifier.
void ItemParser::parseNotation(unsigned int octet)
{
    const std::string& name = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    const std::string* systemId = optionalURI((octet & 2) != 0);
    const std::string* publicId = optionalURI((octet & 1) != 0);
    if (_handlers.dtd)
        _handlers.dtd->notationDecl(name, publicId, systemId);
}

// ???????p: name, system identifier, public identifier, notation name.
void ItemParser::parseUnparsedEntity(unsigned int octet)
{
    const std::string& name = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    const std::string& systemId = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_URI);
    const std::string* publicId = optionalURI((octet & 1) != 0);
    const std::string& notationName = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    if (publicId && publicId->empty())
        publicId = nullptr;
    if (_handlers.dtd)
        _handlers.dtd->unparsedEntityDecl(name, publicId, systemId, notationName);
}

const std::string* ItemParser::optionalURI(bool isPresent)
{
    return isPresent ? &_strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_URI) : nullptr;
}

unsigned int ItemParser::readOctet(const char* endOfStreamMessage)
{
    unsigned int octet = 0;
    if (!_reader->readOctet(octet))
        throw FISParseException(endOfStreamMessage);
    return octet;
}

} // namespace Vesk::FastInfoset
