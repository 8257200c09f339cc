// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "ExceptionMatcher.h"
#include "Vesk/FastInfoset/HashVocabulary.h"
#include "Vesk/FastInfoset/MapVocabulary.h"
#include <gtest/gtest.h>
#include <utility>

using namespace Vesk::FastInfoset;

namespace
{

using ID = DocumentVocabulary::ID;

const std::string XML_NAMESPACE = "http://www.w3.org/XML/1998/namespace";

struct TableSize
{
    ID id;
    unsigned int hashSize;
};

const TableSize STRING_TABLES[] = {
    {DocumentVocabulary::PREFIX, 251},       {DocumentVocabulary::NAMESPACE_NAME, 251},
    {DocumentVocabulary::LOCAL_NAME, 40009}, {DocumentVocabulary::OTHER_NCNAME, 40009},
    {DocumentVocabulary::OTHER_URI, 19},     {DocumentVocabulary::ATTRIBUTE_VALUE, 40009},
    {DocumentVocabulary::OTHER_STRING, 19},  {DocumentVocabulary::CONTENT_CHARACTER_CHUNK, 65521},
};

unsigned int builtInSize(ID id)
{
    return id == DocumentVocabulary::PREFIX || id == DocumentVocabulary::NAMESPACE_NAME ? 2 : 1;
}

void add(Vocabulary<std::string>& table, const std::string& value)
{
    bool found = false;
    table.index(value, found);
}

void add(Vocabulary<QualifiedNameEntry>& table, const QualifiedNameEntry& value)
{
    bool found = false;
    table.index(value, found);
}

/// Adds something to every table.
void fill(DocumentVocabulary& vocabulary)
{
    for (const TableSize& row : STRING_TABLES)
    {
        for (int i = 0; i < 10; ++i)
            add(vocabulary.vocabulary(row.id), "text " + std::to_string(i));
    }
    add(vocabulary.elementNames(), QualifiedNameEntry(1, 1, 1));
    add(vocabulary.attributeNames(), QualifiedNameEntry(0, 0, 2));
}

void expectBuiltInTables(const DocumentVocabulary& vocabulary)
{
    for (const TableSize& row : STRING_TABLES)
    {
        const Vocabulary<std::string>& table = vocabulary.vocabulary(row.id);
        EXPECT_EQ(table.size(), builtInSize(row.id)) << row.id;
        EXPECT_EQ(table.value(0), "") << row.id;
    }
    EXPECT_EQ(vocabulary.vocabulary(DocumentVocabulary::PREFIX).value(1), "xml");
    EXPECT_EQ(vocabulary.vocabulary(DocumentVocabulary::NAMESPACE_NAME).value(1), XML_NAMESPACE);
    for (const auto* names : {&vocabulary.elementNames(), &vocabulary.attributeNames()})
    {
        EXPECT_EQ(names->size(), 1u);
        EXPECT_FALSE(QualifiedNameEntry() < names->value(0));
    }
}

template <class T>
void expectFullAt(Vocabulary<T>& table, unsigned int limit, T (*valueOf)(unsigned int))
{
    bool found = false;
    for (unsigned int i = table.size(); i < limit; ++i)
        ASSERT_EQ(table.index(valueOf(i), found), i);
    EXPECT_VESK_THROW(table.index(valueOf(limit), found), Vesk::PoolOverflowException, "Vocabulary hash table full");
    EXPECT_EQ(table.index(valueOf(limit - 1), found), limit - 1);
}

class DocumentVocabularyTest : public testing::TestWithParam<DocumentVocabulary::VocabularyImpl>
{
};

INSTANTIATE_TEST_SUITE_P(All, DocumentVocabularyTest,
                         testing::Values(DocumentVocabulary::VOC_HASH, DocumentVocabulary::VOC_MAP,
                                         DocumentVocabulary::VOC_VECTOR));

} // namespace

TEST_P(DocumentVocabularyTest, BeginsBuiltIn)
{
    const DocumentVocabulary vocabulary(GetParam());
    EXPECT_EQ(vocabulary.implementation(), GetParam());
    EXPECT_TRUE(vocabulary.externalVocabularyURI().empty());
    EXPECT_EQ(vocabulary.restrictedAlphabets().alphabets().size(), 15u);
    EXPECT_TRUE(vocabulary.isBuiltIn());
    expectBuiltInTables(vocabulary);

    const DocumentVocabulary external("urn:x", GetParam());
    EXPECT_EQ(external.externalVocabularyURI(), "urn:x");
    EXPECT_TRUE(external.isBuiltIn());
}

