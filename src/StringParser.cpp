// SPDX-License-Identifier: MIT
#include "StringParser.h"
#include "PrimitiveCode.h"
#include "Vesk/FastInfoset/Decoder.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/StringDecoder.h"
#include <utility>

namespace Vesk::FastInfoset
{

namespace
{

// The forms of an encoded character string, by its first two bits (X.891 C.19).
enum Discriminant : unsigned char
{
    UTF8 = 0,
    UTF16 = 1,
    RESTRICTED_ALPHABET = 2,
    ENCODING_ALGORITHM = 3
};

constexpr unsigned int LITERAL_NAME = 0xF; // four bits, where an index would start

constexpr DocumentVocabulary::ID CHUNKS = DocumentVocabulary::CONTENT_CHARACTER_CHUNK;

} // namespace

void StringParser::begin(BitStreamReader& reader, DocumentVocabulary& vocabulary)
{
    _reader = &reader;
    _vocabulary = &vocabulary;
    for (int id = DocumentVocabulary::PREFIX; id <= DocumentVocabulary::CONTENT_CHARACTER_CHUNK; ++id)
        _entries[id] = &vocabulary.vocabulary(static_cast<DocumentVocabulary::ID>(id)).entries();
    _elementNames.begin(vocabulary.elementNames(), vocabulary);
    _attributeNames.begin(vocabulary.attributeNames(), vocabulary);
}

const std::string& StringParser::parseIdentifyingStringOrIndex(DocumentVocabulary::ID table)
{
    return value(table, parseIndex(table));
}

//   1iiiiiii    an index
//   0nnnnnnn    a literal of that length
//
// The index of either.
unsigned int StringParser::parseIndex(DocumentVocabulary::ID table)
{
    const unsigned int octet = readOctet("Unexpected end of stream while parsing identifying string or index");
    if ((octet & 0x80) != 0)
        return PrimitiveCode::integerOnSecondBit(*_reader, octet & 0x7F);

    readString(PrimitiveCode::stringLength(*_reader, octet & 0x7F, 7), _literal);
    bool existed = false;
    return _vocabulary->vocabulary(table).index(_literal, existed);
}

//   ??iiiiii    an index
//   ??1111pn    a literal: prefix present, namespace name present
const ResolvedName& StringParser::parseElementName(unsigned int octet)
{
    const unsigned int group = octet & 0x3F;
    if (group >> 2 != LITERAL_NAME)
        return _elementNames.name(PrimitiveCode::integerOnThirdBit(*_reader, group));
    bool existed = false;
    return _elementNames.name(_vocabulary->elementNames().index(parseLiteralName(octet), existed));
}

//   ?iiiiiii    an index
//   ?1111?pn    a literal: prefix present, namespace name present
const ResolvedName& StringParser::parseAttributeName(unsigned int octet)
{
    const unsigned int group = octet & 0x7F;
    if (group >> 3 != LITERAL_NAME)
        return _attributeNames.name(PrimitiveCode::integerOnSecondBit(*_reader, group));
    bool existed = false;
    return _attributeNames.name(_vocabulary->attributeNames().index(parseLiteralName(octet), existed));
}

// Behind the octet with the mark: prefix and namespace name, as far as its last two bits announce them, and local name.
QualifiedNameEntry StringParser::parseLiteralName(unsigned int octet)
{
    const unsigned int prefix = (octet & 2) != 0 ? parseIndex(DocumentVocabulary::PREFIX) : 0;
    const unsigned int namespaceName = (octet & 1) != 0 ? parseIndex(DocumentVocabulary::NAMESPACE_NAME) : 0;
    return QualifiedNameEntry(prefix, namespaceName, parseIndex(DocumentVocabulary::LOCAL_NAME));
}

//   1iiiiiii    an index
//   0assssss    an encoded character string that is added to the table or not
const std::string& StringParser::parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::ID table, std::string& buffer)
{
    const unsigned int octet = readOctet("Unexpected end of stream while parsing non identifying string or index");
    if ((octet & 0x80) != 0)
        return value(table, PrimitiveCode::integerOnSecondBit(*_reader, octet & 0x7F));

    const AutoPtr<Encoding> typed = parseEncodedCharacterString(octet, 6, buffer);
    if (typed)
        typed->text(buffer);
    return (octet & 0x40) != 0 ? enter(table, buffer) : buffer;
}

