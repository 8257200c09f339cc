// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_STRINGWRITER_H
#define VESK_FASTINFOSET_STRINGWRITER_H

#include "NameIndexCache.h"
#include "StringIndexCache.h"
#include "Vesk/AutoPtr.h"
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/Encoding.h"
#include <string>
#include <string_view>

namespace Vesk::FastInfoset
{

class BitStreamWriter;

/// Writes strings, names and character content: decides whether a value goes out as an index or literally, and enters
/// new values in the tables of the vocabulary, where StringParser will find them under the same index.
///
/// Each operation says at which bit offset it starts and throws FISEncodingException, before it writes anything, when
/// it is called at another. What it has entered in a table stays there even if writing fails afterwards.
class StringWriter
{
public:
    /// The default limit on the length of indexed strings, in octets.
    static constexpr int MAX_INDEXED_LENGTH = 16;

    /// Both are borrowed.
    StringWriter(BitStreamWriter& stream, DocumentVocabulary& vocabulary);

    /// To be called whenever tables of the vocabulary have been replaced.
    void begin();

    /// Non-identifying strings of up to this many octets are looked up and entered in their table; if it is 0 or less,
    /// only the empty string is looked up.
    void setMaxIndexedLength(int octetCount) { _maxIndexedLength = octetCount; }

    /// Within a CDATA section text goes out under the CDATA algorithm.
    void setInCDATA(bool inCDATA) { _inCDATA = inCDATA; }

    /// \name Identifying strings, on an octet boundary
    /// All of them enter their table. Results are indexes.
    /// @{
    void writeIdentifyingString(const std::string& text);
    void writeIdentifyingStringIndex(unsigned int index);
    unsigned int writeIdentifyingStringOrIndex(const std::string& text, DocumentVocabulary::ID table);
    /// @}

    /// \name Non-identifying strings
    /// Returns the index of the value, 0 when it is not indexed. Typed values never are.
    /// @{

    /// On an octet boundary.
    unsigned int writeNonIdentifyingStringOrIndex(std::string_view text, DocumentVocabulary::ID table);
    /// At bit offset 0 or 2.
    unsigned int writeNonIdentifyingStringOrIndex(const AutoPtr<Encoding>& value, DocumentVocabulary::ID table);

    /// @}

    /// \name Encoded character strings, at bit offset 2 or 4
    /// @{
    void writeEncodedCharacterString(std::string_view text, unsigned int algorithm);
    void writeEncodedCharacterString(const AutoPtr<Encoding>& value);
    /// @}

    /// Character content with the two bits that announce it, on an octet boundary.
    void writeCharacterChunk(std::string_view text);

    /// \name Qualified names
    /// Results are indexes. The local name is not empty.
    /// @{

    /// On an octet boundary, with the bits before the name, two of an element and one of an attribute, left-aligned in
    /// lead.
    unsigned int writeQualifiedNameOrIndex(const std::string& prefix, const std::string& uri,
                                           const std::string& localName, bool isElement, unsigned int lead)
    {
        return isElement ? writeName<true>(prefix, uri, localName, lead)
                         : writeName<false>(prefix, uri, localName, lead);
    }
    /// What follows the mark of a literal name, at bit offset 6. The parts are in the tables.
    unsigned int writeQualifiedName(const QualifiedNameEntry& name, bool isElement);

    /// @}

private:
    struct Lookup
    {
        bool found;         // the value is in the table
        bool added;         // it has just been entered
        unsigned int index; // 0 if neither
    };

    using ValueCache = StringIndexCache<9>;
    using NamespaceCache = StringIndexCache<4>;

    /// What is in its table now, and whether it was before.
    struct Entered
    {
        unsigned int index;
        bool wasKnown;
    };

    ValueCache* valueCache(DocumentVocabulary::ID table);
    NamespaceCache* namespaceCache(DocumentVocabulary::ID table);
    template <bool IS_ELEMENT>
    unsigned int writeName(const std::string& prefix, const std::string& uri, const std::string& localName,
                           unsigned int lead);
    template <int LEAD_BITS>
    unsigned int writeValue(unsigned int lead, std::string_view text, DocumentVocabulary::ID table, ValueCache* recent);
    Lookup lookUp(std::string_view text, DocumentVocabulary::ID table, ValueCache* recent);
    Lookup lookUpInTable(std::string_view text, DocumentVocabulary::ID table);
    unsigned int writeLookup(const Lookup& lookup);
    Entered enter(const std::string& text, DocumentVocabulary::ID table);
    Entered enterOptional(const std::string& text, DocumentVocabulary::ID table);
    void writeEntered(const Entered& entered, const std::string& text);
    unsigned int enterAndWriteName(const std::string& prefix, const std::string& uri, const std::string& localName,
                                   bool isElement, unsigned int lead);
    Vocabulary<QualifiedNameEntry>& names(bool isElement) const;

    BitStreamWriter& _stream;
    DocumentVocabulary& _vocabulary;
    int _maxIndexedLength = MAX_INDEXED_LENGTH;
    bool _inCDATA = false;
    NameIndexCache _elementNames;
    NameIndexCache _attributeNames;
    ValueCache _values;
    ValueCache _chunks;
    NamespaceCache _prefixes;
    NamespaceCache _namespaceNames;
    std::string _key; // the text being looked up
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_STRINGWRITER_H
