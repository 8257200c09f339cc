// SPDX-License-Identifier: MIT
#include "CodecTester.h"
#include "Vesk/Base64Decoder.h"
#include "Vesk/Base64Encoder.h"

namespace Vesk
{

namespace
{

using Tester = CodecTester<Base64Encoder, Base64Decoder>;

struct Base64Case
{
    const char* text;
    const char* octets;
};

const Base64Case VALID_CASES[] = {
    {"", ""},
    {"Zg==", "f"},
    {"Zm8=", "fo"},
    {"Zm9v", "foo"},
    {"Zm9vYg==", "foob"},
    {"Zm9vYmE=", "fooba"},
    {"Zm9vYmFy", "foobar"},
    {"++//", "\xFB\xEF\xFF"},
};

// White space wherever it stands.
const Base64Case SPACED_CASES[] = {
    {" \t\r\n", ""},
    {" Z m\n8\r= ", "fo"},
    {"Z\tg = =\n", "f"},
    {"Zm9v\r\nYmFy\r\n", "foobar"},
};

const Base64Case INVALID_CASES[] = {
    // no whole group, padding missing or misplaced
    {"Z", ""},
    {"Zg", ""},
    {"Zm8", ""},
    {"Zm9vY", "foo"},
    {"Zm9vYg", "foo"},
    {"Zg=", ""},
    {"Z=", ""},
    {"=", ""},
    {"====", ""},
    {"Z===", ""},
    {"Zm9v=", "foo"},
    {"Zg=x", ""},
    // text behind the padding
    {"Zg==Zg==", "f"},
    {"Zm8=Zm9v", "fo"},
    {"Zg===", "f"},
    {"Zg==x", "f"},
    // bits of the last digit that belong to no octet
    {"Zh==", ""},
    {"Zm9=", ""},
    // outside the alphabet
    {"Zm9v-_==", "foo"},
    {"Zm9vYm,y", "foo"},
    {"Zm9v\x80", "foo"},
    {"Zm9v\vYmFy", "foo"},
};

} // namespace

TEST(Base64, EncodesAndDecodes)
{
    for (const Base64Case& row : VALID_CASES)
    {
        EXPECT_EQ(Tester::encode(row.octets), row.text);
        Tester::expectValid(row.text, row.octets);
    }
}

TEST(Base64, SkipsWhiteSpace)
{
    for (const Base64Case& row : SPACED_CASES)
        Tester::expectValid(row.text, row.octets);
}

TEST(Base64, StopsAtInvalidText)
{
    for (const Base64Case& row : INVALID_CASES)
        Tester::expectInvalid(row.text, row.octets);
    Tester::expectInvalid(std::string("Zm9v\0", 5), "foo");
}

TEST(Base64, InvalidTextStopsTheSecondBlockAfterTheFirst)
{
    const std::string octets = Tester::randomOctets(1500);
    Tester::expectInvalid(Tester::encode(octets) + "!" + Tester::encode(octets), octets);
    // Padding that ends a block stays in force in the next.
    const std::string padded = std::string(1020, '\n') + "Zg==";
    Tester::expectValid(padded + "\n", "f");
    Tester::expectInvalid(padded + "Zg==", "f");
}

TEST(Base64, BreaksLines)
{
    EXPECT_EQ(Tester::encode("foobar", 4), "Zm9v\nYmFy");
    EXPECT_EQ(Tester::encode("foobar", 3), "Zm9\nvYm\nFy");
    EXPECT_EQ(Tester::encode("foobar", -1), "Zm9vYmFy");
}

TEST(Base64, RoundTrips)
{
    Tester::expectRoundTrips();
}

TEST(Base64, PiecesJoin)
{
    Tester::expectPiecesJoin();
}

TEST(Base64, FailuresOfTheOtherStreamShow)
{
    Tester::expectFailuresShow();
}

} // namespace Vesk
