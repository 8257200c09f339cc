// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_STRINGPARSER_H
#define VESK_FASTINFOSET_STRINGPARSER_H

#include "Observation.h"
#include "PrimitiveCode.h"
#include "ResolvedNames.h"
#include "StringEntries.h"
#include "Vesk/AutoPtr.h"
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/Encoding.h"
#include <string>

namespace Vesk::FastInfoset
{

/// Reads strings, names and character content: every text of a document is a literal or an index into a table of the
/// vocabulary, and every literal is UTF-8, UTF-16, text in a restricted alphabet or a value of an encoding algorithm.
///
/// Literal identifying strings and names always enter their table, other literals if the document says so.
///
/// Operations are named after the structures of X.891. All start on an octet boundary; those whose structure shares its
/// first octet with what is before it take that octet, which the caller has read. All end on an octet boundary.
///
/// Observation is Unobserved or Observed.
template <class Observation>
class StringParser
{
public:
    /// The observation is borrowed.
    explicit StringParser(Observation& observation);

    /// Starts with the body of a document: the vocabulary is as its header has left it. Both are borrowed. Elements have
    /// their qualified names if they are wanted.
    void begin(BitStreamReader& reader, DocumentVocabulary& vocabulary, bool areNamesQualified);

    /// An identifying string (X.891 C.13). The result belongs to the table.
    const std::string& parseIdentifyingStringOrIndex(DocumentVocabulary::ID table);

    /// The name of an element, in the last six bits of the octet (X.891 C.18).
    const ResolvedName& parseElementName(unsigned int octet);

    /// The name of an attribute, in the last seven bits of the octet (X.891 C.17).
    const ResolvedName& parseAttributeName(unsigned int octet);

    /// A non-identifying string (X.891 C.14) as text. The result belongs to the table, or is the buffer, into which
    /// literals that enter no table are read.
    const std::string& parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::ID table, std::string& buffer);

    /// Character content, in the last six bits of the octet (X.891 C.15): plain text that is good until the next read,
    /// or null and a typed value.
    const std::string* parseCharacterChunk(unsigned int octet, AutoPtr<Encoding>& value);

private:
    using Form = Observed::Form;

    StringEntries& entries(DocumentVocabulary::ID table) { return _entries[table - DocumentVocabulary::PREFIX]; }

    void readString(unsigned long octetCount, std::string& octets);
    unsigned int parseIndex(DocumentVocabulary::ID table);
    unsigned int parseNamePart(DocumentVocabulary::ID table);
    QualifiedNameEntry parseLiteralName(unsigned int octet);
    const ResolvedName& parseLiteralName(ResolvedNames& names, Observed::Table table, unsigned int octet);
    template <int NUM_OF_BITS>
    const std::string& parseLiteral(DocumentVocabulary::ID table, unsigned int octet, std::string& buffer,
                                    bool isTextWanted, AutoPtr<Encoding>& value);
    const std::string& parseLiteralAsText(DocumentVocabulary::ID table, unsigned int octet, std::string& buffer);
    AutoPtr<Encoding> parseOtherForm(Form form, unsigned int group, int groupBits, std::string& text);
    const std::string& readEntry(DocumentVocabulary::ID table, unsigned long octetCount, unsigned int& index);
    const std::string& enter(DocumentVocabulary::ID table, const std::string& text, unsigned int& index);

    Observation& _observation;
    BitStreamReader* _reader = nullptr;
    DocumentVocabulary* _vocabulary = nullptr;
    StringEntries _entries[DocumentVocabulary::CONTENT_CHARACTER_CHUNK - DocumentVocabulary::PREFIX + 1];
    ResolvedNames _elementNames;
    ResolvedNames _attributeNames;
    std::string _literal; // an identifying string on its way to the table
    std::string _octets;  // octets of text in another encoding
    std::string _chunk;   // character content that is in no table, or on its way there
};

// What most elements and attributes consist of: names and strings that are indexes.

//   ??iiiiii    an index
//   ??1111pn    a literal: prefix present, namespace name present
template <class Observation>
inline const ResolvedName& StringParser<Observation>::parseElementName(unsigned int octet)
{
    constexpr unsigned int LITERAL = 0b111100;
    const unsigned int group = octet & 0x3F;
    if (group >= LITERAL)
        return parseLiteralName(_elementNames, Observed::Table::ELEMENT_NAME, octet);
    const unsigned int index = PrimitiveCode::integerOnThirdBit(*_reader, group);
    const ResolvedName& name = _elementNames[index];
    _observation.indexedName(Observed::Table::ELEMENT_NAME, index, name);
    return name;
}

//   ?iiiiiii    an index
//   ?1111?pn    a literal: prefix present, namespace name present
template <class Observation>
inline const ResolvedName& StringParser<Observation>::parseAttributeName(unsigned int octet)
{
    constexpr unsigned int LITERAL = 0b1111000;
    const unsigned int group = octet & 0x7F;
    if (group >= LITERAL)
        return parseLiteralName(_attributeNames, Observed::Table::ATTRIBUTE_NAME, octet);
    const unsigned int index = PrimitiveCode::integerOnSecondBit(*_reader, group);
    const ResolvedName& name = _attributeNames[index];
    _observation.indexedName(Observed::Table::ATTRIBUTE_NAME, index, name);
    return name;
}

//   1iiiiiii    an index
//   0assssss    an encoded character string that is added to the table or not
template <class Observation>
inline const std::string& StringParser<Observation>::parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::ID table,
                                                                                         std::string& buffer)
{
    const unsigned int octet =
        PrimitiveCode::readOctet(*_reader, "Unexpected end of stream while parsing non identifying string or index");
    if ((octet & 0x80) == 0)
        return parseLiteralAsText(table, octet, buffer);
    const unsigned int index = PrimitiveCode::integerOnSecondBit(*_reader, octet & 0x7F);
    const std::string& text = entries(table)[index];
    _observation.indexed(index);
    _observation.string(table, &text);
    return text;
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_STRINGPARSER_H
