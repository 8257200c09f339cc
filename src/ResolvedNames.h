// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_RESOLVEDNAMES_H
#define VESK_FASTINFOSET_RESOLVEDNAMES_H

#include "Vesk/FastInfoset/ResolvedQualName.h"
#include "Vesk/FastInfoset/VerbTable.h"
#include <cstddef>
#include <string>

namespace Vesk::FastInfoset
{

class DocumentVocabulary;
class QualifiedNameEntry;

template <typename T>
class Vocabulary;

/// A name of an element or attribute as a handler receives it.
struct ResolvedName : ResolvedQualName
{
    bool resolved = false;
    std::string qualifiedName; // "prefix:localName", empty without a prefix
};

/// The names of one name table in the form that handlers receive, resolved once and then found by index.
///
/// Without it every use of a name would be four lookups and, for prefixed elements, a string to build. Names never
/// move while a document is read, so the parser keeps references to those of the open elements.
class ResolvedNames
{
public:
    /// Forgets the names of the last document. The strings' memory stays for the next one.
    void begin(const Vocabulary<QualifiedNameEntry>& table, const DocumentVocabulary& vocabulary);

    /// The name with that index. Throws what the tables throw if the index, or one that its entry holds, is beyond
    /// their end, and FISException if the qualified names of the document are out of proportion to their number.
    const ResolvedName& name(unsigned int index);

private:
    const ResolvedName& resolve(unsigned int index);

    const Vocabulary<QualifiedNameEntry>* _table = nullptr;
    const DocumentVocabulary* _vocabulary = nullptr;
    VerbTable<ResolvedName> _names;
    std::size_t _qualifiedOctets = 0; // of all qualified names of the document
};

inline const ResolvedName& ResolvedNames::name(unsigned int index)
{
    if (index < _names.size() && _names[index].resolved)
        return _names[index];
    return resolve(index);
}

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_RESOLVEDNAMES_H
