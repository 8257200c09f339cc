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

using Form = StructureObserver::Form;
using Table = StructureObserver::Table;

constexpr unsigned int LITERAL_NAME = 0xF; // four bits, where an index would start

constexpr DocumentVocabulary::ID CHUNKS = DocumentVocabulary::CONTENT_CHARACTER_CHUNK;

} // namespace

template <class Observation>
void StringParser<Observation>::begin(BitStreamReader& reader, DocumentVocabulary& vocabulary)
{
    _reader = &reader;
    _vocabulary = &vocabulary;
    for (int id = DocumentVocabulary::PREFIX; id <= DocumentVocabulary::CONTENT_CHARACTER_CHUNK; ++id)
        _entries[id] = &vocabulary.vocabulary(static_cast<DocumentVocabulary::ID>(id)).entries();
    _elementNames.begin(vocabulary.elementNames(), vocabulary);
    _attributeNames.begin(vocabulary.attributeNames(), vocabulary);
}

template <class Observation>
const std::string& StringParser<Observation>::parseIdentifyingStringOrIndex(DocumentVocabulary::ID table)
{
    const std::string& text = value(table, parseIndex(table));
    _observation.string(table, &text);
    return text;
}

//   1iiiiiii    an index
//   0nnnnnnn    a literal of that length
//
// The index of either.
template <class Observation>
unsigned int StringParser<Observation>::parseIndex(DocumentVocabulary::ID table)
{
    const unsigned int octet = readOctet("Unexpected end of stream while parsing identifying string or index");
    if ((octet & 0x80) != 0)
    {
        const unsigned int index = PrimitiveCode::integerOnSecondBit(*_reader, octet & 0x7F);
        _observation.indexed(index);
        return index;
    }
    readString(PrimitiveCode::stringLength(*_reader, octet & 0x7F, 7), _literal);
    bool existed = false;
    const unsigned int index = _vocabulary->vocabulary(table).index(_literal, existed);
    _observation.added(index);
    return index;
}

//   ??iiiiii    an index
//   ??1111pn    a literal: prefix present, namespace name present
template <class Observation>
const ResolvedName& StringParser<Observation>::parseElementName(unsigned int octet)
{
    const unsigned int group = octet & 0x3F;
    if (group >> 2 != LITERAL_NAME)
    {
        const unsigned int index = PrimitiveCode::integerOnThirdBit(*_reader, group);
        const ResolvedName& name = _elementNames.name(index);
        _observation.indexedName(Table::ELEMENT_NAME, index, name);
        return name;
    }
    _observation.literalName(Table::ELEMENT_NAME);
    bool existed = false;
    const unsigned int index = _vocabulary->elementNames().index(parseLiteralName(octet), existed);
    const ResolvedName& name = _elementNames.name(index);
    _observation.addedName(Table::ELEMENT_NAME, index, name);
    return name;
}

//   ?iiiiiii    an index
//   ?1111?pn    a literal: prefix present, namespace name present
template <class Observation>
const ResolvedName& StringParser<Observation>::parseAttributeName(unsigned int octet)
{
    const unsigned int group = octet & 0x7F;
    if (group >> 3 != LITERAL_NAME)
    {
        const unsigned int index = PrimitiveCode::integerOnSecondBit(*_reader, group);
        const ResolvedName& name = _attributeNames.name(index);
        _observation.indexedName(Table::ATTRIBUTE_NAME, index, name);
        return name;
    }
    _observation.literalName(Table::ATTRIBUTE_NAME);
    bool existed = false;
    const unsigned int index = _vocabulary->attributeNames().index(parseLiteralName(octet), existed);
    const ResolvedName& name = _attributeNames.name(index);
    _observation.addedName(Table::ATTRIBUTE_NAME, index, name);
    return name;
}

// Behind the octet with the mark: prefix and namespace name, as far as its last two bits announce them, and local name.
template <class Observation>
QualifiedNameEntry StringParser<Observation>::parseLiteralName(unsigned int octet)
{
    const unsigned int prefix = (octet & 2) != 0 ? parseNamePart(DocumentVocabulary::PREFIX) : 0;
    const unsigned int namespaceName = (octet & 1) != 0 ? parseNamePart(DocumentVocabulary::NAMESPACE_NAME) : 0;
    return QualifiedNameEntry(prefix, namespaceName, parseNamePart(DocumentVocabulary::LOCAL_NAME));
}

// Indexes beyond their table are found out when the name is complete.
template <class Observation>
inline unsigned int StringParser<Observation>::parseNamePart(DocumentVocabulary::ID table)
{
    const unsigned int index = parseIndex(table);
    if constexpr (Observation::ENABLED)
        _observation.string(table, index < _entries[table]->size() ? &(*_entries[table])[index] : nullptr);
    return index;
}

