// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_STRINGPARSER_H
#define VESK_FASTINFOSET_STRINGPARSER_H

#include "Observation.h"
#include "ResolvedNames.h"
#include "Vesk/AutoPtr.h"
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/Encoding.h"
#include <string>

namespace Vesk::FastInfoset
{

class BitStreamReader;

/// Character content: plain text, or a typed value if there is one. The text is good until the next read.
struct CharacterContent
{
    const std::string* text = nullptr;
    AutoPtr<Encoding> value;
};

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
    explicit StringParser(Observation& observation)
        : _observation(observation)
    {
    }

    /// Starts with the body of a document: the vocabulary is as its header has left it. Both are borrowed.
    void begin(BitStreamReader& reader, DocumentVocabulary& vocabulary);

    /// An identifying string (X.891 C.13). The result belongs to the table.
    const std::string& parseIdentifyingStringOrIndex(DocumentVocabulary::ID table);

    /// The name of an element, in the last six bits of the octet (X.891 C.18).
    const ResolvedName& parseElementName(unsigned int octet);

    /// The name of an attribute, in the last seven bits of the octet (X.891 C.17).
    const ResolvedName& parseAttributeName(unsigned int octet);

    /// A non-identifying string (X.891 C.14) as text. The result belongs to the table, or is the buffer, into which
    /// literals that enter no table are read.
    const std::string& parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::ID table, std::string& buffer);

    /// Character content, in the last six bits of the octet (X.891 C.15). Typed values stay typed.
    CharacterContent parseCharacterChunk(unsigned int octet);

private:
    unsigned int readOctet(const char* endOfStreamMessage);
    void readString(unsigned long octetCount, std::string& octets);
    unsigned int parseIndex(DocumentVocabulary::ID table);
    unsigned int parseNamePart(DocumentVocabulary::ID table);
    QualifiedNameEntry parseLiteralName(unsigned int octet);
    AutoPtr<Encoding> parseEncodedCharacterString(unsigned int octet, int numOfBits, std::string& text);
    const std::string& value(DocumentVocabulary::ID table, unsigned int index) const;
    const std::string& enter(DocumentVocabulary::ID table, const std::string& text);

    Observation& _observation;
    BitStreamReader* _reader = nullptr;
    DocumentVocabulary* _vocabulary = nullptr;
    const VerbTable<std::string>* _entries[DocumentVocabulary::CONTENT_CHARACTER_CHUNK + 1] = {};
    ResolvedNames _elementNames;
    ResolvedNames _attributeNames;
    std::string _literal; // an identifying string on its way to the table
    std::string _octets;  // octets of text in another encoding
    std::string _chunk;   // character content that is in no table
    std::string _text;    // the text of a typed value on its way to the table
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_STRINGPARSER_H
