// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_HEADERWRITER_H
#define VESK_FASTINFOSET_HEADERWRITER_H

#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/Notation.h"
#include "Vesk/FastInfoset/UnparsedEntity.h"
#include <string>
#include <vector>

namespace Vesk::FastInfoset
{

class BitStreamWriter;
class StringWriter;

/// Writes the header of a document: identification, flags, initial vocabulary, notations and unparsed entities.
///
/// Additional data, additional algorithms, a character encoding scheme, a standalone flag and a version are never
/// written.
class HeaderWriter
{
public:
    /// Both are borrowed.
    HeaderWriter(BitStreamWriter& stream, StringWriter& strings);

    /// What the header depends on; borrowed.
    struct Content
    {
        bool writeXMLDeclaration;
        const DocumentVocabulary& vocabulary;
        const std::string& externalURI;               // empty if there is no external vocabulary
        const DocumentVocabulary* externalVocabulary; // null without a URI
        const std::vector<Notation>& notations;
        const std::vector<UnparsedEntity>& unparsedEntities;
    };

    /// Writes the header, up to where the first child begins. The initial vocabulary is what the vocabulary has beyond
    /// the external one or, without that, beyond what every reader has built in.
    ///
    /// Entries of the tables of attribute values, character chunks, other strings and names cannot be written in an
    /// initial vocabulary: they fail a check of the bit stream ("checkInputParams(...)"), after the list's length.
    void writeHeader(const Content& content);

private:
    void writeInitialVocabulary(const DocumentVocabulary& vocabulary, const std::string& externalURI);
    void writeExternalVocabulary(const std::string& uri);
    void writeRestrictedAlphabet(const DocumentRestrictedAlphabet& alphabets);
    void writeVocabulary(const Vocabulary<std::string>& table);
    void writeEncodedVocabulary(const Vocabulary<std::string>& table);
    void writeNameSurrogates(const Vocabulary<QualifiedNameEntry>& table, bool isElement);
    void writePaddedString(const std::string& text);
    void writeNotations(const std::vector<Notation>& notations);
    void writeUnparsedEntities(const std::vector<UnparsedEntity>& entities);

    BitStreamWriter& _stream;
    StringWriter& _strings;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_HEADERWRITER_H
