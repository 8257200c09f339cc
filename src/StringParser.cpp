// SPDX-License-Identifier: MIT
#include "StringParser.h"
#include "IntegerCode.h"
#include "Vesk/FastInfoset/Decoder.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/StringDecoder.h"

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

constexpr unsigned int LITERAL_NAME = 0xF; // where an index would start

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
    unsigned int index = 0;
    return parseIdentifyingStringOrIndex(table, index);
}

// 1 and an index, or 0 and a literal.
const std::string& StringParser::parseIdentifyingStringOrIndex(DocumentVocabulary::ID table, unsigned int& index)
{
    if (_reader->bitOffset() != 0)
        throw FISEncodingException("Illegal startposition for an parseIdentifyingStringOrIndex");
    if (flag("Unexpected end of stream while parsing identifying string or index"))
    {
        index = IntegerCode::onSecondBit(*_reader);
    }
    else
    {
        Decoder::nonEmptyOctetString(*_reader, _literal);
        bool existed = false;
        index = _vocabulary->vocabulary(table).index(_literal, existed);
    }
    return value(table, index);
}

const ResolvedName& StringParser::parseQualifiedNameOrIndex(bool isElement)
{
    const int offset = _reader->bitOffset();
    if (offset != 1 && offset != 2)
        throw FISEncodingException("Illegal startposition for a parseQualifiedNameOrIndex value");

    const unsigned int start = _reader->restOfOctet() >> (4 - offset); // its next four bits
    ResolvedNames& names = isElement ? _elementNames : _attributeNames;
    if (start != LITERAL_NAME)
        return names.name(offset == 1 ? IntegerCode::onSecondBit(*_reader) : IntegerCode::onThirdBit(*_reader));

    Vocabulary<QualifiedNameEntry>& table = isElement ? _vocabulary->elementNames() : _vocabulary->attributeNames();
    const QualifiedNameEntry entry = parseLiteralName();
    bool existed = false;
    return names.name(table.index(entry, existed));
}

// After the mark, in the last two bits of its octet: prefix present, namespace name present; then those that are, and
// the local name.
QualifiedNameEntry StringParser::parseLiteralName()
{
    const unsigned int present = _reader->restOfOctet();
    _reader->align();
    unsigned int prefix = 0;
    unsigned int namespaceName = 0;
    unsigned int localName = 0;
    if (present & 2)
        parseIdentifyingStringOrIndex(DocumentVocabulary::PREFIX, prefix);
    if (present & 1)
        parseIdentifyingStringOrIndex(DocumentVocabulary::NAMESPACE_NAME, namespaceName);
    parseIdentifyingStringOrIndex(DocumentVocabulary::LOCAL_NAME, localName);
    return QualifiedNameEntry(prefix, namespaceName, localName);
}

// 1 and an index; or 0, whether the literal enters the table, and the literal.
const std::string& StringParser::parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::ID table, std::string& buffer)
{
    if ((_reader->bitOffset() & ~2) != 0)
        throw FISEncodingException("Illegal startposition for a NonIdentifyingStringOrIndex value");
    if (flag("Unexpected end of stream while parsing non identifying string or index"))
        return value(table, integer());

    const bool addToTable = flag("Unexpected end of stream while parsing encoded character string");
    parseEncodedCharacterStringXML(buffer);
    return addToTable ? enter(table, buffer) : buffer;
}

StringParser::Content StringParser::parseNonIdentifyingStringOrIndex(DocumentVocabulary::ID table)
{
    if ((_reader->bitOffset() & ~2) != 0)
        throw FISEncodingException("Illegal startposition for a NonIdentifyingStringOrIndex value");
    Content content;
    if (flag("Unexpected end of stream whil parsing non identifying string or index"))
    {
        content.text = &value(table, integer());
        return content;
    }

    const bool addToTable = flag("Unexpected end of stream whil parsing encoded character string");
    content.value = parseEncodedCharacterString(_chunk);
    content.text = &_chunk;
    if (!addToTable)
        return content;
    if (content.value)
    {
        content.value->text(_text);
        enter(table, _text);
    }
    else
    {
        content.text = &enter(table, _chunk);
    }
    return content;
}

// Two bits that tell the form, then its index if it has one, then a non-empty octet string or an algorithm's own data.
// Returns the value of an algorithm, or null and the text.
AutoPtr<Encoding> StringParser::parseEncodedCharacterString(std::string& text)
{
    const int offset = _reader->bitOffset();
    if (offset != 2 && offset != 4)
        throw FISEncodingException("Illegal startposition for an encodedCharacterString");

    // Within an octet, so always there.
    unsigned char discriminant = 0;
    _reader->peek(discriminant, 2);
    _reader->skip(2);
    switch (discriminant)
    {
    case UTF8:
        Decoder::nonEmptyOctetString(*_reader, text);
        break;
    case UTF16:
        Decoder::nonEmptyOctetString(*_reader, _octets);
        StringDecoder::decodeUTF16(_octets, text);
        break;
    case RESTRICTED_ALPHABET:
    {
        const unsigned int index = IntegerCode::small(*_reader);
        Decoder::nonEmptyOctetString(*_reader, _octets);
        StringDecoder::decodeAlphabet(_octets, _vocabulary->restrictedAlphabets().alphabet(index), text);
        break;
    }
    case ENCODING_ALGORITHM:
        return _vocabulary->decodingAlgorithm().decoding(IntegerCode::small(*_reader))(*_reader);
    }
    return AutoPtr<Encoding>();
}

void StringParser::parseEncodedCharacterStringXML(std::string& text)
{
    const AutoPtr<Encoding> value = parseEncodedCharacterString(text);
    if (value)
        value->text(text);
}

// An index after the bit that announced it, at offset 1 or 3.
unsigned int StringParser::integer()
{
    return _reader->bitOffset() == 1 ? IntegerCode::onSecondBit(*_reader) : IntegerCode::onFourthBit(*_reader);
}

bool StringParser::flag(const char* endOfStreamMessage)
{
    bool bit = false;
    if (!_reader->read(bit))
        throw FISParseException(endOfStreamMessage);
    return bit;
}

const std::string& StringParser::value(DocumentVocabulary::ID table, unsigned int index) const
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
