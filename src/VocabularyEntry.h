// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_VOCABULARYENTRY_H
#define VESK_FASTINFOSET_VOCABULARYENTRY_H

#include "Vesk/FastInfoset/QualifiedNameEntry.h"
#include "Vesk/FastInfoset/VerbTable.h"
#include <string>

namespace Vesk::FastInfoset
{

/// Equality of the entries of a vocabulary table, of whichever type they are.
inline bool same(const std::string& left, const std::string& right)
{
    return left == right;
}

inline bool same(const QualifiedNameEntry& left, const QualifiedNameEntry& right)
{
    return left.localName() == right.localName() && left.namespaceName() == right.namespaceName() &&
           left.prefix() == right.prefix();
}

/// True for the state in which most tables begin and many stay.
template <class T>
bool holdsOnlyReservedEntry(const VerbTable<T>& entries)
{
    return entries.size() == 1 && same(entries[0], T());
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_VOCABULARYENTRY_H
