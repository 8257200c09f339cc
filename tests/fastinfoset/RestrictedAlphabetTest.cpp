// SPDX-License-Identifier: MIT
#include "ExceptionMatcher.h"
#include "Vesk/FastInfoset/DocumentRestrictedAlphabet.h"
#include "Vesk/TextEncoding.h"
#include <gtest/gtest.h>
#include <utility>

using namespace Vesk::FastInfoset;

namespace
{

const char* const BAD_INDEX = "vocabulary > 0 && vocabulary <= _alphabets.size() "
                              "[in include/Vesk/FastInfoset/DocumentRestrictedAlphabet, line 105]";

} // namespace

TEST(RestrictedAlphabetTest, WidthIsTheFloorOfTheLogarithm)
{
    const struct
    {
        std::size_t characters;
        int bits;
    } CASES[] = {{1, 1}, {2, 1}, {3, 2}, {6, 2}, {7, 3}, {14, 3}, {15, 4}, {16, 4}, {255, 8}, {70000, 16}};
    for (const auto& row : CASES)
    {
        const RestrictedAlphabet alphabet(std::string(row.characters, 'a'));
        EXPECT_EQ(alphabet.bitsPerCharacter(), row.bits) << row.characters << " characters";
        EXPECT_EQ(alphabet.codePoints().size(), row.characters + 1);
    }
}

TEST(RestrictedAlphabetTest, ListsCodePointsInTheOrderOfTheText)
{
    const RestrictedAlphabet alphabet("b\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E"
                                      "a\xFF");
    EXPECT_EQ(alphabet.codePoints(),
              (std::vector<int>{'b', 0xE9, 0x20AC, 0x1D11E, 'a', Vesk::TextEncoding::ILL_FORMED, 0}));
    EXPECT_EQ(alphabet.characters().size(), 12u);
}

TEST(RestrictedAlphabetTest, NeedsCharacters)
{
    EXPECT_VESK_THROW(RestrictedAlphabet{std::string()}, Vesk::AssertionViolationException,
                      "!utf8Characters.empty() [in src/RestrictedAlphabet, line 38]");
    const RestrictedAlphabet none;
    EXPECT_TRUE(none.characters().empty());
    EXPECT_TRUE(none.codePoints().empty());
    EXPECT_EQ(none.bitsPerCharacter(), 0);
}

TEST(DocumentRestrictedAlphabetTest, BeginsWithTheBuiltInAlphabets)
{
    const DocumentRestrictedAlphabet table;
    ASSERT_EQ(table.alphabets().size(), 15u);
    EXPECT_EQ(table.alphabet(1).characters(), "0123456789-+.e");
    EXPECT_EQ(table.alphabet(2).characters(), "0123456789-:TZ");
    EXPECT_EQ(table.alphabet(1).characters(), DocumentRestrictedAlphabet::NUMERIC_CHARACTERS);
    EXPECT_EQ(table.alphabet(2).characters(), DocumentRestrictedAlphabet::DATE_TIME_CHARACTERS);
    for (unsigned int index = 1; index <= 2; ++index)
    {
        EXPECT_EQ(table.alphabet(index).codePoints().size(), 15u);
        EXPECT_EQ(table.alphabet(index).bitsPerCharacter(), 3);
    }
    for (unsigned int index = 3; index <= 15; ++index)
        EXPECT_EQ(table.alphabet(index).bitsPerCharacter(), 0);
}

TEST(DocumentRestrictedAlphabetTest, AddedAlphabetsBeginAt16)
{
    DocumentRestrictedAlphabet table;
    EXPECT_EQ(table.add("ab"), 15u);
    EXPECT_EQ(table.add("ab"), 16u);
    table.addDummy();
    EXPECT_EQ(std::as_const(table).alphabet(16).codePoints(), (std::vector<int>{'a', 'b', 0}));
    EXPECT_EQ(std::as_const(table).alphabet(16).bitsPerCharacter(), 1);
    EXPECT_EQ(table.alphabet(18).bitsPerCharacter(), 0);
    EXPECT_VESK_THROW(table.add(""), Vesk::AssertionViolationException,
                      "!utf8Characters.empty() [in src/RestrictedAlphabet, line 38]");
    EXPECT_EQ(table.alphabets().size(), 18u);
}

TEST(DocumentRestrictedAlphabetTest, ChecksIndexes)
{
    DocumentRestrictedAlphabet table;
    for (unsigned int index : {0u, 16u, 0xFFFFFFFFu})
    {
        EXPECT_VESK_THROW(table.alphabet(index), Vesk::AssertionViolationException, BAD_INDEX);
        EXPECT_VESK_THROW(std::as_const(table).alphabet(index), Vesk::AssertionViolationException, BAD_INDEX);
    }
    EXPECT_VESK_THROW(DocumentRestrictedAlphabet(true).alphabet(1), Vesk::AssertionViolationException, BAD_INDEX);
}

TEST(DocumentRestrictedAlphabetTest, SharesTheBuiltInAlphabetsUntilTheyChange)
{
    DocumentRestrictedAlphabet table;
    const DocumentRestrictedAlphabet other(table);
    EXPECT_EQ(&table.alphabets(), &other.alphabets());
    EXPECT_TRUE(table.isBuiltIn());

    table.alphabet(3); // may be written through
    EXPECT_NE(&table.alphabets(), &other.alphabets());
    EXPECT_TRUE(table.isBuiltIn());
    table.alphabet(3) = RestrictedAlphabet("xyz");
    EXPECT_FALSE(table.isBuiltIn());
    EXPECT_EQ(other.alphabet(3).bitsPerCharacter(), 0);

    table = DocumentRestrictedAlphabet();
    EXPECT_TRUE(table.isBuiltIn());
    table.add("ab");
    EXPECT_FALSE(table.isBuiltIn());
    EXPECT_FALSE(DocumentRestrictedAlphabet(true).isBuiltIn());
}

TEST(DocumentRestrictedAlphabetTest, DifferenceIsByPosition)
{
    const DocumentRestrictedAlphabet builtIn;
    DocumentRestrictedAlphabet table;
    table.add("ab");
    table.add("cd");

    const DocumentRestrictedAlphabet added = table - builtIn;
    ASSERT_EQ(added.alphabets().size(), 2u);
    EXPECT_EQ(added.alphabet(1).characters(), "ab");
    EXPECT_EQ(added.alphabet(2).characters(), "cd");
    EXPECT_TRUE((table - table).alphabets().empty());
    EXPECT_EQ((table - added).alphabets().size(), 15u); // what the first two hold is not compared
    EXPECT_VESK_THROW((void)(builtIn - table), Vesk::AssertionViolationException,
                      "other.alphabets().size() <= _alphabets.size() [in src/DocumentRestrictedAlphabet, line 70]");
}
