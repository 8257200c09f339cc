// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/EncodingAlgorithm.h"
#include "EncodingTestSupport.h"
#include "ExceptionMatcher.h"
#include "Vesk/FastInfoset/DecodingAlgorithm.h"
#include "Vesk/FastInfoset/FISException.h"

namespace Vesk::FastInfoset
{

TEST(EncodingAlgorithmTest, IndexesWithoutAlgorithmAreInvalid)
{
    const EncodingAlgorithm encodings;
    const DecodingAlgorithm decodings;
    for (const unsigned int index : {0u, 11u, 12u, 30u, 31u, 32u, 33u, 1000u, 0xFFFFFFFFu})
    {
        SCOPED_TRACE(index);
        EXPECT_EQ(encodings.check(index)("1"), 0);
        EXPECT_VESK_THROW(encoded(encodings.encoding(index), "1"), FISException, "Invalid encoding defined");
        EXPECT_VESK_THROW(decodings.decoding(index)(ValueReader("12")), FISException, "Invalid decoding defined");
    }
    EXPECT_EQ(EncodingAlgorithm::USER_DEFINED, 32u);
}

struct FindCase
{
    const char* text;
    unsigned int index;
};

const FindCase FIND_CASES[] = {
    {"", 0},
    {"1", 10},  // 1 octet as CDATA, 2 as a short
    {"12", 1},  // 1 octet in hexadecimal
    {"123", 3}, // 2 octets, before CDATA with 3
    {"-32768", 3},
    {"32768", 4},
    {"00112", 10}, // leading zeros are no number; an odd number of digits is not hexadecimal
    {"-2147483648", 4},
    {"-2147483649", 5},
    {"9223372036854775807", 5},
    {"92233720368547758070", 1}, // too large for a long, but twenty digits are ten octets
    {"9223372036854775808", 10},
    {"true", 6},
    {"false true false", 6},
    {"1.5", 10},   // 3 octets as CDATA, 4 as a float
    {"1.25", 7},   // 4 octets both as a float and as CDATA
    {"-1.25", 10}, // not a float; 8 octets as a double
    {"-1.2500001", 8},
    {"AAEC", 1}, // 2 octets in hexadecimal, 3 in base64
    {"ABCx", 2},
    {"00112233-4455-6677-8899-AABBCCDDEEFF", 9},
    {"00112233-4455-6677-8899-aabbccddeeff", 10},
    {"  ", 10},
    {"<text>", 10},
};

TEST(EncodingAlgorithmTest, FindsTheShortestEncodingAndTheFirstOfSeveral)
{
    for (const FindCase& row : FIND_CASES)
        EXPECT_EQ(EncodingAlgorithm().findEncoding(row.text), row.index) << '"' << row.text << '"';
}

TEST(EncodingAlgorithmTest, WhatIsFoundCanBeEncoded)
{
    const EncodingAlgorithm encodings;
    const DecodingAlgorithm decodings;
    for (const FindCase& row : FIND_CASES)
    {
        SCOPED_TRACE(row.text);
        const unsigned int index = encodings.findEncoding(row.text);
        if (index == 0)
            continue;
        const std::string octets = encoded(encodings.encoding(index), row.text);
        EXPECT_EQ(textOf(*decoded(decodings.decoding(index), octets)), row.text);
    }
}

} // namespace Vesk::FastInfoset
