// SPDX-License-Identifier: MIT
#include "StringEntries.h"
#include "ReleaseLarge.h"
#include <typeinfo>

namespace Vesk::FastInfoset
{

namespace
{

constexpr std::size_t KEPT_ENTRIES = 16 * 1024;

} // namespace

void StringEntries::begin(Vocabulary<std::string>& table)
{
    using Vector = VectorVocabulary<std::string>;
    _table = &table;
    _vector = typeid(table) == typeid(Vector) ? static_cast<Vector*>(&table) : nullptr;
    releaseLarge(_entries, KEPT_ENTRIES);
    _entries.clear();
}

const std::string& StringEntries::find(unsigned int index)
{
    const VerbTable<std::string>& entries = _table->entries();
    if (index >= entries.size())
        return _table->value(index);
    if (_entries.capacity() == 0)
        _entries.reserve(32); // for small documents all at once
    while (_entries.size() <= index)
        _entries.push_back(&entries[static_cast<unsigned int>(_entries.size())]);
    return *_entries[index];
}

} // namespace Vesk::FastInfoset
