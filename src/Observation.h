// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_OBSERVATION_H
#define VESK_FASTINFOSET_OBSERVATION_H

#include "Vesk/FastInfoset/StructureObserver.h"

// What the parser's classes tell a StructureObserver goes through one of these two classes, which they take as a template
// argument. Each class of the parser is compiled once with each: an unobserved parser has no trace of it in its code.

namespace Vesk::FastInfoset
{

class BitStreamReader;
class QualifiedNameEntry;

/// Tells an observer. Knows where the part that is being read began, since parts leave no gap. A part ends where the
/// reader stands, or restBits before if these, of the octet that was read last, belong to what follows.
class Observed
{
public:
    using Structure = StructureObserver::Structure;
    using Table = StructureObserver::Table;
    using Form = StructureObserver::Form;
    using Part = StructureObserver::Part;

    static constexpr bool ENABLED = true;

    /// Starts with a document. All are borrowed.
    void begin(const BitStreamReader& reader, const DocumentVocabulary& vocabulary, StructureObserver* observer);

    /// For functions that are compiled once and test the pointer.
    Observed* pointer() { return this; }

    void start(Structure structure) { _observer->startStructure(structure); }
    void end(Structure structure) { _observer->endStructure(structure); }

    /// Starts the entries of a table in the initial vocabulary; strings and names up to its end are entries of it.
    void startTable(Table table);
    void endTable();

    /// A part that says no more than its kind.
    void part(Part::Kind kind, unsigned int restBits = 0);
    void flags(Part::Kind kind, unsigned long value);
    void count(unsigned long items);
    void literalName(Table table);
    void xmlDeclaration(const std::string& text);

    /// What is known of a string before it is complete, and the string. A string of which nothing was known is UTF-8 that
    /// enters no table.
    void form(Form form, unsigned int index = 0);
    void added(unsigned int index);
    void indexed(unsigned int index);
    void string(int table, const std::string* text);
    void string(const std::string& text) { string(static_cast<int>(_table), &text); }

    /// A name that has just been read as an index, or literally.
    void indexedName(Table table, unsigned int index, const ResolvedQualName& name);
    void addedName(Table table, unsigned int index, const ResolvedQualName& name);
    /// A name of the initial vocabulary. It may refer to strings that are not there.
    void surrogate(unsigned int index, const QualifiedNameEntry& entry);

private:
    void tell(Part& part, unsigned int restBits = 0);
    void tellName(Table table, StructureObserver::Indexing indexing, unsigned int index, const ResolvedQualName* name);
    const std::string* namePart(DocumentVocabulary::ID table, unsigned int index) const;

    StructureObserver* _observer = nullptr;
    const BitStreamReader* _reader = nullptr;
    const DocumentVocabulary* _vocabulary = nullptr;
    unsigned long _beginBit = 0; // of the part that is being read
    Table _table = Table::NONE;  // of the initial vocabulary
    Part _string{};              // as far as it is known
};

/// Tells nobody and costs nothing.
class Unobserved
{
public:
    static constexpr bool ENABLED = false;

    void begin(const BitStreamReader&, const DocumentVocabulary&, StructureObserver*) {}
    Observed* pointer() { return nullptr; }
    void start(Observed::Structure) {}
    void end(Observed::Structure) {}
    void part(Observed::Part::Kind, unsigned int = 0) {}
    void flags(Observed::Part::Kind, unsigned long) {}
    void literalName(Observed::Table) {}
    void form(Observed::Form, unsigned int = 0) {}
    void added(unsigned int) {}
    void indexed(unsigned int) {}
    void string(int, const std::string*) {}
    void string(const std::string&) {}
    void indexedName(Observed::Table, unsigned int, const ResolvedQualName&) {}
    void addedName(Observed::Table, unsigned int, const ResolvedQualName&) {}
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_OBSERVATION_H
