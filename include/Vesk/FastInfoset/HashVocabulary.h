// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_HASHVOCABULARY_H
#define VESK_FASTINFOSET_HASHVOCABULARY_H

#include "Vesk/FastInfoset/IndexedTable.h"
#include "Vesk/FastInfoset/Vocabulary.h"

namespace Vesk::FastInfoset
{

/// A vocabulary table for reading and writing that takes a fixed number of distinct entries.
///
/// The limit bounds the memory of a document's tables. A full table still finds what it holds; exists reports any other
/// value as absent, and index throws PoolOverflowException "Vocabulary hash table full" for it. A value reaches the same
/// decision in every process, since only the number of entries counts.
template <class T>
class VESK_FASTINFOSET_API HashVocabulary final : public Vocabulary<T>
{
public:
    /// A table for at most tableSize entries. A table of strings begins with the empty string as entry 0, which counts;
    /// a table of name surrogates begins empty.
    explicit HashVocabulary(unsigned int tableSize);

    unsigned int index(const T& value, bool& found) override;
    unsigned int exists(const T& value, bool& found) const override;

    /// As described for the base class, but an index out of range fails the check "this->_index.size() > idx" first.
    const T& value(unsigned int idx) const override;

    unsigned int size() const override;
    bool empty() const override;
    HashVocabulary* subtract(const Vocabulary<T>& other) const override;
    HashVocabulary* clone() const override;
    const VerbTable<T>& entries() const override;

    /// Leaves the reserved entry 0 and nothing else, whatever the table held. Costs what the entries dropped cost.
    void reset();

    /// The largest number of entries.
    unsigned int tableSize() const;

private:
    enum NoEntry
    {
        NO_ENTRY
    };

    HashVocabulary(unsigned int tableSize, NoEntry);

    // The slots come into being as entries arrive instead of tableSize of them at once. Which slot a value takes shows
    // nowhere: indexes follow the order of arrival and the table is full at tableSize entries, however they lie.
    IndexedTable<T> _index;
    unsigned int _tableSize;
};

extern template class HashVocabulary<std::string>;
extern template class HashVocabulary<QualifiedNameEntry>;

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_HASHVOCABULARY_H