TEST_P(DocumentVocabularyTest, AnyAdditionIsSeen)
{
    for (const TableSize& row : STRING_TABLES)
    {
        DocumentVocabulary vocabulary(GetParam());
        add(vocabulary.vocabulary(row.id), "a");
        EXPECT_FALSE(vocabulary.isBuiltIn()) << row.id;
        vocabulary.reset();
        EXPECT_TRUE(vocabulary.isBuiltIn()) << row.id;
    }
    DocumentVocabulary vocabulary(GetParam());
    add(vocabulary.elementNames(), QualifiedNameEntry(0, 0, 1));
    EXPECT_FALSE(vocabulary.isBuiltIn());
    vocabulary.reset();
    add(vocabulary.attributeNames(), QualifiedNameEntry(0, 0, 1));
    EXPECT_FALSE(vocabulary.isBuiltIn());
    vocabulary.reset();
    vocabulary.restrictedAlphabets().add("ab");
    EXPECT_FALSE(vocabulary.isBuiltIn());
}

TEST_P(DocumentVocabularyTest, ResetRestoresTheTablesAndKeepsTheRest)
{
    DocumentVocabulary vocabulary("urn:x", GetParam());
    vocabulary.restrictedAlphabets().add("ab");
    for (int document = 0; document < 3; ++document)
    {
        fill(vocabulary);
        const Vocabulary<std::string>* const table = &vocabulary.vocabulary(DocumentVocabulary::LOCAL_NAME);
        vocabulary.reset();
        expectBuiltInTables(vocabulary);
        EXPECT_EQ(&vocabulary.vocabulary(DocumentVocabulary::LOCAL_NAME), table);
    }
    EXPECT_EQ(vocabulary.restrictedAlphabets().alphabets().size(), 16u);
    EXPECT_EQ(vocabulary.externalVocabularyURI(), "urn:x");
}

TEST_P(DocumentVocabularyTest, ResetRestoresWhateverWasThere)
{
    const DocumentVocabulary builtIn(GetParam());
    DocumentVocabulary filled(GetParam());
    fill(filled);

    DocumentVocabulary difference = filled - builtIn;
    EXPECT_FALSE(difference.isBuiltIn());
    difference.reset();
    expectBuiltInTables(difference);

    DocumentVocabulary emptyDifference = builtIn - builtIn;
    EXPECT_FALSE(emptyDifference.isBuiltIn());
    emptyDifference.reset();
    expectBuiltInTables(emptyDifference);

    DocumentVocabulary copy(filled);
    copy.reset();
    expectBuiltInTables(copy);

    copy.clear();
    EXPECT_FALSE(copy.isBuiltIn());
    copy.reset();
    expectBuiltInTables(copy);
    EXPECT_EQ(copy.implementation(), GetParam());

    for (const TableSize& row : STRING_TABLES)
    {
        copy.initialize(row.id, nullptr);
        EXPECT_FALSE(copy.isBuiltIn());
        copy.reset();
        copy.initialize(row.id, new MapVocabulary<std::string>);
        EXPECT_FALSE(copy.isBuiltIn());
        copy.reset();
        copy.initialize(row.id, new HashVocabulary<std::string>(3));
        copy.reset();
        expectBuiltInTables(copy);
    }
    copy.initialize(DocumentVocabulary::ENCODING_ALGORITHM, new MapVocabulary<std::string>);
    copy.reset();
    EXPECT_THROW(copy.vocabulary(DocumentVocabulary::ENCODING_ALGORITHM), Vesk::NullPointerException);
    EXPECT_TRUE(copy.isBuiltIn());
}

TEST_P(DocumentVocabularyTest, CopiesAreIndependent)
{
    DocumentVocabulary original("urn:x", GetParam());
    fill(original);
    original.restrictedAlphabets().add("ab");

    DocumentVocabulary copy(original);
    DocumentVocabulary assigned(DocumentVocabulary::DONT_INITIALIZE);
    assigned = original;
    original.reset();
    for (DocumentVocabulary* voc : {&copy, &assigned})
    {
        EXPECT_EQ(voc->implementation(), GetParam());
        EXPECT_EQ(voc->externalVocabularyURI(), "urn:x");
        EXPECT_EQ(voc->restrictedAlphabets().alphabets().size(), 16u);
        for (const TableSize& row : STRING_TABLES)
            EXPECT_EQ(voc->vocabulary(row.id).size(), builtInSize(row.id) + 10);
        EXPECT_EQ(voc->elementNames().value(1).localName(), 1u);
        EXPECT_EQ(voc->attributeNames().value(1).localName(), 2u);
    }

    DocumentVocabulary& same = copy;
    copy = same;
    EXPECT_EQ(copy.vocabulary(DocumentVocabulary::PREFIX).size(), 12u);

    const DocumentVocabulary moved(std::move(copy));
    EXPECT_EQ(moved.vocabulary(DocumentVocabulary::PREFIX).size(), 12u);
}

