// SPDX-License-Identifier: MIT
#include "ResolvedNames.h"
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/QualifiedNameEntry.h"
#include "Vesk/FastInfoset/Vocabulary.h"

namespace Vesk::FastInfoset
{

namespace
{

// How a name surrogate of an initial vocabulary marks a part that is not there.
constexpr unsigned int ABSENT = 0xFFFFFFFF;

// What the qualified names of a document may take: so much in any case, and so much for each name on average. A name of
// three octets can refer to a prefix of any length, so without a bound memory would grow with their product.
constexpr std::size_t FREE_OCTETS = 4 * 1024 * 1024;
constexpr std::size_t OCTETS_PER_NAME = 256;

const std::string* part(const DocumentVocabulary& vocabulary, DocumentVocabulary::ID table, unsigned int index)
{
    return index == ABSENT ? &FastInfosetParser::EMPTY_STRING : &vocabulary.vocabulary(table).value(index);
}

} // namespace

void ResolvedNames::begin(const Vocabulary<QualifiedNameEntry>& table, const DocumentVocabulary& vocabulary)
{
    _table = &table;
    _vocabulary = &vocabulary;
    _names.truncate(0);
    _qualifiedOctets = 0;
}

const ResolvedName& ResolvedNames::resolve(unsigned int index)
{
    const QualifiedNameEntry& entry = _table->value(index);
    const std::string* prefix = part(*_vocabulary, DocumentVocabulary::PREFIX, entry.prefix());
    const std::string* namespaceName = part(*_vocabulary, DocumentVocabulary::NAMESPACE_NAME, entry.namespaceName());
    const std::string* localName = part(*_vocabulary, DocumentVocabulary::LOCAL_NAME, entry.localName());

    // The index is within the table, so this never grows beyond it.
    while (_names.size() <= index)
        _names.append(ResolvedName());
    ResolvedName& name = _names[index];
    name.prefix = prefix;
    name.namespaceName = namespaceName;
    name.localName = localName;
    name.qualifiedName.clear();
    if (!prefix->empty())
    {
        _qualifiedOctets += prefix->size() + 1 + localName->size();
        if (_qualifiedOctets > FREE_OCTETS + OCTETS_PER_NAME * std::size_t(_names.size()))
            throw FISException("Qualified names too long");
        name.qualifiedName.append(*prefix).append(1, ':').append(*localName);
    }
    name.resolved = true;
    return name;
}

} // namespace Vesk::FastInfoset
