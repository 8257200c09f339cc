// SPDX-License-Identifier: MIT
#include "CodecTester.h"
#include "Vesk/HexBinaryDecoder.h"
#include "Vesk/HexBinaryEncoder.h"

namespace Vesk
{

namespace
{

using Tester = CodecTester<HexBinaryEncoder, HexBinaryDecoder>;

struct HexCase
{
    std::string text;
    std::string octets;
};

const HexCase VALID_CASES[] = {
    {"", ""},
    {" \t\r\n", ""},
    {"0AFF", "\x0A\xFF"},
    {"0aFfAb", "\x0A\xFF\xAB"},
    {" 4 1\n4\r2\t", "AB"},
    {"00", std::string(1, '\0')},
};

const HexCase INVALID_CASES[] = {
    {"4", ""},  {"414", "A"}, {"41 4 ", "A"},      {"4g", ""},      {"41:42", "A"}, {"0x41", ""},
    {"@1", ""}, {"1G", ""},   {"41\xC3\xA9", "A"}, {"41\v42", "A"}, {"-1", ""},     {std::string("41\0", 3), "A"},
};

} // namespace

TEST(HexBinary, DecodesBothCasesAndSkipsWhiteSpace)
{
    for (const HexCase& row : VALID_CASES)
        Tester::expectValid(row.text, row.octets);
}

TEST(HexBinary, StopsAtInvalidText)
{
    for (const HexCase& row : INVALID_CASES)
        Tester::expectInvalid(row.text, row.octets);
    const std::string octets = Tester::randomOctets(1500);
    Tester::expectInvalid(Tester::encode(octets) + "x41", octets);
}

TEST(HexBinary, EncodesInUpperCase)
{
    EXPECT_EQ(Tester::encode("\x0A\xFF\xAB"), "0AFFAB");
    EXPECT_EQ(Tester::encode("ABC", 4), "4142\n43");
}

TEST(HexBinary, RoundTrips)
{
    Tester::expectRoundTrips();
}

TEST(HexBinary, PiecesJoin)
{
    Tester::expectPiecesJoin();
}

TEST(HexBinary, FailuresOfTheOtherStreamShow)
{
    Tester::expectFailuresShow();
}

} // namespace Vesk
