// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/Bugcheck.h"
#include "Vesk/FastInfoset/HashVocabulary.h"
#include "Vesk/FastInfoset/MapVocabulary.h"
#include "Vesk/FastInfoset/VectorVocabulary.h"
#include "VocabularyEntry.h"
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace Vesk::FastInfoset
{

namespace
{

constexpr unsigned int FIRST_STRING_TABLE = DocumentVocabulary::PREFIX;
constexpr unsigned int ID_COUNT = DocumentVocabulary::CONTENT_CHARACTER_CHUNK + 1;

// What the hash tables hold at most, by ID; the first two have no string table. Callers can rely on these limits: a writer
// fails at exactly so many distinct values. Documents with more belong into map tables.
constexpr unsigned int STRING_TABLE_SIZES[ID_COUNT] = {0, 0, 251, 251, 40009, 40009, 19, 40009, 19, 65521};
constexpr unsigned int NAME_TABLE_SIZE = 10009;

// The built-in entries 1 of the prefixes and the namespace names (X.891 clauses 7.2.21 and 7.2.22). Functions, because
// vocabularies may be static objects of other sources.
const std::string& xmlPrefix()
{
    static const std::string prefix = "xml";
    return prefix;
}

const std::string& xmlNamespace()
{
    static const std::string name = "http://www.w3.org/XML/1998/namespace";
    return name;
}

template <class Table>
std::unique_ptr<Table> makeTable(unsigned int tableSize)
{
    if constexpr (std::is_constructible_v<Table, unsigned int>)
        return std::make_unique<Table>(tableSize);
    else
        return std::make_unique<Table>();
}

template <class T>
bool hasSize(const HashVocabulary<T>& table, unsigned int tableSize)
{
    return table.tableSize() == tableSize;
}

template <class Table>
bool hasSize(const Table&, unsigned int)
{
    return true;
}

/// Leaves a table of class Table with nothing but the reserved entry. A table that is one already is reused, wherever it
/// came from, because its own reset() is much cheaper than a new table.
template <class Table, class T>
void restore(std::unique_ptr<Vocabulary<T>>& owner, unsigned int tableSize)
{
    const Vocabulary<T>* const old = owner.get();
    // Comparing types costs a tenth of what dynamic_cast does, ten times a document.
    if (old == nullptr || typeid(*old) != typeid(Table) || !hasSize(static_cast<const Table&>(*old), tableSize))
        owner = makeTable<Table>(tableSize);
    static_cast<Table&>(*owner).reset();
}

template <class T>
std::unique_ptr<Vocabulary<T>> cloned(const std::unique_ptr<Vocabulary<T>>& table)
{
    return std::unique_ptr<Vocabulary<T>>(table ? table->clone() : nullptr);
}

template <class T>
std::unique_ptr<Vocabulary<T>> difference(const Vocabulary<T>& table, const Vocabulary<T>& other)
{
    return std::unique_ptr<Vocabulary<T>>(table.subtract(other));
}

template <class T>
bool isUnused(const std::unique_ptr<Vocabulary<T>>& table)
{
    return table && holdsOnlyReservedEntry(table->entries());
}

bool holdsOnly(const std::unique_ptr<Vocabulary<std::string>>& table, const std::string& entry)
{
    return table && table->entries().size() == 2 && table->entries()[0].empty() && table->entries()[1] == entry;
}

} // namespace

DocumentVocabulary::DocumentVocabulary(VocabularyImpl impl)
    : _implementation(impl)
{
    reset();
}

DocumentVocabulary::DocumentVocabulary(const std::string& uri, VocabularyImpl impl)
    : _implementation(impl),
      _externalVocabularyURI(uri)
{
    reset();
}

DocumentVocabulary::DocumentVocabulary(DontInitialize)
{
}

DocumentVocabulary::DocumentVocabulary(const DocumentVocabulary& other)
    : _implementation(other._implementation),
      _restrictedAlphabets(other._restrictedAlphabets),
      _encodingAlgorithm(other._encodingAlgorithm),
      _decodingAlgorithm(other._decodingAlgorithm),
      _elementNames(cloned(other._elementNames)),
      _attributeNames(cloned(other._attributeNames)),
      _externalVocabularyURI(other._externalVocabularyURI)
{
    _vocabularies.reserve(other._vocabularies.size());
    for (const StringTable& table : other._vocabularies)
        _vocabularies.push_back(cloned(table));
}

DocumentVocabulary::DocumentVocabulary(DocumentVocabulary&& other) noexcept = default;

DocumentVocabulary::~DocumentVocabulary() = default;

DocumentVocabulary& DocumentVocabulary::operator=(const DocumentVocabulary& other)
{
    if (this != &other)
        *this = DocumentVocabulary(other);
    return *this;
}

DocumentVocabulary& DocumentVocabulary::operator=(DocumentVocabulary&& other) noexcept = default;

DocumentVocabulary DocumentVocabulary::operator-(const DocumentVocabulary& other) const
{
    DocumentVocabulary result(DONT_INITIALIZE);
    result._implementation = _implementation;
    for (std::size_t id = 0; id < _vocabularies.size(); ++id)
    {
        if (id >= other._vocabularies.size())
            Bugcheck::assertion("itDoc != doc._vocabularies.end()", "src/DocumentVocabulary", 188);
        const StringTable& mine = _vocabularies[id];
        const StringTable& others = other._vocabularies[id];
        result._vocabularies.push_back(mine && others ? difference(*mine, *others) : cloned(mine));
    }
    if (!_vocabularies.empty())
    {
        result._elementNames = difference(elementNames(), other.elementNames());
        result._attributeNames = difference(attributeNames(), other.attributeNames());
    }
    result._restrictedAlphabets = _restrictedAlphabets - other._restrictedAlphabets;
    return result;
}

void DocumentVocabulary::clear()
{
    _vocabularies.clear();
    _elementNames.reset();
    _attributeNames.reset();
}

void DocumentVocabulary::reset()
{
    switch (_implementation)
    {
    case VOC_HASH:
        create<HashVocabulary<std::string>, HashVocabulary<QualifiedNameEntry>>();
        break;
    case VOC_MAP:
        create<MapVocabulary<std::string>, MapVocabulary<QualifiedNameEntry>>();
        break;
    case VOC_VECTOR:
        create<VectorVocabulary<std::string>, VectorVocabulary<QualifiedNameEntry>>();
        break;
    default:
        Bugcheck::assertion("impl <= VOC_VECTOR", "src/DocumentVocabulary", __LINE__);
    }
    init();
}

template <class S, class Q>
void DocumentVocabulary::create()
{
    restore<Q>(_elementNames, NAME_TABLE_SIZE);
    restore<Q>(_attributeNames, NAME_TABLE_SIZE);

    _vocabularies.resize(ID_COUNT);
    _vocabularies[RESTRICTED_ALPHABET].reset();
    _vocabularies[ENCODING_ALGORITHM].reset();
    for (unsigned int id = FIRST_STRING_TABLE; id < ID_COUNT; ++id)
        restore<S>(_vocabularies[id], STRING_TABLE_SIZES[id]);
}

void DocumentVocabulary::init()
{
    bool found = false;
    if (_vocabularies[PREFIX]->index(xmlPrefix(), found) != 1)
    {
        Bugcheck::assertion("_vocabularies[DocumentVocabulary::PREFIX]->index(\"xml\", dummy) == 1",
                            "src/DocumentVocabulary", 164);
    }
    if (_vocabularies[NAMESPACE_NAME]->index(xmlNamespace(), found) != 1)
    {
        Bugcheck::assertion("_vocabularies[DocumentVocabulary::NAMESPACE_NAME]->index("
                            "\"http://www.w3.org/XML/1998/namespace\", dummy) == 1",
                            "src/DocumentVocabulary", 167);
    }
}

void DocumentVocabulary::initialize(ID id, Vocabulary<std::string>* voc)
{
    if (id >= _vocabularies.size())
        Bugcheck::assertion("id < _vocabularies.size()", "src/DocumentVocabulary", __LINE__);
    if (_vocabularies[id].get() != voc)
        _vocabularies[id].reset(voc);
}

bool DocumentVocabulary::isBuiltIn() const
{
    if (_vocabularies.size() != ID_COUNT || _vocabularies[RESTRICTED_ALPHABET] || _vocabularies[ENCODING_ALGORITHM])
        return false;
    for (unsigned int id = LOCAL_NAME; id < ID_COUNT; ++id)
    {
        if (!isUnused(_vocabularies[id]))
            return false;
    }
    return holdsOnly(_vocabularies[PREFIX], xmlPrefix()) && holdsOnly(_vocabularies[NAMESPACE_NAME], xmlNamespace()) &&
           isUnused(_elementNames) && isUnused(_attributeNames) && _restrictedAlphabets.isBuiltIn();
}

void DocumentVocabulary::noTable()
{
    Bugcheck::nullPointer("_vocabularies[id]", "src/DocumentVocabulary", __LINE__);
}

} // namespace Vesk::FastInfoset
