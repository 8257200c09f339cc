// SPDX-License-Identifier: MIT
#include "Vesk/URI.h"
#include "ExceptionMatcher.h"
#include <gtest/gtest.h>

namespace Vesk
{

namespace
{

struct URICase
{
    const char* text;
    const char* scheme;
    const char* authority;
    const char* path;
};

const URICase URI_CASES[] = {
    {"file:///tmp/a.fis", "file", "", "/tmp/a.fis"},
    {"FILE://localhost/tmp/a.fis", "file", "localhost", "/tmp/a.fis"},
    {"file:/tmp/a%20b%2Bc%2f", "file", "", "/tmp/a b+c/"},
    {"file:relative.xml", "file", "", "relative.xml"},
    {"http://www.example.org:8080/v/names.xml?version=1#top", "http", "www.example.org:8080", "/v/names.xml"},
    {"file:names.xml#top", "file", "", "names.xml"},
    {"http://www.example.org?a/b", "http", "www.example.org", ""},
    {"http://www.example.org", "http", "www.example.org", ""},
    {"urn:example:names.fis", "urn", "", "example:names.fis"},
    {"soap.beep+x-1:/a", "soap.beep+x-1", "", "/a"},
    // plain paths
    {"", "", "", ""},
    {"/tmp/100%/a?b#c.xml", "", "", "/tmp/100%/a?b#c.xml"},
    {"C:foo.xml", "", "", "C:foo.xml"},
    {"a/b:c", "", "", "a/b:c"},
    {"1a:b", "", "", "1a:b"},
    {":a", "", "", ":a"},
    {"file", "", "", "file"},
};

} // namespace

TEST(URI, TakesTextsApart)
{
    for (const URICase& row : URI_CASES)
    {
        const URI uri(row.text);
        EXPECT_EQ(uri.getScheme(), row.scheme) << row.text;
        EXPECT_EQ(uri.getAuthority(), row.authority) << row.text;
        EXPECT_EQ(uri.getPath(), row.path) << row.text;
        EXPECT_EQ(uri.toString(), row.text);
    }
}

TEST(URI, RefusesBadPercentEncoding)
{
    for (const std::string text : {"file:/a%", "file:/a%2", "file:/a%2g", "file:/a%%41", "file:/a%4?1"})
        EXPECT_VESK_THROW(URI{text}, SyntaxException, "Invalid percent-encoding in URI: " + text);
    EXPECT_EQ(URI("http://host/?%zz").getPath(), "/");
}

} // namespace Vesk
