// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_RESOLVEDNAMES_H
#define VESK_FASTINFOSET_RESOLVEDNAMES_H

#include "StringEntries.h"
#include "Vesk/FastInfoset/ResolvedQualName.h"
#include "Vesk/FastInfoset/VerbTable.h"
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Vesk::FastInfoset
{

class QualifiedNameEntry;

/// A name of an element or attribute as a handler receives it.
struct ResolvedName : ResolvedQualName
{
    std::string qualifiedName; // "prefix:localName"; empty without a prefix, or if nobody wants qualified names
};

/// The names of one name table in the form that handlers receive, resolved once and then found by index.
///
/// Without it every use of a name would be four lookups and, for prefixed elements, a string to build. Names never
/// move while a document is read, so the parser keeps references to those of the open elements.
class ResolvedNames
{
public:
    /// The tables of the names' parts. They are borrowed and begin the document first.
    ResolvedNames(StringEntries& prefixes, StringEntries& namespaceNames, StringEntries& localNames);

    /// Forgets the names of the last document, and tells whether the next one's qualified names are wanted.
    void begin(Vocabulary<QualifiedNameEntry>& table, bool areQualified);

    /// The name with that index. Throws what the tables throw if the index, or one that its entry holds, is beyond
    /// their end, and FISException if the qualified names of the document are out of proportion to their number.
    const ResolvedName& operator[](unsigned int index)
    {
        return index < _slots.size() && _slots[index].document == _document ? *_slots[index].name : resolve(index);
    }

    Vocabulary<QualifiedNameEntry>& table() { return *_table; }

private:
    struct Slot
    {
        std::uint64_t document = 0; // the one in which the name has been resolved
        const ResolvedName* name = nullptr;
    };

    const ResolvedName& resolve(unsigned int index);
    void qualify(ResolvedName& name);

    StringEntries& _prefixes;
    StringEntries& _namespaceNames;
    StringEntries& _localNames;
    Vocabulary<QualifiedNameEntry>* _table = nullptr;
    bool _areQualified = false;
    std::uint64_t _document = 0;      // counts documents, so that forgetting names costs nothing
    std::vector<Slot> _slots;         // by index
    VerbTable<ResolvedName> _names;   // in the order in which they were resolved
    std::size_t _qualifiedOctets = 0; // of all qualified names of the document
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_RESOLVEDNAMES_H
