// SPDX-License-Identifier: MIT
#include "StringWriter.h"
#include "OctetCode.h"
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

[[noreturn]] void throwIllegalOffset(const char* message)
{
    throw FISEncodingException(message);
}

inline void checkOffset(bool legal, const char* message)
{
    if (!legal)
        throwIllegalOffset(message);
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
    _prefixes.begin(_vocabulary.vocabulary(DocumentVocabulary::PREFIX).entries());
    _namespaceNames.begin(_vocabulary.vocabulary(DocumentVocabulary::NAMESPACE_NAME).entries());
}

void StringWriter::writeIdentifyingString(const std::string& text)
{
    checkOffset(_stream.bitOffset() == 0, "Illegal startposition for an writeIdentifyingString");
    OctetCode::octetString(_stream, 0, 1, text.data(), text.size());
}

void StringWriter::writeIdentifyingStringIndex(unsigned int index)
{
    checkOffset(_stream.bitOffset() == 0, "Illegal startposition for an writeIdentifyingStringIndex");
    OctetCode::integer(_stream, 0x80, 1, index);
}

unsigned int StringWriter::writeIdentifyingStringOrIndex(const std::string& text, DocumentVocabulary::ID table)
{
    const Entered entered = enter(text, table);
    writeEntered(entered, text);
    return entered.index;
}

StringWriter::Entered StringWriter::enter(const std::string& text, DocumentVocabulary::ID table)
{
    bool found = false;
    NamespaceCache* const recent = namespaceCache(table);
    if (!recent)
    {
        const unsigned int index = _vocabulary.vocabulary(table).index(text, found);
        return {index, found};
    }
    const RecentText key(text);
    unsigned int index = recent->find(text, key);
    if (index != 0)
        return {index, true};
    index = _vocabulary.vocabulary(table).index(text, found);
    recent->remember(key, index);
    return {index, found};
}

// The empty string stands for an absent part of a name and is never entered: it is the reserved entry 0.
StringWriter::Entered StringWriter::enterOptional(const std::string& text, DocumentVocabulary::ID table)
{
    if (!text.empty())
        return enter(text, table);
    const VerbTable<std::string>& entries = _vocabulary.vocabulary(table).entries();
    return {0, !entries.empty() && entries[0].empty()};
}

void StringWriter::writeEntered(const Entered& entered, const std::string& text)
{
    if (entered.wasKnown)
        writeIdentifyingStringIndex(entered.index);
    else
        writeIdentifyingString(text);
}

// The parts of names of which nearly every document has a few only, and long ones.
inline StringWriter::NamespaceCache* StringWriter::namespaceCache(DocumentVocabulary::ID table)
{
    if (table == DocumentVocabulary::PREFIX)
        return &_prefixes;
    return table == DocumentVocabulary::NAMESPACE_NAME ? &_namespaceNames : nullptr;
}

unsigned int StringWriter::writeNonIdentifyingStringOrIndex(std::string_view text, DocumentVocabulary::ID table)
{
    checkOffset(_stream.bitOffset() == 0, "Illegal startposition for a NonIdentifyingStringOrIndex value");
    return writeValue<0>(0, text, table, valueCache(table));
}

// Behind the lead:
//
//   1iiiiiii    an index, of one bit less for each that the lead has
//   0a00nnnn    a literal of that length, and whether it enters the table
template <int LEAD_BITS>
inline unsigned int StringWriter::writeValue(unsigned int lead, std::string_view text, DocumentVocabulary::ID table,
                                             ValueCache* recent)
{
    const Lookup lookup = lookUp(text, table, recent);
    if (lookup.found)
    {
        OctetCode::integer(_stream, lead | 0x80u >> LEAD_BITS, LEAD_BITS + 1, lookup.index);
        return lookup.index;
    }
    if (lookup.added)
        lead |= 0x40u >> LEAD_BITS;
    if (_inCDATA)
    {
        OctetCode::writeLead(_stream, lead, LEAD_BITS + 2);
        writeEncodedCharacterString(text, NullEncoding::TYPE);
    }
    else
    {
        OctetCode::octetString(_stream, lead, LEAD_BITS + 4, text.data(), text.size());
    }
    return lookup.index;
}

unsigned int StringWriter::writeNonIdentifyingStringOrIndex(const AutoPtr<Encoding>& value,
                                                            DocumentVocabulary::ID table)
{
    const unsigned int algorithm = static_cast<unsigned int>(value->type());
    checkOffset((_stream.bitOffset() & ~2) == 0, "Illegal startposition for a NonIdentifyingStringOrIndex value");
    const Lookup lookup =
        isPlain(algorithm) ? lookUp(value->content(), table, valueCache(table)) : Lookup{false, false, 0};
    const unsigned int index = writeLookup(lookup);
    if (!lookup.found)
        writeEncodedCharacterString(value);
    return index;
}

