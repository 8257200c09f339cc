// SPDX-License-Identifier: MIT
#include "ResolvedNames.h"
#include "ReleaseLarge.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/QualifiedNameEntry.h"
#include <algorithm>

namespace Vesk::FastInfoset
{

namespace
{

// What the qualified names of a document may take: so much in any case, and so much for each name on average. A name of
// three octets can refer to a prefix of any length, so without a bound memory would grow with their product.
constexpr std::size_t FREE_OCTETS = 4 * 1024 * 1024;
constexpr std::size_t OCTETS_PER_NAME = 256;

constexpr std::size_t FIRST_SLOTS = 16; // what small documents need, all at once

// What is kept from one document to the next.
constexpr std::size_t KEPT_SLOTS = 1024;

const std::string* part(StringEntries& entries, unsigned int index)
{
    return index == QualifiedNameEntry::ABSENT ? &FastInfosetParser::EMPTY_STRING : &entries[index];
}

} // namespace

ResolvedNames::ResolvedNames(StringEntries& prefixes, StringEntries& namespaceNames, StringEntries& localNames)
    : _prefixes(prefixes),
      _namespaceNames(namespaceNames),
      _localNames(localNames)
{
}

void ResolvedNames::begin(Vocabulary<QualifiedNameEntry>& table, bool areQualified)
{
    _table = &table;
    _areQualified = areQualified;
    ++_document;
    releaseLarge(_slots, KEPT_SLOTS);
    for (unsigned int i = 0; i < _names.size(); ++i)
        releaseLarge(_names[i].qualifiedName, OCTETS_PER_NAME);
    _names.truncate(0);
    _qualifiedOctets = 0;
}

const ResolvedName& ResolvedNames::resolve(unsigned int index)
{
    const QualifiedNameEntry& entry = _table->value(index);
    const std::string* prefix = part(_prefixes, entry.prefix());
    const std::string* namespaceName = part(_namespaceNames, entry.namespaceName());
    const std::string* localName = part(_localNames, entry.localName());

    // The index is within the table, so this never grows beyond it.
    if (_slots.size() <= index)
        _slots.resize(std::max(FIRST_SLOTS, index + std::size_t(1)));
    ResolvedName& name = _names.spare();
    name.prefix = prefix;
    name.namespaceName = namespaceName;
    name.localName = localName;
    if (_areQualified && !prefix->empty())
        qualify(name);
    else
        name.qualifiedName.clear();
    _names.addSpare();
    _slots[index] = {_document, &name};
    return name;
}

void ResolvedNames::qualify(ResolvedName& name)
{
    _qualifiedOctets += name.prefix->size() + 1 + name.localName->size();
    if (_qualifiedOctets > FREE_OCTETS + OCTETS_PER_NAME * _slots.size())
        throw FISException("Qualified names too long");
    name.qualifiedName = *name.prefix;
    name.qualifiedName += ':';
    name.qualifiedName += *name.localName;
}

} // namespace Vesk::FastInfoset
