// SPDX-License-Identifier: MIT
#include "DocumentStatistics.h"
#include "FormatNames.h"
#include <algorithm>
#include <functional>
#include <utility>

namespace Vesk::Tool
{

namespace
{

using Table = FastInfoset::StructureObserver::Table;
using Form = FastInfoset::StructureObserver::Form;

constexpr std::size_t KEPT_OCTETS = 256; // of a text, enough for what is shown of it
constexpr unsigned long OCTET_BITS = 8;

// An index from the second bit of an octet on (X.891 C.25), that bit included.
unsigned long indexBits(unsigned int index)
{
    if (index <= 64)
        return 8;
    return index <= 8256 ? 16 : 24;
}

// A literal in UTF-8, where the document does not show how long it is: the octet that it starts in, more octets of length
// for longer ones, and the text.
unsigned long literalBits(const std::string& text)
{
    if (text.empty())
        return 0; // there is no literal that is empty
    const unsigned long lengthOctets = text.size() <= 8 ? 0 : text.size() <= 264 ? 1 : 4;
    return 8 * (1 + lengthOctets + text.size());
}

// The last place up to the limit at which a character does not go on.
std::size_t startOfCharacter(const std::string& utf8, std::size_t limit)
{
    if (limit >= utf8.size())
        return utf8.size();
    while (limit > 0 && (static_cast<unsigned char>(utf8[limit]) & 0xC0) == 0x80)
        --limit;
    return limit;
}

// A literal name whose strings are indexes, where the document does not show it.
unsigned long literalBits(const FastInfoset::ResolvedQualName& name)
{
    return OCTET_BITS * (name.prefix->empty() ? 2 : 3) + (name.namespaceName->empty() ? 0 : OCTET_BITS);
}

} // namespace

const char* DocumentStatistics::nameOf(Item item)
{
    const char* const names[] = {"header",          "initial vocabulary",     "declarations",
                                 "elements",        "element names",          "namespace declarations",
                                 "attribute names", "attribute values",       "text",
                                 "comments",        "processing instructions"};
    return names[item];
}

DocumentStatistics::TableUse DocumentStatistics::table(Table table) const
{
    TableUse use;
    for (const Entry& entry : _entries[static_cast<std::size_t>(table)])
    {
        use.hits += entry.hits;
        use.entries += entry.isAdded ? 1 : 0;
        use.unused += entry.isAdded && entry.hits == 0 ? 1 : 0;
    }
    use.savedBits = _savedBits[static_cast<std::size_t>(table)];
    return use;
}

std::vector<std::pair<std::string, DocumentStatistics::Cost>> DocumentStatistics::forms() const
{
    std::vector<std::pair<std::string, Cost>> forms;
    for (const auto& [form, cost] : _forms)
        forms.emplace_back(Tool::nameOf(form.first, form.second), cost);
    std::sort(forms.begin(), forms.end(), [](const auto& a, const auto& b) { return a.second.bits > b.second.bits; });
    return forms;
}

std::vector<DocumentStatistics::Expense> DocumentStatistics::names(std::size_t maxCount) const
{
    return costliest(maxCount, true);
}

std::vector<DocumentStatistics::Expense> DocumentStatistics::strings(std::size_t maxCount) const
{
    return costliest(maxCount, false);
}

void DocumentStatistics::startStructure(Structure structure)
{
    _open.push_back(structure);
}

void DocumentStatistics::endStructure(Structure)
{
    _open.pop_back();
}

void DocumentStatistics::part(const Part& part)
{
    const unsigned long bits = part.endBit - part.beginBit;
    _bits += bits;
    Cost& item = _items[itemOf(part)];
    item.bits += bits;
    item.count += isCounted(part) ? 1 : 0;
    switch (part.kind)
    {
    case Part::LITERAL_NAME:
        _isInName = true;
        _nameBits = bits;
        _indexBits = bits;
        break;
    case Part::STRING:
        countString(part);
        break;
    case Part::NAME:
        countName(part);
        break;
    default:
        break;
    }
}

DocumentStatistics::Item DocumentStatistics::itemOf(const Part& part) const
{
    switch (_open.back())
    {
    case Structure::INITIAL_VOCABULARY:
    case Structure::VOCABULARY_TABLE:
        return INITIAL_VOCABULARY;
    case Structure::NOTATIONS:
    case Structure::NOTATION:
    case Structure::UNPARSED_ENTITIES:
    case Structure::UNPARSED_ENTITY:
    case Structure::DOCUMENT_TYPE_DECLARATION:
    case Structure::ENTITY_REFERENCE:
        return DECLARATIONS;
    case Structure::ELEMENT:
        return part.kind == Part::LITERAL_NAME || part.kind == Part::STRING || part.kind == Part::NAME ? ELEMENT_NAMES
                                                                                                       : ELEMENTS;
    case Structure::NAMESPACE_ATTRIBUTES:
    case Structure::NAMESPACE_ATTRIBUTE:
        return NAMESPACES;
    case Structure::ATTRIBUTES:
        return ELEMENTS;
    case Structure::ATTRIBUTE:
        return part.kind == Part::STRING && !_isInName ? ATTRIBUTE_VALUES : ATTRIBUTE_NAMES;
    case Structure::CHARACTER_CHUNK:
        return TEXT;
    case Structure::PROCESSING_INSTRUCTION:
        return PROCESSING_INSTRUCTIONS;
    case Structure::COMMENT:
        return COMMENTS;
    default:
        return HEADER;
    }
}

// One part of each item stands for it.
bool DocumentStatistics::isCounted(const Part& part) const
{
    switch (itemOf(part))
    {
    case HEADER:
        return part.kind == Part::IDENTIFICATION;
    case INITIAL_VOCABULARY:
        return part.kind == Part::STRING || part.kind == Part::NAME;
    case ELEMENT_NAMES:
    case ATTRIBUTE_NAMES:
        return part.kind == Part::NAME;
    case ATTRIBUTE_VALUES:
        return true;
    default:
        return part.kind == Part::START;
    }
}

void DocumentStatistics::countName(const Part& part)
{
    const bool isLiteral = std::exchange(_isInName, false);
    if (!part.name)
        return; // of the initial vocabulary, and its strings are not there
    const unsigned long bits = isLiteral ? _nameBits : part.endBit - part.beginBit;
    Entry& entry = countEntry(part, isLiteral ? _indexBits : literalBits(*part.name));
    spend(entry.expense, part, qualifiedName(*part.name), bits);
}

void DocumentStatistics::countString(const Part& part)
{
    if (!part.text)
        return; // an index without an entry: the document will fail
    const unsigned long bits = part.endBit - part.beginBit;
    const bool isIndex = part.indexing == StructureObserver::Indexing::INDEXED;
    if (!isIndex)
    {
        Cost& form = _forms[{part.form, part.formIndex}];
        ++form.count;
        form.bits += bits;
    }
    Expense* expense = nullptr;
    if (part.indexing == StructureObserver::Indexing::LITERAL)
        expense = _isInName ? nullptr : &_literals[{part.table, std::hash<std::string>()(*part.text)}];
    else
        expense = &countEntry(part, isIndex ? literalBits(*part.text) : bits).expense;

    if (!_isInName)
    {
        spend(*expense, part, *part.text, bits);
        return;
    }
    _nameBits += bits;
    _indexBits += indexBits(part.index);
}

// literalBits is taken for entries that the document did not add, as those of an external vocabulary.
DocumentStatistics::Entry& DocumentStatistics::countEntry(const Part& part, unsigned long literalBits)
{
    const auto table = static_cast<std::size_t>(part.table);
    std::vector<Entry>& entries = _entries[table];
    if (part.index >= entries.size())
        entries.resize(part.index + 1);
    Entry& entry = entries[part.index];
    if (part.indexing == StructureObserver::Indexing::ADDED)
    {
        entry.isAdded = true;
        entry.literalBits = literalBits;
        return entry;
    }
    if (!entry.isAdded)
        entry.literalBits = literalBits;
    ++entry.hits;
    _savedBits[table] += static_cast<long>(entry.literalBits) - static_cast<long>(part.endBit - part.beginBit);
    return entry;
}

void DocumentStatistics::spend(Expense& expense, const Part& part, const std::string& text, unsigned long bits)
{
    if (expense.cost.count == 0)
    {
        expense.table = part.table;
        expense.text = text.substr(0, startOfCharacter(text, KEPT_OCTETS));
    }
    ++expense.cost.count;
    expense.cost.bits += bits;
}

std::vector<DocumentStatistics::Expense> DocumentStatistics::costliest(std::size_t maxCount, bool names) const
{
    std::vector<const Expense*> expenses;
    for (const Table table : {Table::ELEMENT_NAME, Table::ATTRIBUTE_NAME})
    {
        for (const Entry& entry : _entries[static_cast<std::size_t>(table)])
            expenses.push_back(&entry.expense);
    }
    if (!names)
    {
        expenses.clear();
        for (std::size_t table = 0; table < static_cast<std::size_t>(Table::ELEMENT_NAME); ++table)
        {
            for (const Entry& entry : _entries[table])
                expenses.push_back(&entry.expense);
        }
        for (const auto& literal : _literals)
            expenses.push_back(&literal.second);
    }
    const std::size_t count = std::min(maxCount, expenses.size());
    std::partial_sort(expenses.begin(), expenses.begin() + static_cast<std::ptrdiff_t>(count), expenses.end(),
                      [](const Expense* a, const Expense* b) { return a->cost.bits > b->cost.bits; });
    std::vector<Expense> result;
    for (std::size_t i = 0; i < count && expenses[i]->cost.count > 0; ++i)
        result.push_back(*expenses[i]);
    return result;
}

} // namespace Vesk::Tool