//   ??1iiiii    an index
//   ??0assss    an encoded character string that is added to the table or not
StringParser::Content StringParser::parseCharacterChunk(unsigned int octet)
{
    Content content;
    if ((octet & 0x20) != 0)
    {
        content.text = &value(CHUNKS, PrimitiveCode::integerOnFourthBit(*_reader, octet & 0x1F));
        return content;
    }

    const bool addToTable = (octet & 0x10) != 0;
    content.value = parseEncodedCharacterString(octet, 4, _chunk);
    content.text = &_chunk;
    if (addToTable && !content.value)
    {
        content.text = &enter(CHUNKS, _chunk);
    }
    else if (addToTable)
    {
        content.value->text(_text);
        enter(CHUNKS, _text);
    }
    return content;
}

// In the last numOfBits bits (6 or 4) of the octet:
//
//   00nnnn    UTF-8 of that length                                                  00nn
//   01nnnn    UTF-16 of that length                                                 01nn
//   10iiii    and four bits more: an alphabet's index, then length and codes        10ii and six bits more
//   11iiii    and four bits more: an algorithm's index, then its own data           11ii and six bits more
//
// Returns the value of an algorithm, or null and the text.
AutoPtr<Encoding> StringParser::parseEncodedCharacterString(unsigned int octet, int numOfBits, std::string& text)
{
    const int groupBits = numOfBits - 2;
    const unsigned int group = octet & (0xFFu >> (8 - groupBits));
    switch ((octet >> groupBits) & 3)
    {
    case UTF8:
        readString(PrimitiveCode::stringLength(*_reader, group, groupBits), text);
        break;
    case UTF16:
        readString(PrimitiveCode::stringLength(*_reader, group, groupBits), _octets);
        StringDecoder::decodeUTF16(_octets, text);
        break;
    case RESTRICTED_ALPHABET:
    {
        _reader->unread(static_cast<unsigned int>(groupBits));
        const unsigned int index = PrimitiveCode::smallInteger(*_reader);
        Decoder::nonEmptyOctetString(*_reader, _octets);
        StringDecoder::decodeAlphabet(_octets, std::as_const(*_vocabulary).restrictedAlphabets().alphabet(index), text);
        break;
    }
    case ENCODING_ALGORITHM:
    {
        _reader->unread(static_cast<unsigned int>(groupBits));
        const unsigned int index = PrimitiveCode::smallInteger(*_reader);
        AutoPtr<Encoding> value = _vocabulary->decodingAlgorithm().decoding(index)(*_reader);
        _reader->align();
        return value;
    }
    }
    return AutoPtr<Encoding>();
}

inline unsigned int StringParser::readOctet(const char* endOfStreamMessage)
{
    unsigned int octet = 0;
    if (!_reader->readOctet(octet))
        throw FISParseException(endOfStreamMessage);
    return octet;
}

inline void StringParser::readString(unsigned long octetCount, std::string& octets)
{
    if (!_reader->read(octets, octetCount))
        throw FISParseException("Unexpected end of stream while reading octet string");
}

inline const std::string& StringParser::value(DocumentVocabulary::ID table, unsigned int index) const
{
    const VerbTable<std::string>& entries = *_entries[table];
    // Beyond the end the table itself throws what its implementation throws.
    return index < entries.size() ? entries[index] : _vocabulary->vocabulary(table).value(index);
}

const std::string& StringParser::enter(DocumentVocabulary::ID table, const std::string& text)
{
    bool existed = false;
    return value(table, _vocabulary->vocabulary(table).index(text, existed));
}

} // namespace Vesk::FastInfoset
