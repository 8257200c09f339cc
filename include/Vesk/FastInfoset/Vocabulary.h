// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_VOCABULARY_H
#define VESK_FASTINFOSET_VOCABULARY_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include "Vesk/FastInfoset/QualifiedNameEntry.h"
#include "Vesk/FastInfoset/VerbTable.h"
#include <string>

namespace Vesk::FastInfoset
{

/// A vocabulary table (X.891 clause 7.2): numbers values, and finds the value of a number and the number of a value.
///
/// There are tables of strings (UTF-8) and of name surrogates, T being std::string or QualifiedNameEntry. Entries are
/// numbered from 0 in the order they are added and stay until the table goes. The tables of a DocumentVocabulary hold a
/// reserved entry 0 (the empty string, the all-zero surrogate), so that real entries count from 1 as X.891 does; a table
/// by itself knows nothing of that.
///
/// A table serves one thread at a time. The const operations may run side by side.
template <class T>
class VESK_FASTINFOSET_API Vocabulary
{
public:
    /// What index and exists return for a value that has no number.
    static constexpr unsigned int NOT_FOUND = 0xFFFFFFFFu;

    virtual ~Vocabulary() = default;

    /// The index of the value, which is added if it is absent. found tells whether it was there before.
    /// If an exception leaves the operation, the table is unchanged.
    virtual unsigned int index(const T& value, bool& found) = 0;

    /// The index of the value, or NOT_FOUND with found false. Adds nothing.
    virtual unsigned int exists(const T& value, bool& found) const = 0;

    /// The entry with this index. The reference stays good as long as the entry is in the table, since entries never
    /// move. Throws std::out_of_range "index out of range" if there is none.
    virtual const T& value(unsigned int idx) const = 0;

    /// Number of entries, a reserved entry 0 included.
    virtual unsigned int size() const = 0;

    /// Whether there is no entry, not even a reserved one.
    virtual bool empty() const = 0;

    /// A new table of the same kind with the entries of this table that the other does not hold, in their order and
    /// numbered from 0 (a reserved entry that both hold is not among them). Hands over the table to the caller.
    virtual Vocabulary* subtract(const Vocabulary& other) const = 0;

    /// A copy of the table. Hands it over to the caller.
    virtual Vocabulary* clone() const = 0;

    /// The entries in index order, for readers that resolve many indexes; stays valid as long as the table.
    virtual const VerbTable<T>& entries() const = 0;

    Vocabulary& operator=(const Vocabulary&) = delete;

protected:
    /// For the tables that derive from it.
    Vocabulary() = default;
    Vocabulary(const Vocabulary&) = default;
};

extern template class Vocabulary<std::string>;
extern template class Vocabulary<QualifiedNameEntry>;

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_VOCABULARY_H
