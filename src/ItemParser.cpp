// SPDX-License-Identifier: MIT
#include "ItemParser.h"
#include "StringParser.h"
#include "TextLength.h"
#include "Vesk/Bugcheck.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/XML/ContentHandler.h"
#include "Vesk/XML/DTDHandler.h"
#include "Vesk/XML/LexicalHandler.h"

namespace Vesk::FastInfoset
{

namespace
{

// Identification bits of the items in the header's lists, and the terminator that ends a list, in as many bits.
constexpr unsigned int NOTATION = 0b110000;
constexpr unsigned int END_OF_NOTATIONS = 0b111100;
constexpr unsigned int UNPARSED_ENTITY = 0b1101000;
constexpr unsigned int END_OF_UNPARSED_ENTITIES = 0b1111000;

// The first half of a processing instruction's identification octet; within a document type declaration the other
// half is not looked at.
constexpr unsigned int PROCESSING_INSTRUCTION = 0b1110;
constexpr unsigned int TERMINATOR = 0b1111;

const char FILE_NAME[] = "src/FastInfosetParser";

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
        readBits(1, "character encoding scheme");
        Decoder::nonEmptyOctetString(*_reader, _buffer);
    }
    if (parts.standalone)
        readBits(8, "standalone flag");
    if (parts.version)
        _strings.parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::OTHER_STRING, _buffer);
}

void ItemParser::parseNotations()
{
    unsigned int id = 0;
    while ((id = readBits(6, "notations")) == NOTATION)
        parseNotation();
    if (id != END_OF_NOTATIONS)
        Bugcheck::assertion("id == 60", FILE_NAME, __LINE__);
    _reader->align();
}

void ItemParser::parseUnparsedEntities()
{
    unsigned int id = 0;
    while ((id = readBits(7, "unparsed entities")) == UNPARSED_ENTITY)
        parseUnparsedEntity();
    if (id != END_OF_UNPARSED_ENTITIES)
        Bugcheck::assertion("id == 120", FILE_NAME, __LINE__);
    _reader->align();
}

void ItemParser::parseComment()
{
    if (_reader->bitOffset() != 0)
        throw FISEncodingException("Illegal startposition for a Comment value");
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

void ItemParser::parseDocumentTypeDeclaration()
{
    const Identifiers identifiers = readIdentifiers("Illegal startposition for a DocumentTypeDeclaration value");
    const std::string& systemId = identifiers.hasSystemId
                                      ? _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_URI)
                                      : FastInfosetParser::EMPTY_STRING;
    const std::string& publicId = identifiers.hasPublicId
                                      ? _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_URI)
                                      : FastInfosetParser::EMPTY_STRING;
    if (_handlers.lexical)
        _handlers.lexical->startDTD(FastInfosetParser::EMPTY_STRING, publicId, systemId);

    // Anything but a processing instruction is taken for the terminator at first; behind one only a terminator ends.
    unsigned int id = readBits(4, "document type declaration");
    if (id == PROCESSING_INSTRUCTION)
    {
        for (; id != TERMINATOR; id = readBits(4, "document type declaration"))
        {
            _reader->align();
            parseProcessingInstruction();
        }
    }
    if (_handlers.lexical)
        _handlers.lexical->endDTD();
}

void ItemParser::parseUnexpandedEntityReference()
{
    // The message speaks of a notation; callers may know it.
    const Identifiers identifiers = readIdentifiers("Illegal startposition for a Notation value");
    _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    if (identifiers.hasSystemId)
        _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_URI);
    if (identifiers.hasPublicId)
        _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_URI);
}

void ItemParser::parseNotation()
{
    const Identifiers identifiers = readIdentifiers("Illegal startposition for a Notation value");
    const std::string& name = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    const std::string* systemId = nullptr;
    const std::string* publicId = nullptr;
    if (identifiers.hasSystemId)
        systemId = &_strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_URI);
    if (identifiers.hasPublicId)
        publicId = &_strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_URI);
    if (_handlers.dtd)
        _handlers.dtd->notationDecl(name, publicId, systemId);
}

void ItemParser::parseUnparsedEntity()
{
    if (_reader->bitOffset() != 7)
        throw FISEncodingException("Illegal startposition for an UnparsedEntity value");
    const bool hasPublicId = readBits(1, "unparsed entity") != 0;
    const std::string& name = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    const std::string& systemId = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_URI);
    const std::string& publicId = hasPublicId ? _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_URI)
                                              : FastInfosetParser::EMPTY_STRING;
    const std::string& notationName = _strings.parseIdentifyingStringOrIndex(DocumentVocabulary::OTHER_NCNAME);
    if (_handlers.dtd)
        _handlers.dtd->unparsedEntityDecl(name, publicId.empty() ? nullptr : &publicId, systemId, notationName);
}

// The two bits that end an identification octet: system identifier present, public identifier present.
ItemParser::Identifiers ItemParser::readIdentifiers(const char* positionMessage)
{
    if (_reader->bitOffset() != 6)
        throw FISEncodingException(positionMessage);
    const unsigned int present = _reader->restOfOctet();
    _reader->align();
    return {(present & 2) != 0, (present & 1) != 0};
}

unsigned int ItemParser::readBits(int numOfBits, const char* what)
{
    unsigned int bits = 0;
    if (!_reader->read(bits, numOfBits))
        throw FISParseException(std::string("Unexpected end of stream while parsing ") + what);
    return bits;
}

} // namespace Vesk::FastInfoset
