// SPDX-License-Identifier: MIT
#include "ResolvedNames.h"
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/QualifiedNameEntry.h"
#include "Vesk/FastInfoset/Vocabulary.h"

namespace Vesk::FastInfoset
{

namespace
{

// How a name surrogate of an initial vocabulary marks a part that is not there.
constexpr unsigned int ABSENT = 0xFFFFFFFF;

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
        name.qualifiedName.append(*prefix).append(1, ':').append(*localName);
    name.resolved = true;
    return name;
}

} // namespace Vesk::FastInfoset
