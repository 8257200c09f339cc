// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_MAPVOCABULARY_H
#define VESK_FASTINFOSET_MAPVOCABULARY_H

#include "Vesk/FastInfoset/IndexedTable.h"
#include "Vesk/FastInfoset/Vocabulary.h"

namespace Vesk::FastInfoset
{

/// A vocabulary table for reading and writing that takes any number of entries.
///
/// It maps in both directions in constant time. A new table is empty.
template <class T>
class VESK_FASTINFOSET_API MapVocabulary final : public Vocabulary<T>
{
public:
    MapVocabulary();

    unsigned int index(const T& value, bool& found) override;
    unsigned int exists(const T& value, bool& found) const override;
    const T& value(unsigned int idx) const override;
    unsigned int size() const override;
    bool empty() const override;
    MapVocabulary* subtract(const Vocabulary<T>& other) const override;
    MapVocabulary* clone() const override;
    const VerbTable<T>& entries() const override;

    /// Leaves the reserved entry 0 and nothing else, whatever the table held. Costs what the entries dropped cost.
    void reset();

private:
    // A map by value, but not an ordered one: no operation shows an order other than that of the indexes.
    IndexedTable<T> _index;
};

extern template class MapVocabulary<std::string>;
extern template class MapVocabulary<QualifiedNameEntry>;

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_MAPVOCABULARY_H
