// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_VECTORVOCABULARY_H
#define VESK_FASTINFOSET_VECTORVOCABULARY_H

#include "Vesk/FastInfoset/Vocabulary.h"

namespace Vesk::FastInfoset
{

/// A vocabulary table for reading only: entries are appended and fetched by index, which is all a parser needs.
///
/// index never looks a value up: it always appends, so the same value given twice gets two indexes. A writer cannot
/// work with such a table, since it would never use an index again. exists scans from the front and reports the first
/// equal entry. A new table is empty.
template <class T>
class VESK_FASTINFOSET_API VectorVocabulary final : public Vocabulary<T>
{
public:
    VectorVocabulary();

    unsigned int index(const T& value, bool& found) override;
    unsigned int exists(const T& value, bool& found) const override;
    const T& value(unsigned int idx) const override;
    unsigned int size() const override;
    bool empty() const override;
    VectorVocabulary* subtract(const Vocabulary<T>& other) const override;
    VectorVocabulary* clone() const override;
    const VerbTable<T>& entries() const override;

    /// Add an entry without a copy, as in VerbTable: spare() hands out the place behind the last entry, to be filled;
    /// addSpare() makes it an entry.
    T& spare() { return _entries.spare(); }
    unsigned int addSpare() { return _entries.addSpare(); }

    /// Leaves the reserved entry 0 and nothing else, whatever the table held. Costs what the entries dropped cost.
    void reset();

private:
    VerbTable<T> _entries;
};

extern template class VectorVocabulary<std::string>;
extern template class VectorVocabulary<QualifiedNameEntry>;

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_VECTORVOCABULARY_H
