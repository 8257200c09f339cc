// SPDX-License-Identifier: MIT
#include "ExceptionMatcher.h"
#include "Vesk/FastInfoset/HashVocabulary.h"
#include "Vesk/FastInfoset/MapVocabulary.h"
#include "Vesk/FastInfoset/VectorVocabulary.h"
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <random>
#include <stdexcept>
#include <vector>

using namespace Vesk::FastInfoset;

namespace
{

constexpr unsigned int NOT_FOUND = Vocabulary<std::string>::NOT_FOUND;
constexpr unsigned int UNLIMITED = 0xFFFFFFFF;

template <class T>
using Table = std::unique_ptr<Vocabulary<T>>;

enum Kind
{
    VECTOR,
    MAP,
    HASH
};

/// What a table should do, in the plainest form.
template <class T>
struct Model
{
    Kind kind;
    unsigned int limit;
    std::vector<T> entries;
    std::map<T, unsigned int> firstIndexes;

    unsigned int find(const T& value) const
    {
        const auto it = firstIndexes.find(value);
        return it == firstIndexes.end() ? NOT_FOUND : it->second;
    }

    void add(const T& value)
    {
        firstIndexes.emplace(value, static_cast<unsigned int>(entries.size()));
        entries.push_back(value);
    }

    Model minus(const Model& other) const
    {
        Model difference{kind, limit, {}, {}};
        for (const T& entry : entries)
        {
            if (other.find(entry) == NOT_FOUND)
                difference.add(entry);
        }
        return difference;
    }
};

/// A table and its model, the two changed side by side.
template <class T>
struct Pair
{
    Model<T> model;
    Table<T> table;
};

/// The number-th of endlessly many distinct values. Number 0 is the reserved entry.
template <class T>
T valueOf(unsigned int number);

template <>
std::string valueOf<std::string>(unsigned int number)
{
    if (number == 0)
        return std::string();
    // Short ones, ones with zero octets, ones that differ at the end only, and now and then one that is large.
    const std::size_t length = number % 97 == 0 ? 1500 : number % 41;
    return std::string(length, number % 3 == 0 ? '\0' : 'x') + std::to_string(number);
}

template <>
QualifiedNameEntry valueOf<QualifiedNameEntry>(unsigned int number)
{
    return QualifiedNameEntry(number % 5, number / 5 % 7, number / 35);
}

bool same(const std::string& left, const std::string& right)
{
    return left == right;
}

bool same(const QualifiedNameEntry& left, const QualifiedNameEntry& right)
{
    return !(left < right) && !(right < left);
}

template <class T>
Pair<T> makePair(Kind kind, unsigned int hashSize)
{
    Pair<T> pair{{kind, kind == HASH ? hashSize : UNLIMITED, {}, {}}, nullptr};
    if (kind == VECTOR)
        pair.table = std::make_unique<VectorVocabulary<T>>();
    else if (kind == MAP)
        pair.table = std::make_unique<MapVocabulary<T>>();
    else
    {
        pair.table = std::make_unique<HashVocabulary<T>>(hashSize);
        if (std::is_same_v<T, std::string>)
            pair.model.add(T());
    }
    return pair;
}

template <class T>
void reset(Pair<T>& pair)
{
    if (auto* vector = dynamic_cast<VectorVocabulary<T>*>(pair.table.get()))
        vector->reset();
    else if (auto* map = dynamic_cast<MapVocabulary<T>*>(pair.table.get()))
        map->reset();
    else
        dynamic_cast<HashVocabulary<T>&>(*pair.table).reset();
    pair.model.entries.clear();
    pair.model.firstIndexes.clear();
    pair.model.add(T());
}

template <class T>
void expectIndexLikeModel(Pair<T>& pair, const T& value)
{
    const unsigned int before = pair.table->size();
    const unsigned int known = pair.model.kind == VECTOR ? NOT_FOUND : pair.model.find(value);
    if (known == NOT_FOUND && before >= pair.model.limit)
    {
        bool found = false;
        EXPECT_VESK_THROW(pair.table->index(value, found), Vesk::PoolOverflowException, "Vocabulary hash table full");
        return;
    }
    bool found = known == NOT_FOUND;
    EXPECT_EQ(pair.table->index(value, found), known == NOT_FOUND ? before : known);
    EXPECT_EQ(found, known != NOT_FOUND);
    if (!found)
        pair.model.add(value);
}

template <class T>
void expectLikeModel(const Vocabulary<T>& table, const Model<T>& model)
{
    ASSERT_EQ(table.size(), model.entries.size());
    ASSERT_EQ(table.entries().size(), model.entries.size());
    EXPECT_EQ(table.empty(), model.entries.empty());
    for (unsigned int i = 0; i < table.size(); ++i)
    {
        ASSERT_TRUE(same(table.value(i), model.entries[i])) << i;
        ASSERT_EQ(&table.value(i), &table.entries()[i]);
    }
}

template <class T>
void expectExistsLikeModel(const Pair<T>& pair, const T& value)
{
    const unsigned int known = pair.model.find(value);
    bool found = known == NOT_FOUND;
    EXPECT_EQ(pair.table->exists(value, found), known);
    EXPECT_EQ(found, known != NOT_FOUND);
}

/// Puts tables of all kinds through random operations and compares each with its model.
template <class T>
void runRandomOperations(unsigned int seed)
{
    std::mt19937 random(seed);
    const auto below = [&random](unsigned int bound)
    {
        return static_cast<unsigned int>(random() % bound);
    };

    std::vector<Pair<T>> pairs;
    for (Kind kind : {VECTOR, MAP, HASH, MAP, HASH})
        pairs.push_back(makePair<T>(kind, 1 + below(120)));

    const unsigned int universe = 1 + below(400);
    for (int step = 0; step < 4000 && !testing::Test::HasFailure(); ++step)
    {
        Pair<T>& pair = pairs[below(static_cast<unsigned int>(pairs.size()))];
        const Pair<T>& other = pairs[below(static_cast<unsigned int>(pairs.size()))];
        const T value = valueOf<T>(below(universe));
        const unsigned int operation = below(200);
        if (operation < 140)
            expectIndexLikeModel(pair, value);
        else if (operation < 190)
            expectExistsLikeModel(pair, value);
        else if (operation < 193)
            reset(pair);
        else if (operation < 195)
            pair.table.reset(pair.table->clone());
        else if (operation < 196)
        {
            // Only sometimes goes on with the difference, lest all tables be empty.
            const Table<T> difference(pair.table->subtract(*other.table));
            expectLikeModel(*difference, pair.model.minus(other.model));
            if (below(4) == 0)
            {
                pair.model = pair.model.minus(other.model);
                pair.table.reset(pair.table->subtract(*other.table));
            }
        }
        else
            expectLikeModel(*pair.table, pair.model);
    }
    for (const Pair<T>& pair : pairs)
        expectLikeModel(*pair.table, pair.model);
}

template <class T>
class VocabularyTest : public testing::Test
{
};

using EntryTypes = testing::Types<std::string, QualifiedNameEntry>;
TYPED_TEST_SUITE(VocabularyTest, EntryTypes, ); // C++17 wants the last argument, if only empty

} // namespace

