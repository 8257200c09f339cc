// SPDX-License-Identifier: MIT
#include "Observation.h"
#include "Vesk/FastInfoset/BitStreamReader.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/QualifiedNameEntry.h"

namespace Vesk::FastInfoset
{

void Observed::begin(const BitStreamReader& reader, const DocumentVocabulary& vocabulary, StructureObserver* observer)
{
    *this = Observed();
    _reader = &reader;
    _vocabulary = &vocabulary;
    _observer = observer;
}

void Observed::startTable(Table table)
{
    _table = table;
    start(Structure::VOCABULARY_TABLE);
}

void Observed::endTable()
{
    end(Structure::VOCABULARY_TABLE);
    _table = Table::NONE;
}

void Observed::part(Part::Kind kind, unsigned int restBits)
{
    Part part{};
    part.kind = kind;
    tell(part, restBits);
}

void Observed::flags(Part::Kind kind, unsigned long value)
{
    Part part{};
    part.kind = kind;
    part.value = value;
    tell(part);
}

void Observed::count(unsigned long items)
{
    Part part{};
    part.kind = Part::COUNT;
    part.value = items;
    part.table = _table;
    tell(part);
}

void Observed::literalName(Table table)
{
    Part part{};
    part.kind = Part::LITERAL_NAME;
    part.table = table;
    tell(part);
}

void Observed::xmlDeclaration(const std::string& text)
{
    Part part{};
    part.kind = Part::XML_DECLARATION;
    part.text = &text;
    tell(part);
}

void Observed::form(Form form, unsigned int index)
{
    _string.form = form;
    _string.formIndex = index;
}

void Observed::added(unsigned int index)
{
    _string.indexing = StructureObserver::Indexing::ADDED;
    _string.index = index;
}

void Observed::indexed(unsigned int index)
{
    _string.indexing = StructureObserver::Indexing::INDEXED;
    _string.index = index;
}

void Observed::string(int table, const std::string* text)
{
    Part part = _string;
    _string = Part{};
    part.kind = Part::STRING;
    part.table = static_cast<Table>(table);
    part.text = text;
    tell(part);
}

void Observed::indexedName(Table table, unsigned int index, const ResolvedQualName& name)
{
    tellName(table, StructureObserver::Indexing::INDEXED, index, &name);
}

void Observed::addedName(Table table, unsigned int index, const ResolvedQualName& name)
{
    tellName(table, StructureObserver::Indexing::ADDED, index, &name);
}

void Observed::surrogate(unsigned int index, const QualifiedNameEntry& entry)
{
    ResolvedQualName name;
    name.prefix = namePart(DocumentVocabulary::PREFIX, entry.prefix());
    name.namespaceName = namePart(DocumentVocabulary::NAMESPACE_NAME, entry.namespaceName());
    name.localName = namePart(DocumentVocabulary::LOCAL_NAME, entry.localName());
    const bool isComplete = name.prefix && name.namespaceName && name.localName;
    tellName(_table, StructureObserver::Indexing::ADDED, index, isComplete ? &name : nullptr);
}

void Observed::tell(Part& part, unsigned int restBits)
{
    part.beginBit = _beginBit;
    part.endBit = 8 * _reader->octetPosition() + static_cast<unsigned long>(_reader->bitOffset()) - restBits;
    _beginBit = part.endBit;
    _observer->part(part);
}

void Observed::tellName(Table table, StructureObserver::Indexing indexing, unsigned int index,
                        const ResolvedQualName* name)
{
    Part part{};
    part.kind = Part::NAME;
    part.table = table;
    part.indexing = indexing;
    part.index = index;
    part.name = name;
    tell(part);
}

const std::string* Observed::namePart(DocumentVocabulary::ID table, unsigned int index) const
{
    if (index == QualifiedNameEntry::ABSENT)
        return &FastInfosetParser::EMPTY_STRING;
    const VerbTable<std::string>& entries = _vocabulary->vocabulary(table).entries();
    return index < entries.size() ? &entries[index] : nullptr;
}

} // namespace Vesk::FastInfoset
