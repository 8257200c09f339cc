// SPDX-License-Identifier: MIT
#include "Vesk/XML/Name.h"
#include <gtest/gtest.h>

using namespace Vesk::XML;

TEST(NameTest, SplitsAtTheFirstColon)
{
    const struct
    {
        const char* qname;
        const char* prefix;
        const char* localName;
    } CASES[] = {
        {"p:local", "p", "local"}, {"local", "", "local"}, {"", "", ""},
        {":local", "", "local"},   {"p:", "p", ""},        {"p:a:b", "p", "a:b"},
    };
    for (const auto& row : CASES)
    {
        std::string prefix = "left over";
        std::string localName = "left over";
        Name::split(row.qname, prefix, localName);
        EXPECT_EQ(prefix, row.prefix) << row.qname;
        EXPECT_EQ(localName, row.localName) << row.qname;
    }
}