TYPED_TEST(VocabularyTest, BehavesLikeTheModel)
{
    const unsigned int start = std::random_device()();
    for (unsigned int seed = start; seed != start + 20 && !this->HasFailure(); ++seed)
    {
        SCOPED_TRACE("seed " + std::to_string(seed));
        runRandomOperations<TypeParam>(seed);
    }
}

TYPED_TEST(VocabularyTest, HoldsManyEntriesThatNeverMove)
{
    constexpr unsigned int ENTRIES = 20000;
    for (Kind kind : {VECTOR, MAP, HASH})
    {
        Pair<TypeParam> pair = makePair<TypeParam>(kind, 40009);
        reset(pair);
        std::vector<const TypeParam*> places;
        for (unsigned int i = 1; i < ENTRIES; ++i)
        {
            expectIndexLikeModel(pair, valueOf<TypeParam>(i));
            places.push_back(&pair.table->value(i));
        }
        for (unsigned int i = 1; i < ENTRIES; ++i)
            ASSERT_EQ(&pair.table->value(i), places[i - 1]);
        expectLikeModel(*pair.table, pair.model);

        // A reset table that had grown far is as good as new.
        for (unsigned int entries : {3u, 3000u, 3u})
        {
            reset(pair);
            expectLikeModel(*pair.table, pair.model);
            expectExistsLikeModel(pair, valueOf<TypeParam>(1));
            for (unsigned int i = 0; i < entries; ++i)
                expectIndexLikeModel(pair, valueOf<TypeParam>(2 * i + 1));
        }
    }
}

