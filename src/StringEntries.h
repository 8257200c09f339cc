// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_STRINGENTRIES_H
#define VESK_FASTINFOSET_STRINGENTRIES_H

#include "Vesk/FastInfoset/VectorVocabulary.h"
#include <string>
#include <vector>

namespace Vesk::FastInfoset
{

/// The entries of a string table while a document is read, each two loads away.
///
/// The table itself is asked once for each entry that is used: finding the chunk in which an entry lies takes several
/// times as long as a load, and most of what a document holds are indexes.
class StringEntries
{
public:
    /// Starts with a document. The table is borrowed; its entries stay where they are until the next document.
    void begin(Vocabulary<std::string>& table);

    /// The entry with that index. Throws what the table throws if there is none.
    const std::string& operator[](unsigned int index)
    {
        return index < _entries.size() ? *_entries[index] : find(index);
    }

    /// Remembers an entry that the table has just got, so that it need not be asked.
    void note(unsigned int index, const std::string& entry)
    {
        if (index == _entries.size())
            _entries.push_back(&entry);
        else
            find(index); // with those before it
    }

    /// The index of a text that enters the table unless it is there already.
    unsigned int enter(const std::string& text)
    {
        bool existed = false;
        return _table->index(text, existed);
    }

    /// The table if it is one that takes every text without looking it up, so that texts can be read where they stay.
    VectorVocabulary<std::string>* vector() { return _vector; }

private:
    const std::string& find(unsigned int index);

    Vocabulary<std::string>* _table = nullptr;
    VectorVocabulary<std::string>* _vector = nullptr;
    std::vector<const std::string*> _entries; // the first ones of the table
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_STRINGENTRIES_H
