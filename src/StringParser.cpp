// SPDX-License-Identifier: MIT
#include "StringParser.h"
#include "ReleaseLarge.h"
#include "Vesk/FastInfoset/Decoder.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/StringDecoder.h"
#include <utility>

namespace Vesk::FastInfoset
{

namespace
{

using Table = StructureObserver::Table;

constexpr std::size_t KEPT_OCTETS = 64 * 1024; // of a buffer, from one document to the next

constexpr DocumentVocabulary::ID CHUNKS = DocumentVocabulary::CONTENT_CHARACTER_CHUNK;

} // namespace

template <class Observation>
StringParser<Observation>::StringParser(Observation& observation)
    : _observation(observation),
      _elementNames(entries(DocumentVocabulary::PREFIX), entries(DocumentVocabulary::NAMESPACE_NAME),
                    entries(DocumentVocabulary::LOCAL_NAME)),
      _attributeNames(entries(DocumentVocabulary::PREFIX), entries(DocumentVocabulary::NAMESPACE_NAME),
                      entries(DocumentVocabulary::LOCAL_NAME))
{
}

template <class Observation>
void StringParser<Observation>::begin(BitStreamReader& reader, DocumentVocabulary& vocabulary, bool areNamesQualified)
{
    _reader = &reader;
    _vocabulary = &vocabulary;
    for (int id = DocumentVocabulary::PREFIX; id <= DocumentVocabulary::CONTENT_CHARACTER_CHUNK; ++id)
    {
        const auto table = static_cast<DocumentVocabulary::ID>(id);
        entries(table).begin(vocabulary.vocabulary(table));
    }
    for (std::string* const buffer : {&_literal, &_octets, &_chunk})
        releaseLarge(*buffer, KEPT_OCTETS);
    _elementNames.begin(vocabulary.elementNames(), areNamesQualified);
    _attributeNames.begin(vocabulary.attributeNames(), false);
}

template <class Observation>
const std::string& StringParser<Observation>::parseIdentifyingStringOrIndex(DocumentVocabulary::ID table)
{
    const std::string& text = entries(table)[parseIndex(table)];
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
    const unsigned int octet =
        PrimitiveCode::readOctet(*_reader, "Unexpected end of stream while parsing identifying string or index");
    if ((octet & 0x80) != 0)
    {
        const unsigned int index = PrimitiveCode::integerOnSecondBit(*_reader, octet & 0x7F);
        _observation.indexed(index);
        return index;
    }
    unsigned int index = 0;
    readEntry(table, PrimitiveCode::stringLength(*_reader, octet & 0x7F, 7), index);
    return index;
}

template <class Observation>
const ResolvedName& StringParser<Observation>::parseLiteralName(ResolvedNames& names, Table table, unsigned int octet)
{
    _observation.literalName(table);
    bool existed = false;
    const unsigned int index = names.table().index(parseLiteralName(octet), existed);
    const ResolvedName& name = names[index];
    _observation.addedName(table, index, name);
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
    {
        const VerbTable<std::string>& texts = _vocabulary->vocabulary(table).entries();
        _observation.string(table, index < texts.size() ? &texts[index] : nullptr);
    }
    return index;
}

// assssss (seven bits, or assss: five): whether the string is added to the table, its form. The text of a value is made if
// it is wanted, and for the table and observers in any case.
template <class Observation>
template <int NUM_OF_BITS>
const std::string& StringParser<Observation>::parseLiteral(DocumentVocabulary::ID table, unsigned int octet,
                                                           std::string& buffer, bool isTextWanted,
                                                           AutoPtr<Encoding>& value)
{
    constexpr int GROUP_BITS = NUM_OF_BITS - 3; // behind the bit for the table and two for the form
    const bool addToTable = (octet >> (NUM_OF_BITS - 1) & 1) != 0;
    const unsigned int group = octet & ((1u << GROUP_BITS) - 1);
    const Form form = static_cast<Form>(octet >> GROUP_BITS & 3);
    unsigned int index = 0;
    const std::string* text = &buffer;
    if (form == Form::UTF8)
    {
        const unsigned long octetCount = PrimitiveCode::stringLength(*_reader, group, GROUP_BITS);
        if (addToTable)
            text = &readEntry(table, octetCount, index);
        else
            readString(octetCount, buffer);
    }
    else
    {
        value = parseOtherForm(form, group, GROUP_BITS, buffer);
        if (value && (isTextWanted || addToTable || Observation::ENABLED))
            value->text(buffer);
        if (addToTable)
            text = &enter(table, buffer, index);
    }
    _observation.string(table, text);
    return *text;
}

template <class Observation>
const std::string& StringParser<Observation>::parseLiteralAsText(DocumentVocabulary::ID table, unsigned int octet,
                                                                 std::string& buffer)
{
    AutoPtr<Encoding> value;
    return parseLiteral<7>(table, octet, buffer, true, value);
}

//   ??1iiiii    an index
//   ??0assss    an encoded character string that is added to the table or not
template <class Observation>
const std::string* StringParser<Observation>::parseCharacterChunk(unsigned int octet, AutoPtr<Encoding>& value)
{
    if ((octet & 0x20) == 0)
    {
        const std::string& text = parseLiteral<5>(CHUNKS, octet, _chunk, false, value);
        return value ? nullptr : &text;
    }
    const unsigned int index = PrimitiveCode::integerOnFourthBit(*_reader, octet & 0x1F);
    const std::string& text = entries(CHUNKS)[index];
    _observation.indexed(index);
    _observation.string(CHUNKS, &text);
    return &text;
}

// The forms of an encoded character string, by four bits of its first octet or two:
//
//   00nnnn    UTF-8 of that length, which parseLiteral reads                        00nn
//   01nnnn    UTF-16 of that length                                                 01nn
//   10iiii    and four bits more: an alphabet's index, then length and codes        10ii and six bits more
//   11iiii    and four bits more: an algorithm's index, then its own data           11ii and six bits more
//
// Returns the value of an algorithm, or null and the text.
template <class Observation>
AutoPtr<Encoding> StringParser<Observation>::parseOtherForm(Form form, unsigned int group, int groupBits,
                                                            std::string& text)
{
    if (form == Form::UTF16)
    {
        readString(PrimitiveCode::stringLength(*_reader, group, groupBits), _octets);
        StringDecoder::decodeUTF16(_octets, text);
        _observation.form(form);
        return AutoPtr<Encoding>();
    }

    _reader->unread(static_cast<unsigned int>(groupBits));
    const unsigned int index = PrimitiveCode::smallInteger(*_reader);
    AutoPtr<Encoding> value;
    if (form == Form::RESTRICTED_ALPHABET)
    {
        Decoder::nonEmptyOctetString(*_reader, _octets);
        StringDecoder::decodeAlphabet(_octets, std::as_const(*_vocabulary).restrictedAlphabets().alphabet(index), text);
    }
    else
    {
        value = _vocabulary->decodingAlgorithm().decoding(index)(*_reader);
        _reader->align();
    }
    _observation.form(form, index);
    return value;
}

template <class Observation>
inline void StringParser<Observation>::readString(unsigned long octetCount, std::string& octets)
{
    if (!_reader->read(octets, octetCount))
        PrimitiveCode::throwEndOfString(*_reader);
}

// The octets of a string that enters the table, and its index.
template <class Observation>
const std::string& StringParser<Observation>::readEntry(DocumentVocabulary::ID table, unsigned long octetCount,
                                                        unsigned int& index)
{
    VectorVocabulary<std::string>* const vector = entries(table).vector();
    if (!vector)
    {
        readString(octetCount, _literal);
        return enter(table, _literal, index);
    }
    std::string& text = vector->spare();
    readString(octetCount, text);
    index = vector->addSpare();
    entries(table).note(index, text);
    _observation.added(index);
    return text;
}

template <class Observation>
const std::string& StringParser<Observation>::enter(DocumentVocabulary::ID table, const std::string& text,
                                                    unsigned int& index)
{
    index = entries(table).enter(text);
    _observation.added(index);
    return entries(table)[index];
}

template class StringParser<Unobserved>;
template class StringParser<Observed>;

} // namespace Vesk::FastInfoset
