// SPDX-License-Identifier: MIT
#ifndef VESKFI_DOCUMENTSTATISTICS_H
#define VESKFI_DOCUMENTSTATISTICS_H

#include "Vesk/FastInfoset/StructureObserver.h"
#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Vesk::Tool
{

/// Counts where the bits of a document go.
class DocumentStatistics : public FastInfoset::StructureObserver
{
public:
    /// What the parts of a document are counted as.
    enum Item
    {
        HEADER, ///< and what belongs to no other item
        INITIAL_VOCABULARY,
        DECLARATIONS, ///< notations, unparsed entities, document type declarations, entity references
        ELEMENTS,     ///< where elements and their lists of attributes start and end, with the padding there
        ELEMENT_NAMES,
        NAMESPACES, ///< namespace attributes
        ATTRIBUTE_NAMES,
        ATTRIBUTE_VALUES,
        TEXT,
        COMMENTS,
        PROCESSING_INSTRUCTIONS,
        ITEM_COUNT
    };

    static const char* nameOf(Item item);

    struct Cost
    {
        unsigned long count = 0; ///< how many of them there are
        unsigned long bits = 0;
    };

    /// What a table was good for.
    struct TableUse
    {
        unsigned long entries = 0; ///< that the document added, in its initial vocabulary or later
        unsigned long unused = 0;  ///< how many of these no index refers to
        unsigned long hits = 0;    ///< how many indexes stand in the document
        long savedBits = 0;        ///< how much more literals in their places would take
    };

    /// A name or another string, and what all its occurrences take.
    struct Expense
    {
        Table table = Table::NONE;
        std::string text; ///< its first characters
        Cost cost;
    };

    static constexpr std::size_t TABLE_COUNT = static_cast<std::size_t>(Table::ATTRIBUTE_NAME) + 1;

    unsigned long bits() const { return _bits; }
    const Cost& item(Item item) const { return _items[item]; }
    TableUse table(Table table) const;

    /// How literal strings are stored, the costliest form first.
    std::vector<std::pair<std::string, Cost>> forms() const;

    /// The costliest names and other strings, at most so many.
    std::vector<Expense> names(std::size_t maxCount) const;
    std::vector<Expense> strings(std::size_t maxCount) const;

    void startStructure(Structure structure) override;
    void part(const Part& part) override;
    void endStructure(Structure structure) override;

private:
    struct Entry
    {
        bool isAdded = false;
        unsigned long literalBits = 0; // of a literal in the place of an index
        unsigned long hits = 0;
        Expense expense;
    };

    Item itemOf(const Part& part) const;
    bool isCounted(const Part& part) const;
    void countName(const Part& part);
    void countString(const Part& part);
    Entry& countEntry(const Part& part, unsigned long literalBits);
    static void spend(Expense& expense, const Part& part, const std::string& text, unsigned long bits);
    std::vector<Expense> costliest(std::size_t maxCount, bool names) const;

    unsigned long _bits = 0;
    std::array<Cost, ITEM_COUNT> _items;
    std::array<std::vector<Entry>, TABLE_COUNT> _entries; // by table and index
    std::array<long, TABLE_COUNT> _savedBits{};
    // Strings in no table, by their hash: to keep them whole would take as much memory as the document. An ordered map,
    // since documents can be made to collide in others.
    std::map<std::pair<Table, std::size_t>, Expense> _literals;
    std::map<std::pair<Form, unsigned int>, Cost> _forms;
    std::vector<Structure> _open;
    bool _isInName = false;       // between the start of a literal name and its end
    unsigned long _nameBits = 0;  // of the literal name so far
    unsigned long _indexBits = 0; // the same if its strings were indexes
};

} // namespace Vesk::Tool

#endif // VESKFI_DOCUMENTSTATISTICS_H