TEST_P(DocumentVocabularyTest, DifferenceListsAdditions)
{
    const DocumentVocabulary builtIn;
    DocumentVocabulary vocabulary("urn:x", GetParam());
    add(vocabulary.vocabulary(DocumentVocabulary::LOCAL_NAME), "a");
    add(vocabulary.vocabulary(DocumentVocabulary::LOCAL_NAME), "b");
    add(vocabulary.attributeNames(), QualifiedNameEntry(0, 0, 1));
    vocabulary.restrictedAlphabets().add("ab");

    const DocumentVocabulary difference = vocabulary - builtIn;
    EXPECT_EQ(difference.implementation(), GetParam());
    EXPECT_TRUE(difference.externalVocabularyURI().empty());
    for (const TableSize& row : STRING_TABLES)
        EXPECT_EQ(difference.vocabulary(row.id).size(), row.id == DocumentVocabulary::LOCAL_NAME ? 2u : 0u) << row.id;
    EXPECT_EQ(difference.vocabulary(DocumentVocabulary::LOCAL_NAME).value(0), "a");
    EXPECT_EQ(difference.vocabulary(DocumentVocabulary::LOCAL_NAME).value(1), "b");
    EXPECT_TRUE(difference.elementNames().empty());
    EXPECT_EQ(difference.attributeNames().size(), 1u);
    ASSERT_EQ(difference.restrictedAlphabets().alphabets().size(), 1u);
    EXPECT_EQ(difference.restrictedAlphabets().alphabet(1).characters(), "ab");

    const DocumentVocabulary none = vocabulary - vocabulary;
    for (const TableSize& row : STRING_TABLES)
        EXPECT_TRUE(none.vocabulary(row.id).empty());
    EXPECT_TRUE(none.elementNames().empty());
    EXPECT_TRUE(none.attributeNames().empty());
    EXPECT_TRUE(none.restrictedAlphabets().alphabets().empty());
}

TEST(DocumentVocabularyTest, DifferenceWithMissingTables)
{
    DocumentVocabulary full;
    fill(full);
    DocumentVocabulary lacking(full);
    lacking.initialize(DocumentVocabulary::OTHER_URI, nullptr);

    EXPECT_THROW((lacking - full).vocabulary(DocumentVocabulary::OTHER_URI), Vesk::NullPointerException);
    EXPECT_EQ((full - lacking).vocabulary(DocumentVocabulary::OTHER_URI).size(), 11u);
}

TEST(DocumentVocabularyTest, HashTablesHaveTheirLimits)
{
    const auto text = [](unsigned int number)
    {
        return std::to_string(number);
    };
    const auto name = [](unsigned int number)
    {
        return QualifiedNameEntry(0, 1, number);
    };
    DocumentVocabulary vocabulary;
    for (int document = 0; document < 2; ++document)
    {
        for (const TableSize& row : STRING_TABLES)
        {
            SCOPED_TRACE(row.id);
            expectFullAt<std::string>(vocabulary.vocabulary(row.id), row.hashSize, text);
        }
        expectFullAt<QualifiedNameEntry>(vocabulary.elementNames(), 10009, name);
        expectFullAt<QualifiedNameEntry>(vocabulary.attributeNames(), 10009, name);

        vocabulary.initialize(DocumentVocabulary::PREFIX, new HashVocabulary<std::string>(1000));
        vocabulary.reset();
        expectBuiltInTables(vocabulary);
    }
}

TEST(DocumentVocabularyTest, EmptyShellsAreChecked)
{
    DocumentVocabulary shell(DocumentVocabulary::DONT_INITIALIZE);
    EXPECT_FALSE(shell.isBuiltIn());
    EXPECT_THROW(shell.vocabulary(DocumentVocabulary::PREFIX), Vesk::NullPointerException);
    EXPECT_THROW(shell.elementNames(), Vesk::NullPointerException);
    EXPECT_THROW(std::as_const(shell).attributeNames(), Vesk::NullPointerException);
    EXPECT_THROW(shell.initialize(DocumentVocabulary::PREFIX, nullptr), Vesk::AssertionViolationException);

    const DocumentVocabulary copy(shell);
    EXPECT_THROW(copy.elementNames(), Vesk::NullPointerException);
    const DocumentVocabulary full;
    EXPECT_THROW((shell - full).elementNames(), Vesk::NullPointerException);
    EXPECT_VESK_THROW((void)(full - shell), Vesk::AssertionViolationException,
                      "itDoc != doc._vocabularies.end() [in src/DocumentVocabulary, line 188]");

    shell.reset();
    EXPECT_EQ(shell.implementation(), DocumentVocabulary::VOC_HASH);
    EXPECT_TRUE(shell.isBuiltIn());
}

TEST(DocumentVocabularyTest, TakesOverTables)
{
    DocumentVocabulary vocabulary;
    auto* const table = new MapVocabulary<std::string>;
    vocabulary.initialize(DocumentVocabulary::OTHER_STRING, table);
    vocabulary.initialize(DocumentVocabulary::OTHER_STRING, table); // the table that is there stays
    EXPECT_EQ(&vocabulary.vocabulary(DocumentVocabulary::OTHER_STRING), table);
    EXPECT_THROW(DocumentVocabulary(static_cast<DocumentVocabulary::VocabularyImpl>(3)),
                 Vesk::AssertionViolationException);
}
