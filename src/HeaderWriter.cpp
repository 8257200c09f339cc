// SPDX-License-Identifier: MIT
#include "HeaderWriter.h"
#include "ItemWriter.h"
#include "StringWriter.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/CDataEncoding.h"
#include "Vesk/FastInfoset/Encoder.h"
#include <algorithm>
#include <optional>

namespace Vesk::FastInfoset
{

namespace
{

// The string tables in the order of an initial vocabulary, which is not that of their numbers.
constexpr DocumentVocabulary::ID PLAIN_TABLES[] = {DocumentVocabulary::PREFIX, DocumentVocabulary::NAMESPACE_NAME,
                                                   DocumentVocabulary::LOCAL_NAME, DocumentVocabulary::OTHER_NCNAME,
                                                   DocumentVocabulary::OTHER_URI};
constexpr DocumentVocabulary::ID ENCODED_TABLES[] = {
    DocumentVocabulary::ATTRIBUTE_VALUE, DocumentVocabulary::CONTENT_CHARACTER_CHUNK, DocumentVocabulary::OTHER_STRING};

bool isEmpty(const DocumentVocabulary& vocabulary)
{
    for (const DocumentVocabulary::ID id : PLAIN_TABLES)
    {
        if (!vocabulary.vocabulary(id).empty())
            return false;
    }
    for (const DocumentVocabulary::ID id : ENCODED_TABLES)
    {
        if (!vocabulary.vocabulary(id).empty())
            return false;
    }
    return vocabulary.restrictedAlphabets().alphabets().empty() && vocabulary.elementNames().empty() &&
           vocabulary.attributeNames().empty();
}

// What the initial vocabulary holds; none if it is not needed.
std::optional<DocumentVocabulary> initialVocabulary(const HeaderWriter::Content& content)
{
    if (content.externalVocabulary)
        return content.vocabulary - *content.externalVocabulary;
    if (content.vocabulary.isBuiltIn())
        return std::nullopt;
    DocumentVocabulary added = content.vocabulary - DocumentVocabulary(DocumentVocabulary::VOC_HASH);
    if (isEmpty(added))
        return std::nullopt;
    return added;
}

unsigned int sequenceLength(std::size_t count)
{
    // What does not fit is beyond the longest code as well and refused there.
    return static_cast<unsigned int>(std::min<std::size_t>(count, 0xFFFFFFFF));
}

} // namespace

HeaderWriter::HeaderWriter(BitStreamWriter& stream, StringWriter& strings)
    : _stream(stream),
      _strings(strings)
{
}

// The pre-header, then seven bits that say which components follow, then those. Of the seven the first, for additional
// data, and the last three, for character encoding scheme, standalone and version, are always 0.
void HeaderWriter::writeHeader(const Content& content)
{
    Encoder::documentPreHeader(_stream, content.writeXMLDeclaration);
    const std::optional<DocumentVocabulary> added = initialVocabulary(content);
    _stream.write(false);
    _stream.write(added.has_value());
    _stream.write(!content.notations.empty());
    _stream.write(!content.unparsedEntities.empty());
    _stream.writeBits(3, false);

    if (added)
        writeInitialVocabulary(*added, content.externalURI);
    if (!content.notations.empty())
        writeNotations(content.notations);
    if (!content.unparsedEntities.empty())
        writeUnparsedEntities(content.unparsedEntities);
}

// Three padding bits and 13 that say which parts follow, then those in the same order.
void HeaderWriter::writeInitialVocabulary(const DocumentVocabulary& vocabulary, const std::string& externalURI)
{
    const bool hasAlphabets = !vocabulary.restrictedAlphabets().alphabets().empty();

    _stream.writeBits(3, false);
    _stream.write(!externalURI.empty());
    _stream.write(hasAlphabets);
    _stream.write(false); // encoding algorithms
    for (const DocumentVocabulary::ID id : PLAIN_TABLES)
        _stream.write(!vocabulary.vocabulary(id).empty());
    for (const DocumentVocabulary::ID id : ENCODED_TABLES)
        _stream.write(!vocabulary.vocabulary(id).empty());
    _stream.write(!vocabulary.elementNames().empty());
    _stream.write(!vocabulary.attributeNames().empty());

    if (!externalURI.empty())
        writeExternalVocabulary(externalURI);
    if (hasAlphabets)
        writeRestrictedAlphabet(vocabulary.restrictedAlphabets());
    for (const DocumentVocabulary::ID id : PLAIN_TABLES)
    {
        if (!vocabulary.vocabulary(id).empty())
            writeVocabulary(vocabulary.vocabulary(id));
    }
    for (const DocumentVocabulary::ID id : ENCODED_TABLES)
    {
        if (!vocabulary.vocabulary(id).empty())
            writeEncodedVocabulary(vocabulary.vocabulary(id));
    }
    if (!vocabulary.elementNames().empty())
        writeNameSurrogates(vocabulary.elementNames(), true);
    if (!vocabulary.attributeNames().empty())
        writeNameSurrogates(vocabulary.attributeNames(), false);
}

void HeaderWriter::writeExternalVocabulary(const std::string& uri)
{
    writePaddedString(uri);
}

void HeaderWriter::writeRestrictedAlphabet(const DocumentRestrictedAlphabet& alphabets)
{
    Encoder::lengthOfSequence(_stream, sequenceLength(alphabets.alphabets().size()));
    for (const RestrictedAlphabet& alphabet : alphabets.alphabets())
        writePaddedString(alphabet.characters());
}

void HeaderWriter::writeVocabulary(const Vocabulary<std::string>& table)
{
    const unsigned int size = sequenceLength(table.size());
    Encoder::lengthOfSequence(_stream, size);
    for (unsigned int i = 0; i < size; ++i)
        writePaddedString(table.value(i));
}

// The zero bit count fails the check of the bit stream. Documents with such entries in their initial vocabulary are
// refused that way, and callers rely on the refusal rather than on output that no reader has ever been tried on.
void HeaderWriter::writeEncodedVocabulary(const Vocabulary<std::string>& table)
{
    const unsigned int size = sequenceLength(table.size());
    Encoder::lengthOfSequence(_stream, size);
    for (unsigned int i = 0; i < size; ++i)
    {
        _stream.write(2, 0);
        _strings.writeEncodedCharacterString(table.value(i), CDataEncoding::TYPE);
    }
}

// Refused like the entries of encoded tables.
void HeaderWriter::writeNameSurrogates(const Vocabulary<QualifiedNameEntry>& table, bool isElement)
{
    const unsigned int size = sequenceLength(table.size());
    Encoder::lengthOfSequence(_stream, size);
    for (unsigned int i = 0; i < size; ++i)
    {
        _stream.write(6, 0);
        _strings.writeQualifiedName(table.value(i), isElement);
    }
}

void HeaderWriter::writePaddedString(const std::string& text)
{
    _stream.write(false);
    Encoder::nonEmptyOctetString(_stream, text);
}

// 110000 and the notation, for each, then the terminator.
void HeaderWriter::writeNotations(const std::vector<Notation>& notations)
{
    ItemWriter items(_stream, _strings);
    for (const Notation& notation : notations)
    {
        _stream.write(0b110000, 6);
        items.writeNotation(notation.name(), &notation.publicId(), &notation.systemId());
    }
    _stream.write(0b11110000, 8);
}

// 1101000 and the entity, for each, then the terminator.
void HeaderWriter::writeUnparsedEntities(const std::vector<UnparsedEntity>& entities)
{
    ItemWriter items(_stream, _strings);
    for (const UnparsedEntity& entity : entities)
    {
        _stream.write(0b1101000, 7);
        items.writeUnparsedEntity(entity.name(), &entity.publicId(), entity.systemId(), entity.notationName());
    }
    _stream.write(0b11110000, 8);
}

} // namespace Vesk::FastInfoset
