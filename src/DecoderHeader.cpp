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
#include "Observation.h"
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

using Form = StructureObserver::Form;
using Structure = StructureObserver::Structure;
using Table = StructureObserver::Table;

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
unsigned int enterNew(Vocabulary<T>& table, const T& entry, int line)
{
    bool existed = false;
    const unsigned int index = table.index(entry, existed);
    if (existed)
        Bugcheck::assertion("!existed", "src/Decoder", line);
    return index;
}

// Calls readItem for each item of a list. A count costs nothing before its items are there.
template <typename ReadItem>
void readSequence(BitStreamReader& reader, Observed* observed, ReadItem readItem)
{
    unsigned int count = 0;
    Decoder::lengthOfSequence(reader, count);
    if (observed)
        observed->count(count);
    for (; count > 0; --count)
        readItem();
}

// A string that gets no index.
void tellString(Observed* observed, const std::string& text)
{
    if (observed)
        observed->string(text);
}

void tellEntry(Observed* observed, unsigned int index, const std::string& text)
{
    if (observed)
    {
        observed->added(index);
        observed->string(text);
    }
}

} // namespace

Decoder::OpenHeaderParts Decoder::documentHeader(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                                 FISDocumentHandler* handler, int externalDepth, Observed* observed)
{
    const unsigned int flags = readBits(reader, 7);
    if (observed)
        observed->flags(Observed::Part::FLAGS, flags);
    if (flags & 0x40)
        skipAdditionalData(reader, observed);
    if (flags & 0x20)
        parseInitialVocabulary(reader, vocabulary, handler, externalDepth, observed);
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

void Decoder::skipAdditionalData(BitStreamReader& reader, Observed* observed)
{
    if (observed)
        observed->start(Structure::ADDITIONAL_DATA);
    std::string octets;
    readSequence(reader, observed,
                 [&]
                 {
                     readPaddedString(reader, octets);
                     tellString(observed, octets);
                     readPaddedString(reader, octets);
                     tellString(observed, octets);
                 });
    if (observed)
        observed->end(Structure::ADDITIONAL_DATA);
}

void Decoder::parseInitialVocabulary(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                     FISDocumentHandler* handler, int externalDepth, Observed* observed)
{
    constexpr unsigned int EXTERNAL_VOCABULARY = 0x1000;

    const unsigned int flags = readBits(reader, 16) & 0x1FFF; // behind three padding bits
    if (observed)
    {
        observed->start(Structure::INITIAL_VOCABULARY);
        observed->flags(Observed::Part::FLAGS, flags);
    }
    if (flags & EXTERNAL_VOCABULARY)
        handleExternalVocabulary(reader, vocabulary, handler, externalDepth, observed);
    else if (flags != 0)
        vocabulary.reset();
    else
        throw FISException(
            "Initial Vocabulary detected with zero information in it - at least one dictionary required");

    const auto table = [&](unsigned int flag, Table id, auto readEntries)
    {
        if (!(flags & flag))
            return;
        if (observed)
            observed->startTable(id);
        readEntries();
        if (observed)
            observed->endTable();
    };
    const auto strings = [&](unsigned int flag, DocumentVocabulary::ID id)
    {
        table(flag, static_cast<Table>(id), [&] { handleVocabulary(reader, vocabulary.vocabulary(id), observed); });
    };
    const auto encodedStrings = [&](unsigned int flag, DocumentVocabulary::ID id)
    {
        table(flag, static_cast<Table>(id),
              [&] { handleEncodedCharacterStringVoc(reader, vocabulary.vocabulary(id), vocabulary, observed); });
    };
    table(0x0800, Table::RESTRICTED_ALPHABET, [&] { handleRestrictedAlphabet(reader, vocabulary, observed); });
    table(0x0400, Table::ENCODING_ALGORITHM, [&] { skipEncodingAlgos(reader, vocabulary, observed); });
    strings(0x0200, DocumentVocabulary::PREFIX);
    strings(0x0100, DocumentVocabulary::NAMESPACE_NAME);
    strings(0x0080, DocumentVocabulary::LOCAL_NAME);
    strings(0x0040, DocumentVocabulary::OTHER_NCNAME);
    strings(0x0020, DocumentVocabulary::OTHER_URI);
    encodedStrings(0x0010, DocumentVocabulary::ATTRIBUTE_VALUE);
    encodedStrings(0x0008, DocumentVocabulary::CONTENT_CHARACTER_CHUNK);
    encodedStrings(0x0004, DocumentVocabulary::OTHER_STRING);
    table(0x0002, Table::ELEMENT_NAME, [&] { handleNameSurrogatesVoc(reader, vocabulary.elementNames(), observed); });
    table(0x0001, Table::ATTRIBUTE_NAME,
          [&] { handleNameSurrogatesVoc(reader, vocabulary.attributeNames(), observed); });
    if (observed)
        observed->end(Structure::INITIAL_VOCABULARY);
}

void Decoder::handleExternalVocabulary(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                       FISDocumentHandler* handler, int externalDepth, Observed* observed)
{
    std::string uri;
    readPaddedString(reader, uri);
    tellString(observed, uri);
    // Prepared for this URI: kept with all that earlier documents of the same parser have added, and the handler hears
    // nothing of it.
    if (uri == vocabulary.externalVocabularyURI())
        return;
    vocabulary = ExternalVocabulary::load(uri, handler != nullptr, externalDepth);
    if (handler)
        handler->setExternalVocabulary(uri, vocabulary);
}

void Decoder::handleRestrictedAlphabet(BitStreamReader& reader, DocumentVocabulary& vocabulary, Observed* observed)
{
    std::string characters;
    readSequence(reader, observed,
                 [&]
                 {
                     readPaddedString(reader, characters);
                     const unsigned int position = vocabulary.restrictedAlphabets().add(characters);
                     tellEntry(observed, position + 1, characters);
                 });
}

void Decoder::skipEncodingAlgos(BitStreamReader& reader, DocumentVocabulary&, Observed* observed)
{
    std::string uri;
    readSequence(reader, observed,
                 [&]
                 {
                     readPaddedString(reader, uri);
                     tellString(observed, uri);
                 });
}

void Decoder::handleVocabulary(BitStreamReader& reader, Vocabulary<std::string>& table, Observed* observed)
{
    std::string entry;
    readSequence(reader, observed,
                 [&]
                 {
                     readPaddedString(reader, entry);
                     const unsigned int index = enterNew(table, entry, 666);
                     tellEntry(observed, index, entry);
                 });
}

void Decoder::handleEncodedCharacterStringVoc(BitStreamReader& reader, Vocabulary<std::string>& table,
                                              DocumentVocabulary& vocabulary, Observed* observed)
{
    std::string entry;
    readSequence(reader, observed,
                 [&]
                 {
                     readBits(reader, 2);
                     encodedCharacterString(reader, entry, vocabulary, observed);
                     const unsigned int index = enterNew(table, entry, 686);
                     tellEntry(observed, index, entry);
                 });
}

void Decoder::handleNameSurrogatesVoc(BitStreamReader& reader, Vocabulary<QualifiedNameEntry>& table,
                                      Observed* observed)
{
    readSequence(reader, observed,
                 [&]
                 {
                     readBits(reader, 6);
                     const QualifiedNameEntry entry = nameSurrogate(reader);
                     const unsigned int index = enterNew(table, entry, 746);
                     if (observed)
                         observed->surrogate(index, entry);
                 });
}

void Decoder::encodedCharacterString(BitStreamReader& reader, std::string& text, DocumentVocabulary& vocabulary,
                                     Observed* observed)
{
    std::string octets;
    // Documents have an integer without meaning before the index, here and nowhere else.
    const auto readIndex = [&reader]
    {
        PrimitiveCode::smallInteger(reader);
        return PrimitiveCode::smallInteger(reader);
    };
    const auto form = static_cast<StructureObserver::Form>(readBits(reader, 2));
    unsigned int index = 0;
    switch (form)
    {
    case Form::UTF8:
        nonEmptyOctetString(reader, text);
        break;
    case Form::UTF16:
        nonEmptyOctetString(reader, octets);
        StringDecoder::decodeUTF16(octets, text);
        break;
    case Form::RESTRICTED_ALPHABET:
        index = readIndex();
        nonEmptyOctetString(reader, octets);
        StringDecoder::decodeAlphabet(octets, std::as_const(vocabulary).restrictedAlphabets().alphabet(index), text);
        break;
    case Form::ENCODING_ALGORITHM:
        index = readIndex();
        vocabulary.decodingAlgorithm().decoding(index)(reader)->text(text);
        break;
    }
    if (observed)
        observed->form(form, index);
}

} // namespace Vesk::FastInfoset
