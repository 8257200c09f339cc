// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_DOCUMENTVOCABULARY_H
#define VESK_FASTINFOSET_DOCUMENTVOCABULARY_H

#include "Vesk/FastInfoset/DecodingAlgorithm.h"
#include "Vesk/FastInfoset/DocumentRestrictedAlphabet.h"
#include "Vesk/FastInfoset/EncodingAlgorithm.h"
#include "Vesk/FastInfoset/Vocabulary.h"
#include <memory>
#include <string>
#include <vector>

namespace Vesk::FastInfoset
{

/// All vocabulary tables of one document (X.891 clause 7.2).
///
/// A new vocabulary is in the built-in state: every table holds the reserved entry 0, the prefix table "xml" at index 1,
/// the namespace-name table the name bound to it at index 1. It owns its tables. Copying copies them all.
///
/// A vocabulary belongs to one parser or writer and serves one thread at a time; the const operations may run side by
/// side.
class VESK_FASTINFOSET_API DocumentVocabulary
{
public:
    /// The tables. Restricted alphabets and encoding algorithms have classes of their own; no table stands at their
    /// positions.
    enum ID
    {
        RESTRICTED_ALPHABET = 0,
        ENCODING_ALGORITHM = 1,
        PREFIX = 2,
        NAMESPACE_NAME = 3,
        LOCAL_NAME = 4,
        OTHER_NCNAME = 5, ///< targets of processing instructions, names of notations and entities
        OTHER_URI = 6,    ///< system and public identifiers
        ATTRIBUTE_VALUE = 7,
        OTHER_STRING = 8, ///< comments, data of processing instructions, the version
        CONTENT_CHARACTER_CHUNK = 9
    };

    /// How the tables are implemented.
    ///
    /// The hash tables hold at most 251 prefixes and namespace names each; 40009 local names, other NCNames and attribute
    /// values each; 65521 character chunks; 10009 element names and attribute names each; 19 other URIs and 19 other
    /// strings; reserved entries included. The map tables take any number. The vector tables read every document, but
    /// cannot be written with.
    enum VocabularyImpl
    {
        VOC_HASH = 0,
        VOC_MAP = 1,
        VOC_VECTOR = 2
    };

    /// Asks for an empty shell.
    enum DontInitialize
    {
        DONT_INITIALIZE
    };

    /// A vocabulary in the built-in state.
    explicit DocumentVocabulary(VocabularyImpl impl = VOC_HASH);

    /// Likewise, and stands for the external vocabulary with this URI.
    explicit DocumentVocabulary(const std::string& uri, VocabularyImpl impl = VOC_HASH);

    /// An empty shell without tables: its tables must not be accessed until it is reset or assigned to.
    explicit DocumentVocabulary(DontInitialize);

    /// Copies or takes over everything, tables included.
    DocumentVocabulary(const DocumentVocabulary& other);
    DocumentVocabulary(DocumentVocabulary&& other) noexcept;
    ~DocumentVocabulary();

    /// Replaces everything by a copy of the other vocabulary, tables included. If that fails nothing is changed.
    DocumentVocabulary& operator=(const DocumentVocabulary& other);
    DocumentVocabulary& operator=(DocumentVocabulary&& other) noexcept;

    /// What this vocabulary has beyond the other: the tables hold the added entries, numbered from 0 and without a
    /// reserved entry, the alphabets are the added ones, the URI is empty. It is a list for the initial vocabulary of a
    /// document, not a vocabulary to work with. Subtracting an empty shell from any other vocabulary fails a check.
    DocumentVocabulary operator-(const DocumentVocabulary& other) const;

    /// Drops all tables and so leaves an empty shell. The alphabets, algorithms and URI stay.
    void clear();

    /// Brings all tables into the built-in state. Costs what the entries added since cost. The alphabets, algorithms and
    /// URI stay. References to tables stay good if the tables are of the vocabulary's own making.
    void reset();

    /// Replaces a string table. The table is handed over to the vocabulary.
    void initialize(ID id, Vocabulary<std::string>* voc);

    /// True if the string and name tables hold exactly the built-in entries and the alphabets are the built-in ones.
    /// Takes constant time.
    bool isBuiltIn() const;

    /// The tables. An empty shell fails a check, and so do the two positions without a string table.
    Vocabulary<std::string>& vocabulary(ID id);
    const Vocabulary<std::string>& vocabulary(ID id) const;
    Vocabulary<QualifiedNameEntry>& elementNames();
    const Vocabulary<QualifiedNameEntry>& elementNames() const;
    Vocabulary<QualifiedNameEntry>& attributeNames();
    const Vocabulary<QualifiedNameEntry>& attributeNames() const;

    /// The restricted alphabets. Assign DocumentRestrictedAlphabet() to drop what documents added.
    DocumentRestrictedAlphabet& restrictedAlphabets() { return _restrictedAlphabets; }
    const DocumentRestrictedAlphabet& restrictedAlphabets() const { return _restrictedAlphabets; }

    /// The registries of encoding and of decoding functions, which are the same in every vocabulary.
    EncodingAlgorithm& encodingAlgorithm() { return _encodingAlgorithm; }
    const EncodingAlgorithm& encodingAlgorithm() const { return _encodingAlgorithm; }
    DecodingAlgorithm& decodingAlgorithm() { return _decodingAlgorithm; }
    const DecodingAlgorithm& decodingAlgorithm() const { return _decodingAlgorithm; }

    /// The URI of the external vocabulary that this one stands for; empty if none.
    const std::string& externalVocabularyURI() const { return _externalVocabularyURI; }

    /// How the tables are implemented.
    VocabularyImpl implementation() const { return _implementation; }

private:
    using StringTable = std::unique_ptr<Vocabulary<std::string>>;
    using NameTable = std::unique_ptr<Vocabulary<QualifiedNameEntry>>;

    template <class S, class Q>
    void create();
    void init();

    template <class Table>
    static Table& checked(Table* table)
    {
        if (table == nullptr)
            noTable();
        return *table;
    }

    [[noreturn]] static void noTable();

    Vocabulary<std::string>* table(ID id) const
    {
        return id < _vocabularies.size() ? _vocabularies[id].get() : nullptr;
    }

    VocabularyImpl _implementation = VOC_HASH;
    std::vector<StringTable> _vocabularies; // by ID; the first two are null; an empty shell has none at all
    DocumentRestrictedAlphabet _restrictedAlphabets;
    EncodingAlgorithm _encodingAlgorithm;
    DecodingAlgorithm _decodingAlgorithm;
    NameTable _elementNames;
    NameTable _attributeNames;
    std::string _externalVocabularyURI;
};

inline Vocabulary<std::string>& DocumentVocabulary::vocabulary(ID id)
{
    return checked(table(id));
}

inline const Vocabulary<std::string>& DocumentVocabulary::vocabulary(ID id) const
{
    return checked(table(id));
}

inline Vocabulary<QualifiedNameEntry>& DocumentVocabulary::elementNames()
{
    return checked(_elementNames.get());
}

inline const Vocabulary<QualifiedNameEntry>& DocumentVocabulary::elementNames() const
{
    return checked(_elementNames.get());
}

inline Vocabulary<QualifiedNameEntry>& DocumentVocabulary::attributeNames()
{
    return checked(_attributeNames.get());
}

inline const Vocabulary<QualifiedNameEntry>& DocumentVocabulary::attributeNames() const
{
    return checked(_attributeNames.get());
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_DOCUMENTVOCABULARY_H