TEST(VocabularyTest, NewTables)
{
    EXPECT_TRUE(VectorVocabulary<std::string>().empty());
    EXPECT_TRUE(MapVocabulary<std::string>().empty());
    EXPECT_TRUE(HashVocabulary<QualifiedNameEntry>(19).empty());

    HashVocabulary<std::string> strings(19);
    EXPECT_EQ(strings.tableSize(), 19u);
    EXPECT_EQ(strings.size(), 1u);
    bool found = false;
    EXPECT_EQ(strings.index("", found), 0u);
    EXPECT_TRUE(found);
}

TEST(VocabularyTest, VectorTableNeverLooksUp)
{
    VectorVocabulary<std::string> table;
    for (unsigned int i = 0; i < 3; ++i)
    {
        bool found = true;
        EXPECT_EQ(table.index("a", found), i);
        EXPECT_FALSE(found);
    }
    bool found = false;
    EXPECT_EQ(table.exists("a", found), 0u);
    EXPECT_TRUE(found);
}

TEST(VocabularyTest, ValueBeyondTheEnd)
{
    for (Kind kind : {VECTOR, MAP})
    {
        Pair<std::string> pair = makePair<std::string>(kind, 0);
        reset(pair);
        for (unsigned int index : {1u, 16u, NOT_FOUND})
        {
            try
            {
                pair.table->value(index);
                ADD_FAILURE() << index;
            }
            catch (const std::out_of_range& exception)
            {
                EXPECT_STREQ(exception.what(), "index out of range");
            }
        }
    }

    const HashVocabulary<std::string> hash(19);
    for (unsigned int index : {1u, 16u, NOT_FOUND})
    {
        EXPECT_VESK_THROW(hash.value(index), Vesk::AssertionViolationException,
                          "this->_index.size() > idx [in include/Vesk/FastInfoset/HashVocabulary, line 81]");
    }
}

TYPED_TEST(VocabularyTest, HashTableIsFullAtItsSize)
{
    for (unsigned int tableSize : {1u, 19u, 251u, 10009u, 40009u, 65521u})
    {
        SCOPED_TRACE(tableSize);
        HashVocabulary<TypeParam> table(tableSize);
        table.reset(); // a table of names begins without the reserved entry
        bool found = false;
        for (unsigned int i = 1; i < tableSize; ++i)
            ASSERT_EQ(table.index(valueOf<TypeParam>(i), found), i);

        const TypeParam another = valueOf<TypeParam>(tableSize);
        EXPECT_VESK_THROW(table.index(another, found), Vesk::PoolOverflowException, "Vocabulary hash table full");
        EXPECT_EQ(table.size(), tableSize);
        EXPECT_EQ(table.exists(another, found), NOT_FOUND);
        EXPECT_FALSE(found);
        EXPECT_EQ(table.index(valueOf<TypeParam>(tableSize - 1), found), tableSize - 1);
        EXPECT_TRUE(found);

        table.reset();
        EXPECT_EQ(table.size(), 1u);
        EXPECT_EQ(table.exists(valueOf<TypeParam>(tableSize), found), NOT_FOUND);
    }
}

TEST(VocabularyTest, HashTableNeedsRoomForAnEntry)
{
    EXPECT_THROW(HashVocabulary<std::string>(0), Vesk::AssertionViolationException);
}

TEST(VocabularyTest, NamesAreOrderedFieldByField)
{
    EXPECT_TRUE(QualifiedNameEntry(1, 2, 3) < QualifiedNameEntry(1, 3, 0));
    EXPECT_TRUE(QualifiedNameEntry(1, 2, 3) < QualifiedNameEntry(1, 2, 4));
    EXPECT_FALSE(QualifiedNameEntry(2, 0, 0) < QualifiedNameEntry(1, 9, 9));
    EXPECT_FALSE(QualifiedNameEntry(0xFFFFFFFF, 0, 0) < QualifiedNameEntry(1, 0, 0));
    EXPECT_FALSE(QualifiedNameEntry(1, 2, 3) < QualifiedNameEntry(1, 2, 3));
}