//   1iiiiiii    an index
//   0assssss    an encoded character string that is added to the table or not
template <class Observation>
const std::string& StringParser<Observation>::parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::ID table,
                                                                                  std::string& buffer)
{
    const unsigned int octet = readOctet("Unexpected end of stream while parsing non identifying string or index");
    if ((octet & 0x80) != 0)
    {
        const unsigned int index = PrimitiveCode::integerOnSecondBit(*_reader, octet & 0x7F);
        const std::string& text = value(table, index);
        _observation.indexed(index);
        _observation.string(table, &text);
        return text;
    }
    const AutoPtr<Encoding> typed = parseEncodedCharacterString(octet, 6, buffer);
    if (typed)
        typed->text(buffer);
    const std::string& text = (octet & 0x40) != 0 ? enter(table, buffer) : buffer;
    _observation.string(table, &text);
    return text;
}

//   ??1iiiii    an index
//   ??0assss    an encoded character string that is added to the table or not
template <class Observation>
CharacterContent StringParser<Observation>::parseCharacterChunk(unsigned int octet)
{
    CharacterContent content;
    if ((octet & 0x20) != 0)
    {
        const unsigned int index = PrimitiveCode::integerOnFourthBit(*_reader, octet & 0x1F);
        content.text = &value(CHUNKS, index);
        _observation.indexed(index);
        _observation.string(CHUNKS, content.text);
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
    else if (Observation::ENABLED && content.value)
    {
        content.value->text(_text); // which nobody but the observer needs
    }
    _observation.string(CHUNKS, content.value ? &_text : content.text);
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
template <class Observation>
AutoPtr<Encoding> StringParser<Observation>::parseEncodedCharacterString(unsigned int octet, int numOfBits,
                                                                         std::string& text)
{
    const int groupBits = numOfBits - 2;
    const unsigned int group = octet & (0xFFu >> (8 - groupBits));
    switch (static_cast<Form>((octet >> groupBits) & 3))
    {
    case Form::UTF8:
        readString(PrimitiveCode::stringLength(*_reader, group, groupBits), text);
        break;
    case Form::UTF16:
        readString(PrimitiveCode::stringLength(*_reader, group, groupBits), _octets);
        StringDecoder::decodeUTF16(_octets, text);
        _observation.form(Form::UTF16);
        break;
    case Form::RESTRICTED_ALPHABET:
    {
        _reader->unread(static_cast<unsigned int>(groupBits));
        const unsigned int index = PrimitiveCode::smallInteger(*_reader);
        Decoder::nonEmptyOctetString(*_reader, _octets);
        StringDecoder::decodeAlphabet(_octets, std::as_const(*_vocabulary).restrictedAlphabets().alphabet(index), text);
        _observation.form(Form::RESTRICTED_ALPHABET, index);
        break;
    }
    case Form::ENCODING_ALGORITHM:
    {
        _reader->unread(static_cast<unsigned int>(groupBits));
        const unsigned int index = PrimitiveCode::smallInteger(*_reader);
        AutoPtr<Encoding> value = _vocabulary->decodingAlgorithm().decoding(index)(*_reader);
        _reader->align();
        _observation.form(Form::ENCODING_ALGORITHM, index);
        return value;
    }
    }
    return AutoPtr<Encoding>();
}

template <class Observation>
inline unsigned int StringParser<Observation>::readOctet(const char* endOfStreamMessage)
{
    unsigned int octet = 0;
    if (!_reader->readOctet(octet))
        throw FISParseException(endOfStreamMessage);
    return octet;
}

template <class Observation>
inline void StringParser<Observation>::readString(unsigned long octetCount, std::string& octets)
{
    if (!_reader->read(octets, octetCount))
        PrimitiveCode::throwEndOfString(*_reader);
}

template <class Observation>
inline const std::string& StringParser<Observation>::value(DocumentVocabulary::ID table, unsigned int index) const
{
    const VerbTable<std::string>& entries = *_entries[table];
    // Beyond the end the table itself throws what its implementation throws.
    return index < entries.size() ? entries[index] : _vocabulary->vocabulary(table).value(index);
}

template <class Observation>
const std::string& StringParser<Observation>::enter(DocumentVocabulary::ID table, const std::string& text)
{
    bool existed = false;
    const unsigned int index = _vocabulary->vocabulary(table).index(text, existed);
    _observation.added(index);
    return value(table, index);
}

template class StringParser<Unobserved>;
template class StringParser<Observed>;

} // namespace Vesk::FastInfoset
