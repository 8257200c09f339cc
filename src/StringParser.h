// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_STRINGPARSER_H
#define VESK_FASTINFOSET_STRINGPARSER_H

#include "ResolvedNames.h"
#include "Vesk/AutoPtr.h"
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/Encoding.h"
#include <string>

namespace Vesk::FastInfoset
{

class BitStreamReader;

/// Reads strings, names and character content: every text of a document is a literal or an index into a table of the
/// vocabulary, and every literal is UTF-8, UTF-16, text in a restricted alphabet or a value of an encoding algorithm.
///
/// Literal identifying strings and names always enter their table, other literals if the document says so. Operations
/// are named after the structures of X.891; each says at which bit offset its structure starts and throws
/// FISEncodingException when it is called at another.
class StringParser
{
public:
    /// Plain text, or a typed value if there is one. The text is good until the next read.
    struct Content
    {
        const std::string* text = nullptr;
        AutoPtr<Encoding> value;
    };

    /// Starts with the body of a document: the vocabulary is as its header has left it. Both are borrowed.
    void begin(BitStreamReader& reader, DocumentVocabulary& vocabulary);

    /// An identifying string (X.891 C.13), on an octet boundary. The result belongs to the table.
    const std::string& parseIdentifyingStringOrIndex(DocumentVocabulary::ID table);
    const std::string& parseIdentifyingStringOrIndex(DocumentVocabulary::ID table, unsigned int& index);

    /// The name of an element at bit offset 2 (X.891 C.18) or of an attribute at bit offset 1 (C.17).
    const ResolvedName& parseQualifiedNameOrIndex(bool isElement);

    /// A non-identifying string (X.891 C.14, C.15) as text, at bit offset 0 or 2. The result belongs to the table, or is
    /// the buffer, which literals that enter no table are read into.
    const std::string& parseNonIdentifyingStringOrIndexXML(DocumentVocabulary::ID table, std::string& buffer);

    /// The same for character content, whose typed values stay typed.
    Content parseNonIdentifyingStringOrIndex(DocumentVocabulary::ID table);

private:
    unsigned int integer();
    bool flag(const char* endOfStreamMessage);
    const std::string& value(DocumentVocabulary::ID table, unsigned int index) const;
    const std::string& enter(DocumentVocabulary::ID table, const std::string& text);
    QualifiedNameEntry parseLiteralName();
    AutoPtr<Encoding> parseEncodedCharacterString(std::string& text);
    void parseEncodedCharacterStringXML(std::string& text);

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
