// SPDX-License-Identifier: MIT
#include "Vesk/Path.h"
#include <gtest/gtest.h>

namespace Vesk
{

namespace
{

struct PathCase
{
    const char* text;
    const char* extension;
};

const PathCase PATH_CASES[] = {
    {"names.xml", "xml"},
    {"/etc/old.d/names.XML", "XML"},
    {"a.tar.gz", "gz"},
    {"/etc/old.d/names", ""},
    {".profile", ""},
    {"/home/.profile", ""},
    {"/home/.a.xml", "xml"},
    {"names.", ""},
    {"dir.xml/", ""},
    {"", ""},
    {"/", ""},
    {"..", ""},
};

} // namespace

TEST(Path, ExtensionIsThatOfTheLastPart)
{
    for (const PathCase& row : PATH_CASES)
        EXPECT_EQ(Path(row.text).getExtension(), row.extension) << row.text;
}

} // namespace Vesk