// Looks up, and enters in the table, what is short enough.
inline StringWriter::Lookup StringWriter::lookUp(std::string_view text, DocumentVocabulary::ID table,
                                                 ValueCache* recent)
{
    // The empty string is found in every table, as the reserved entry 0.
    if (!text.empty() && (_maxIndexedLength < 0 || text.size() > static_cast<std::size_t>(_maxIndexedLength)))
        return {false, false, 0};

    if (!recent)
        return lookUpInTable(text, table);
    const RecentText key(text);
    const unsigned int index = recent->find(text, key);
    if (index != 0)
        return {true, false, index};
    const Lookup lookup = lookUpInTable(text, table);
    recent->remember(key, lookup.index);
    return lookup;
}

StringWriter::Lookup StringWriter::lookUpInTable(std::string_view text, DocumentVocabulary::ID table)
{
    Lookup lookup{false, false, 0};
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
    return lookup;
}

// The tables that are looked up for nearly every event have one.
inline StringWriter::ValueCache* StringWriter::valueCache(DocumentVocabulary::ID table)
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
    checkOffset(_stream.bitOffset() == 0, "Illegal startposition for a CharacterChunk value");
    writeValue<2>(0x80, text, DocumentVocabulary::CONTENT_CHARACTER_CHUNK, &_chunks);
}

// Behind the lead of two bits or one:
//
//   ??iiiiii    an index             ?iiiiiii
//   ??1111pn    a literal follows    ?11110pn
template <bool IS_ELEMENT>
unsigned int StringWriter::writeName(const std::string& prefix, const std::string& uri, const std::string& localName,
                                     unsigned int lead)
{
    checkOffset(_stream.bitOffset() == 0, "Illegal startposition for a writeQualifiedNameOrIndex value");
    if (localName.empty())
        Bugcheck::assertion("!localName.empty()", "src/FastInfosetWriter", 677);

    NameIndexCache& cache = IS_ELEMENT ? _elementNames : _attributeNames;
    const RecentText key(localName);
    unsigned int index = cache.find(prefix, uri, localName, key);
    if (index != 0)
    {
        OctetCode::integer(_stream, lead, IS_ELEMENT ? 2 : 1, index);
        return index;
    }
    index = enterAndWriteName(prefix, uri, localName, IS_ELEMENT, lead);
    cache.remember(prefix, key, index);
    return index;
}

template unsigned int StringWriter::writeName<true>(const std::string& prefix, const std::string& uri,
                                                    const std::string& localName, unsigned int lead);
template unsigned int StringWriter::writeName<false>(const std::string& prefix, const std::string& uri,
                                                     const std::string& localName, unsigned int lead);

// A name is in the table only if all its parts are. What is new is entered before anything is written, so that each
// part is looked up once.
unsigned int StringWriter::enterAndWriteName(const std::string& prefix, const std::string& uri,
                                             const std::string& localName, bool isElement, unsigned int lead)
{
    const Entered prefixEntry = enterOptional(prefix, DocumentVocabulary::PREFIX);
    const Entered uriEntry = enterOptional(uri, DocumentVocabulary::NAMESPACE_NAME);
    const Entered localNameEntry = enter(localName, DocumentVocabulary::LOCAL_NAME);
    bool found = false;
    const QualifiedNameEntry name(prefixEntry.index, uriEntry.index, localNameEntry.index);
    const unsigned int index = names(isElement).index(name, found);
    if (found && prefixEntry.wasKnown && uriEntry.wasKnown && localNameEntry.wasKnown)
    {
        OctetCode::integer(_stream, lead, isElement ? 2 : 1, index);
        return index;
    }
    _stream.writeOctet(lead | (isElement ? 0x3Cu : 0x78u) | (prefix.empty() ? 0 : 2) | (uri.empty() ? 0 : 1));
    if (!prefix.empty())
        writeEntered(prefixEntry, prefix);
    if (!uri.empty())
        writeEntered(uriEntry, uri);
    writeEntered(localNameEntry, localName);
    return index;
}

// Prefix present, namespace name present, then those that are, and the local name.
unsigned int StringWriter::writeQualifiedName(const QualifiedNameEntry& name, bool isElement)
{
    const bool hasPrefix = name.prefix() != 0;
    const bool hasURI = name.namespaceName() != 0;
    _stream.write(hasPrefix);
    _stream.write(hasURI);
    if (hasPrefix)
        writeIdentifyingStringIndex(name.prefix());
    if (hasURI)
        writeIdentifyingStringIndex(name.namespaceName());
    writeIdentifyingStringIndex(name.localName());
    bool found = false;
    return names(isElement).index(name, found);
}

Vocabulary<QualifiedNameEntry>& StringWriter::names(bool isElement) const
{
    return isElement ? _vocabulary.elementNames() : _vocabulary.attributeNames();
}

} // namespace Vesk::FastInfoset
