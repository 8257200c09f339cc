// SPDX-License-Identifier: MIT
#include "StringWriter.h"
#include "Vesk/Bugcheck.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/CDataEncoding.h"
#include "Vesk/FastInfoset/Encoder.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/NullEncoding.h"

namespace Vesk::FastInfoset
{

namespace
{

// The longest integer code reaches index 2^20; from this size on a table is looked up, but no longer added to.
constexpr unsigned int FULL_TABLE = 1u << 20;

constexpr unsigned int CDATA_ALGORITHM = CDataEncoding::TYPE;

bool isPlain(unsigned int algorithm)
{
    return algorithm == NullEncoding::TYPE || algorithm == CDATA_ALGORITHM;
}

void checkOffset(bool legal, const char* message)
{
    if (!legal)
        throw FISEncodingException(message);
}

} // namespace

StringWriter::StringWriter(BitStreamWriter& stream, DocumentVocabulary& vocabulary)
    : _stream(stream),
      _vocabulary(vocabulary)
{
    begin();
}

void StringWriter::begin()
{
    _elementNames.begin(_vocabulary.elementNames().entries(), _vocabulary);
    _attributeNames.begin(_vocabulary.attributeNames().entries(), _vocabulary);
    _values.begin(_vocabulary.vocabulary(DocumentVocabulary::ATTRIBUTE_VALUE).entries());
    _chunks.begin(_vocabulary.vocabulary(DocumentVocabulary::CONTENT_CHARACTER_CHUNK).entries());
}

void StringWriter::writeIdentifyingString(const std::string& text)
{
    checkOffset(_stream.bitOffset() == 0, "Illegal startposition for an writeIdentifyingString");
    _stream.write(false);
    Encoder::nonEmptyOctetString(_stream, text);
}

void StringWriter::writeIdentifyingStringIndex(unsigned int index)
{
    checkOffset(_stream.bitOffset() == 0, "Illegal startposition for an writeIdentifyingStringIndex");
    _stream.write(true);
    Encoder::integer(_stream, index);
}

unsigned int StringWriter::writeIdentifyingStringOrIndex(const std::string& text, DocumentVocabulary::ID table)
{
    bool found = false;
    const unsigned int index = _vocabulary.vocabulary(table).index(text, found);
    if (found)
        writeIdentifyingStringIndex(index);
    else
        writeIdentifyingString(text);
    return index;
}

unsigned int StringWriter::writeNonIdentifyingStringOrIndex(std::string_view text, DocumentVocabulary::ID table)
{
    checkOffset((_stream.bitOffset() & ~2) == 0, "Illegal startposition for a NonIdentifyingStringOrIndex value");
    const Lookup lookup = lookUp(text, table);
    const unsigned int index = writeLookup(lookup);
    if (!lookup.found)
        writeEncodedCharacterString(text, NullEncoding::TYPE);
    return index;
}

unsigned int StringWriter::writeNonIdentifyingStringOrIndex(const AutoPtr<Encoding>& value,
                                                            DocumentVocabulary::ID table)
{
    const unsigned int algorithm = static_cast<unsigned int>(value->type());
    checkOffset((_stream.bitOffset() & ~2) == 0, "Illegal startposition for a NonIdentifyingStringOrIndex value");
    const Lookup lookup = isPlain(algorithm) ? lookUp(value->content(), table) : Lookup{false, false, 0};
    const unsigned int index = writeLookup(lookup);
    if (!lookup.found)
        writeEncodedCharacterString(value);
    return index;
}

// Looks up, and enters in the table, what is short enough.
StringWriter::Lookup StringWriter::lookUp(std::string_view text, DocumentVocabulary::ID table)
{
    Lookup lookup{false, false, 0};
    // The empty string is found in every table, as the reserved entry 0.
    if (!text.empty() && (_maxIndexedLength < 0 || text.size() > static_cast<std::size_t>(_maxIndexedLength)))
        return lookup;

    StringIndexCache* const recent = cache(table);
    if (recent)
    {
        lookup.index = recent->find(text);
        lookup.found = lookup.index != 0;
        if (lookup.found)
            return lookup;
    }

    _key.assign(text.data(), text.size());
    Vocabulary<std::string>& strings = _vocabulary.vocabulary(table);
    if (strings.size() < FULL_TABLE)
    {
        lookup.index = strings.index(_key, lookup.found);
        lookup.added = !lookup.found;
    }
    else
    {
        const unsigned int index = strings.exists(_key, lookup.found);
        lookup.index = lookup.found ? index : 0;
    }
    if (recent)
        recent->remember(text, lookup.index);
    return lookup;
}

// The tables that are looked up for nearly every event have one.
StringIndexCache* StringWriter::cache(DocumentVocabulary::ID table)
{
    if (table == DocumentVocabulary::ATTRIBUTE_VALUE)
        return &_values;
    return table == DocumentVocabulary::CONTENT_CHARACTER_CHUNK ? &_chunks : nullptr;
}

// 1 and the index, or 0 and whether the literal that follows enters the table.
unsigned int StringWriter::writeLookup(const Lookup& lookup)
{
    _stream.write(lookup.found);
    if (lookup.found)
        Encoder::integer(_stream, lookup.index);
    else
        _stream.write(lookup.added);
    return lookup.index;
}

// 00 and the octets, which are UTF-8 already; or 11, the algorithm and its data. UTF-16 and restricted alphabets are
// never written.
void StringWriter::writeEncodedCharacterString(std::string_view text, unsigned int algorithm)
{
    checkOffset(_stream.bitOffset() == 2 || _stream.bitOffset() == 4,
                "Illegal startposition for a writeEncodedCharacterString");
    if (_inCDATA)
    {
        _stream.write(0b11, 2);
        Encoder::integer(_stream, CDATA_ALGORITHM);
        Encoder::nonEmptyOctetString(_stream, text.data(), text.size());
    }
    else if (!isPlain(algorithm))
    {
        _stream.write(0b11, 2);
        Encoder::integer(_stream, algorithm);
        _vocabulary.encodingAlgorithm().encoding(algorithm)(_stream, std::string(text));
    }
    else
    {
        _stream.write(0b00, 2);
        Encoder::nonEmptyOctetString(_stream, text.data(), text.size());
    }
}

void StringWriter::writeEncodedCharacterString(const AutoPtr<Encoding>& value)
{
    const unsigned int algorithm = static_cast<unsigned int>(value->type());
    checkOffset(_stream.bitOffset() == 2 || _stream.bitOffset() == 4,
                "Illegal startposition for a writeEncodedCharacterString");
    if (algorithm == NullEncoding::TYPE)
    {
        _stream.write(0b00, 2);
        Encoder::nonEmptyOctetString(_stream, value->content());
    }
    else
    {
        _stream.write(0b11, 2);
        Encoder::integer(_stream, algorithm);
        value->write(_stream);
    }
}

void StringWriter::writeCharacterChunk(std::string_view text)
{
    checkOffset(_stream.bitOffset() == 2, "Illegal startposition for a CharacterChunk value");
    writeNonIdentifyingStringOrIndex(text, DocumentVocabulary::CONTENT_CHARACTER_CHUNK);
}

// An index, or 1111 (and a 0 bit behind an attribute's first bit) and the literal.
unsigned int StringWriter::writeQualifiedNameOrIndex(const std::string& prefix, const std::string& uri,
                                                     const std::string& localName, bool isElement)
{
    const int offset = _stream.bitOffset();
    checkOffset(offset == 1 || offset == 2, "Illegal startposition for a writeQualifiedNameOrIndex value");
    if (localName.empty())
        Bugcheck::assertion("!localName.empty()", "src/FastInfosetWriter", 677);

    NameIndexCache& cache = isElement ? _elementNames : _attributeNames;
    unsigned int index = cache.find(prefix, uri, localName);
    if (index != 0)
    {
        Encoder::integer(_stream, index);
        return index;
    }
    if (findName(prefix, uri, localName, isElement, index))
    {
        Encoder::integer(_stream, index);
    }
    else
    {
        _stream.write(0b1111, 4);
        if (offset == 1)
            _stream.write(false);
        index = writeQualifiedName(prefix, uri, localName, isElement);
    }
    cache.remember(prefix, localName, index);
    return index;
}

// Looks up without adding: a name is in the table only if all its parts are. Absent parts are found as entry 0.
bool StringWriter::findName(const std::string& prefix, const std::string& uri, const std::string& localName,
                            bool isElement, unsigned int& index) const
{
    bool found = false;
    const auto exists = [&](DocumentVocabulary::ID table, const std::string& part)
    {
        return _vocabulary.vocabulary(table).exists(part, found);
    };

    const unsigned int prefixIndex = exists(DocumentVocabulary::PREFIX, prefix);
    if (!found)
        return false;
    const unsigned int uriIndex = exists(DocumentVocabulary::NAMESPACE_NAME, uri);
    if (!found)
        return false;
    const unsigned int localNameIndex = exists(DocumentVocabulary::LOCAL_NAME, localName);
    if (!found)
        return false;
    index = names(isElement).exists(QualifiedNameEntry(prefixIndex, uriIndex, localNameIndex), found);
    return found;
}

// Prefix present, namespace name present, then those that are, and the local name.
unsigned int StringWriter::writeQualifiedName(const std::string& prefix, const std::string& uri,
                                              const std::string& localName, bool isElement)
{
    _stream.write(!prefix.empty());
    _stream.write(!uri.empty());
    unsigned int prefixIndex = 0;
    unsigned int uriIndex = 0;
    if (!prefix.empty())
        prefixIndex = writeIdentifyingStringOrIndex(prefix, DocumentVocabulary::PREFIX);
    if (!uri.empty())
        uriIndex = writeIdentifyingStringOrIndex(uri, DocumentVocabulary::NAMESPACE_NAME);
    const unsigned int localNameIndex = writeIdentifyingStringOrIndex(localName, DocumentVocabulary::LOCAL_NAME);
    return insertQualifiedName(QualifiedNameEntry(prefixIndex, uriIndex, localNameIndex), isElement);
}

unsigned int StringWriter::writeQualifiedName(const QualifiedNameEntry& name, bool isElement)
{
    return writeQualifiedName(_vocabulary.vocabulary(DocumentVocabulary::PREFIX).value(name.prefix()),
                              _vocabulary.vocabulary(DocumentVocabulary::NAMESPACE_NAME).value(name.namespaceName()),
                              _vocabulary.vocabulary(DocumentVocabulary::LOCAL_NAME).value(name.localName()),
                              isElement);
}

unsigned int StringWriter::insertQualifiedName(const QualifiedNameEntry& name, bool isElement)
{
    bool found = false;
    return names(isElement).index(name, found);
}

Vocabulary<QualifiedNameEntry>& StringWriter::names(bool isElement) const
{
    return isElement ? _vocabulary.elementNames() : _vocabulary.attributeNames();
}

} // namespace Vesk::FastInfoset
