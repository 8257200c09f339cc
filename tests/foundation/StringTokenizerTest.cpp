// SPDX-License-Identifier: MIT
#include "Vesk/StringTokenizer.h"
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace Vesk
{

namespace
{

struct TokenizerCase
{
    const char* text;
    std::vector<std::string> tokens;
};

const TokenizerCase TOKENIZER_CASES[] = {
    {"", {}},
    {"a", {"a"}},
    {"1 2 3", {"1", "2", "3"}},
    {" ", {"", ""}},
    {" a", {"", "a"}},
    {"a  b", {"a", "", "b"}},
    {"a ", {"a", ""}},
    {"a\tb\n c", {"a\tb\n", "c"}},
};

} // namespace

TEST(StringTokenizer, KeepsEmptyTokens)
{
    for (const TokenizerCase& row : TOKENIZER_CASES)
    {
        std::vector<std::string> tokens;
        for (const std::string_view token : StringTokenizer(row.text, ' '))
            tokens.emplace_back(token);
        EXPECT_EQ(tokens, row.tokens) << '"' << row.text << '"';
    }
}

} // namespace Vesk
