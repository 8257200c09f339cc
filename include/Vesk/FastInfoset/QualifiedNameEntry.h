// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_QUALIFIEDNAMEENTRY_H
#define VESK_FASTINFOSET_QUALIFIEDNAMEENTRY_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <tuple>

namespace Vesk::FastInfoset
{

/// A name surrogate (X.891 C.16): the indexes of a qualified name's three parts.
///
/// Prefix and namespace name are 0 where the name has none. A surrogate that was read from an initial vocabulary marks
/// an absent part with ABSENT instead.
class VESK_FASTINFOSET_API QualifiedNameEntry
{
public:
    /// The index of a part that is not there.
    static constexpr unsigned int ABSENT = 0xFFFFFFFF;

    /// All parts 0.
    QualifiedNameEntry() = default;

    /// The three indexes.
    QualifiedNameEntry(unsigned int prefix, unsigned int namespaceName, unsigned int localName)
        : _prefix(prefix),
          _namespaceName(namespaceName),
          _localName(localName)
    {
    }

    /// Index into the prefix table.
    unsigned int prefix() const { return _prefix; }

    /// Index into the namespace-name table.
    unsigned int namespaceName() const { return _namespaceName; }

    /// Index into the local-name table.
    unsigned int localName() const { return _localName; }

    /// Orders by prefix, then namespace name, then local name.
    bool operator<(const QualifiedNameEntry& other) const
    {
        return std::tie(_prefix, _namespaceName, _localName) <
               std::tie(other._prefix, other._namespaceName, other._localName);
    }

private:
    unsigned int _prefix = 0;
    unsigned int _namespaceName = 0;
    unsigned int _localName = 0;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_QUALIFIEDNAMEENTRY_H
