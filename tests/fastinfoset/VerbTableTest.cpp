// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/VerbTable.h"
#include <gtest/gtest.h>
#include <new>
#include <vector>

using Vesk::FastInfoset::VerbTable;

namespace
{

std::string numbered(unsigned int number)
{
    return "entry " + std::to_string(number);
}

VerbTable<std::string> tableOf(unsigned int entryCount)
{
    VerbTable<std::string> table;
    for (unsigned int i = 0; i < entryCount; ++i)
        table.append(numbered(i));
    return table;
}

/// Counts its instances, and runs out of memory when it is told to.
class Fragile
{
public:
    Fragile() { ++instances; }
    Fragile(const Fragile& other) = delete;
    ~Fragile() { --instances; }

    Fragile& operator=(const Fragile& other)
    {
        if (assignmentsLeft-- == 0)
            throw std::bad_alloc();
        value = other.value;
        return *this;
    }

    int value = 0;

    static int instances;
    static int assignmentsLeft;
};

int Fragile::instances = 0;
int Fragile::assignmentsLeft = -1;

} // namespace

TEST(VerbTableTest, KeepsOrderAndPlaceOverAllChunks)
{
    constexpr unsigned int ENTRIES = 70000; // 13 chunks
    VerbTable<std::string> table;
    std::vector<const std::string*> places;
    for (unsigned int i = 0; i < ENTRIES; ++i)
    {
        EXPECT_EQ(table.append(numbered(i)), i);
        places.push_back(&table[i]);
    }
    ASSERT_EQ(table.size(), ENTRIES);
    for (unsigned int i = 0; i < ENTRIES; ++i)
    {
        ASSERT_EQ(table.at(i), numbered(i));
        ASSERT_EQ(&table[i], places[i]);
    }
}

TEST(VerbTableTest, CheckedAccessEndsAtTheSize)
{
    VerbTable<std::string> table = tableOf(48);
    table.truncate(20); // the places behind are spare now
    EXPECT_EQ(table.at(19), numbered(19));
    for (unsigned int index : {20u, 47u, 48u, 0xFFFFFFF0u, 0xFFFFFFFFu})
    {
        try
        {
            table.at(index);
            ADD_FAILURE() << index;
        }
        catch (const std::out_of_range& exception)
        {
            EXPECT_STREQ(exception.what(), "index out of range");
        }
    }
}

TEST(VerbTableTest, WhatWasFilledAndNotAddedIsNotKept)
{
    VerbTable<std::string> table = tableOf(3);
    table.spare().assign(1000, 'x');
    table.truncate(3);
    EXPECT_LE(table.spare().capacity(), 256u);
}

TEST(VerbTableTest, TruncatesAtEveryPlaceAndGrowsAgain)
{
    for (unsigned int entries : {1u, 8u, 9u, 24u, 25u, 1016u, 1017u, 3000u})
    {
        for (unsigned int kept : {0u, 1u, 7u, 8u, 9u, 23u, 24u, 1015u, 1016u, 1017u, 2040u, 2999u, 3000u, 4000u})
        {
            VerbTable<std::string> table = tableOf(entries);
            table.truncate(kept);
            const unsigned int left = std::min(entries, kept);
            ASSERT_EQ(table.size(), left) << entries << " to " << kept;
            for (unsigned int i = left; i < 2 * entries; ++i)
                table.append(numbered(i));
            for (unsigned int i = 0; i < 2 * entries; ++i)
                ASSERT_EQ(table.at(i), numbered(i)) << entries << " to " << kept;
            table.truncate(0);
            EXPECT_TRUE(table.empty());
        }
    }
}

TEST(VerbTableTest, TruncationKeepsTheMemoryOfShortStringsOnly)
{
    VerbTable<std::string> table;
    table.append(std::string(100, 'a'));
    table.append(std::string(1000, 'b'));
    const char* const shortText = table[0].data();

    table.truncate(0);
    table.append(std::string(90, 'c'));
    table.append(std::string());
    EXPECT_EQ(table[0].data(), shortText);
    EXPECT_LE(table[1].capacity(), 256u);
}

TEST(VerbTableTest, CopiesEntriesOnly)
{
    VerbTable<std::string> table = tableOf(100);
    table.truncate(60);
    VerbTable<std::string> copy(table);
    table.truncate(0);
    table.append("other");
    ASSERT_EQ(copy.size(), 60u);
    for (unsigned int i = 0; i < 60; ++i)
        EXPECT_EQ(copy[i], numbered(i));
}

TEST(VerbTableTest, FailedAppendChangesNothing)
{
    {
        VerbTable<Fragile> table;
        Fragile entry;
        for (entry.value = 0; entry.value < 100; ++entry.value)
        {
            Fragile::assignmentsLeft = 0;
            EXPECT_THROW(table.append(entry), std::bad_alloc);
            Fragile::assignmentsLeft = -1;
            EXPECT_EQ(table.append(entry), static_cast<unsigned int>(entry.value));
        }
        for (unsigned int i = 0; i < 100; ++i)
            EXPECT_EQ(table[i].value, static_cast<int>(i));

        const int before = Fragile::instances;
        Fragile::assignmentsLeft = 60;
        EXPECT_THROW(VerbTable<Fragile> copy(table), std::bad_alloc);
        EXPECT_EQ(Fragile::instances, before);
        Fragile::assignmentsLeft = -1;
    }
    EXPECT_EQ(Fragile::instances, 0);
}
