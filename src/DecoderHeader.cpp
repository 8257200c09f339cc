// SPDX-License-Identifier: MIT
//
// The header and the initial vocabulary; the primitive codes are in Decoder.cpp. Components follow each other in the
// order of their flags. Every list starts with the number of its items, and every item with padding bits:
//
//   additional data             0, identifier, 0, data
//   string, alphabet, URI       0, octet string
//   encoded character string    00, string
//   name surrogate              000000, surrogate
#include "ExternalVocabulary.h"
#include "PrimitiveCode.h"
#include "Vesk/Bugcheck.h"
#include "Vesk/FastInfoset/Decoder.h"
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/Encoding.h"
#include "Vesk/FastInfoset/FISDocumentHandler.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include "Vesk/FastInfoset/StringDecoder.h"
#include <utility>

namespace Vesk::FastInfoset
{

namespace
{

unsigned int readBits(BitStreamReader& reader, int numOfBits)
{
    unsigned int bits = 0;
    if (!reader.read(bits, numOfBits))
        throw FISParseException("Unexpected end of stream while parsing document header");
    return bits;
}

// An octet string behind one padding bit.
void readPaddedString(BitStreamReader& reader, std::string& octets)
{
    readBits(reader, 1);
    Decoder::nonEmptyOctetString(reader, octets);
}

// A hash or map table finds what it holds already; the vector tables take every entry.
template <typename T>
void enterNew(Vocabulary<T>& table, const T& entry, int line)
{
    bool existed = false;
    table.index(entry, existed);
    if (existed)
        Bugcheck::assertion("!existed", "src/Decoder", line);
}

// Calls readItem for each item of a list. A count costs nothing before its items are there.
template <typename ReadItem>
void readSequence(BitStreamReader& reader, ReadItem readItem)
{
    unsigned int count = 0;
    Decoder::lengthOfSequence(reader, count);
    for (; count > 0; --count)
        readItem();
}

} // namespace

Decoder::OpenHeaderParts Decoder::documentHeader(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                                 FISDocumentHandler* handler, int externalDepth)
{
    const unsigned int flags = readBits(reader, 7);
    if (flags & 0x40)
        skipAdditionalData(reader);
    if (flags & 0x20)
        parseInitialVocabulary(reader, vocabulary, handler, externalDepth);
    else
        vocabulary.reset();

    OpenHeaderParts parts;
    parts.notations = (flags & 0x10) != 0;
    parts.unparsedEntities = (flags & 0x08) != 0;
    parts.characterEncodingScheme = (flags & 0x04) != 0;
    parts.standalone = (flags & 0x02) != 0;
    parts.version = (flags & 0x01) != 0;
    return parts;
}

void Decoder::skipAdditionalData(BitStreamReader& reader)
{
    std::string octets;
    readSequence(reader,
                 [&]
                 {
                     readPaddedString(reader, octets);
                     readPaddedString(reader, octets);
                 });
}

void Decoder::parseInitialVocabulary(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                     FISDocumentHandler* handler, int externalDepth)
{
    constexpr unsigned int EXTERNAL_VOCABULARY = 0x1000;

    const unsigned int flags = readBits(reader, 16) & 0x1FFF; // behind three padding bits
    if (flags & EXTERNAL_VOCABULARY)
        handleExternalVocabulary(reader, vocabulary, handler, externalDepth);
    else if (flags != 0)
        vocabulary.reset();
    else
        throw FISException(
            "Initial Vocabulary detected with zero information in it - at least one dictionary required");

    const auto strings = [&](unsigned int flag, DocumentVocabulary::ID id)
    {
        if (flags & flag)
            handleVocabulary(reader, vocabulary.vocabulary(id));
    };
    const auto encodedStrings = [&](unsigned int flag, DocumentVocabulary::ID id)
    {
        if (flags & flag)
            handleEncodedCharacterStringVoc(reader, vocabulary.vocabulary(id), vocabulary);
    };
    if (flags & 0x0800)
        handleRestrictedAlphabet(reader, vocabulary);
    if (flags & 0x0400)
        skipEncodingAlgos(reader, vocabulary);
    strings(0x0200, DocumentVocabulary::PREFIX);
    strings(0x0100, DocumentVocabulary::NAMESPACE_NAME);
    strings(0x0080, DocumentVocabulary::LOCAL_NAME);
    strings(0x0040, DocumentVocabulary::OTHER_NCNAME);
    strings(0x0020, DocumentVocabulary::OTHER_URI);
    encodedStrings(0x0010, DocumentVocabulary::ATTRIBUTE_VALUE);
    encodedStrings(0x0008, DocumentVocabulary::CONTENT_CHARACTER_CHUNK);
    encodedStrings(0x0004, DocumentVocabulary::OTHER_STRING);
    if (flags & 0x0002)
        handleNameSurrogatesVoc(reader, vocabulary.elementNames());
    if (flags & 0x0001)
        handleNameSurrogatesVoc(reader, vocabulary.attributeNames());
}

void Decoder::handleExternalVocabulary(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                       FISDocumentHandler* handler, int externalDepth)
{
    std::string uri;
    readPaddedString(reader, uri);
    // Prepared for this URI: kept with all that earlier documents of the same parser have added, and the handler hears
    // nothing of it.
    if (uri == vocabulary.externalVocabularyURI())
        return;
    vocabulary = ExternalVocabulary::load(uri, handler != nullptr, externalDepth);
    if (handler)
        handler->setExternalVocabulary(uri, vocabulary);
}

void Decoder::handleRestrictedAlphabet(BitStreamReader& reader, DocumentVocabulary& vocabulary)
{
    std::string characters;
    readSequence(reader,
                 [&]
                 {
                     readPaddedString(reader, characters);
                     vocabulary.restrictedAlphabets().add(characters);
                 });
}

void Decoder::skipEncodingAlgos(BitStreamReader& reader, DocumentVocabulary&)
{
    std::string uri;
    readSequence(reader, [&] { readPaddedString(reader, uri); });
}

void Decoder::handleVocabulary(BitStreamReader& reader, Vocabulary<std::string>& table)
{
    std::string entry;
    readSequence(reader,
                 [&]
                 {
                     readPaddedString(reader, entry);
                     enterNew(table, entry, 666);
                 });
}

void Decoder::handleEncodedCharacterStringVoc(BitStreamReader& reader, Vocabulary<std::string>& table,
                                              DocumentVocabulary& vocabulary)
{
    std::string entry;
    readSequence(reader,
                 [&]
                 {
                     readBits(reader, 2);
                     encodedCharacterString(reader, entry, vocabulary);
                     enterNew(table, entry, 686);
                 });
}

void Decoder::handleNameSurrogatesVoc(BitStreamReader& reader, Vocabulary<QualifiedNameEntry>& table)
{
    readSequence(reader,
                 [&]
                 {
                     readBits(reader, 6);
                     enterNew(table, nameSurrogate(reader), 746);
                 });
}

void Decoder::encodedCharacterString(BitStreamReader& reader, std::string& text, DocumentVocabulary& vocabulary)
{
    std::string octets;
    // Documents have an integer without meaning before the index, here and nowhere else.
    const auto index = [&reader]
    {
        PrimitiveCode::smallInteger(reader);
        return PrimitiveCode::smallInteger(reader);
    };
    switch (readBits(reader, 2))
    {
    case 0:
        nonEmptyOctetString(reader, text);
        break;
    case 1:
        nonEmptyOctetString(reader, octets);
        StringDecoder::decodeUTF16(octets, text);
        break;
    case 2:
    {
        const unsigned int alphabet = index();
        nonEmptyOctetString(reader, octets);
        StringDecoder::decodeAlphabet(octets, std::as_const(vocabulary).restrictedAlphabets().alphabet(alphabet), text);
        break;
    }
    default:
        vocabulary.decodingAlgorithm().decoding(index())(reader)->text(text);
        break;
    }
}

} // namespace Vesk::FastInfoset
