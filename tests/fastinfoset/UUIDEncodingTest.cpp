// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/UUIDEncoding.h"
#include "EncodingTestSupport.h"
#include "ExceptionMatcher.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/FISParseException.h"

namespace Vesk::FastInfoset
{

namespace
{

const std::string UPPER("00112233-4455-6677-8899-AABBCCDDEEFF");
const std::string LOWER("00112233-4455-6677-8899-aabbccddeeff");
const std::string OCTETS("00 11 22 33 44 55 66 77 88 99 AA BB CC DD EE FF");

} // namespace

TEST(UUIDEncodingTest, OctetsAreTheDigitsInOrder)
{
    EXPECT_EQ(hexOf(written(UUIDEncoding(UPPER))), "08 07 " + OCTETS);
    std::string text("before");
    UUIDEncoding::decode(ValueReader(octetsOf("08 07 " + OCTETS)), text);
    EXPECT_EQ(text, UPPER);
    std::vector<UUID> values(2);
    UUIDEncoding::decode(ValueReader(octetsOf("08 17 " + OCTETS + ' ' + OCTETS)), values);
    EXPECT_EQ(values, (std::vector<UUID>{UUID(LOWER), UUID(UPPER)}));
}

TEST(UUIDEncodingTest, TextIsUpperCase)
{
    const UUIDEncoding encoding{UUID(LOWER)};
    EXPECT_EQ(textOf(encoding), UPPER);
    EXPECT_EQ(textOf(UUIDEncoding(std::vector<UUID>(2, UUID(LOWER)))), UPPER + ' ' + UPPER);
    EXPECT_EQ(typedEvents(encoding), "UUID " + LOWER + '\n');
}

TEST(UUIDEncodingTest, AcceptsUpperCaseTextOnly)
{
    struct Row
    {
        std::string text;
        int octetCount;
    };
    const Row ROWS[] = {
        {UPPER, 16},
        {UPPER + ' ' + UPPER, 32},
        {"00112233445566778899AABBCCDDEEFF", 16},
        {LOWER, 0},
        {UPPER + ' ' + LOWER, 0},
        {UPPER + "  " + UPPER, 0},
        {' ' + UPPER, 0},
        {UPPER + ' ', 0},
        {UPPER + "00", 0},
        {UPPER.substr(1), 0},
        {"0011-2233-4455-6677-8899-AABBCCDDEEFF", 0},
        {"G0112233-4455-6677-8899-AABBCCDDEEFF", 0},
        {"uuid", 0},
    };
    for (const Row& row : ROWS)
    {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(UUIDEncoding::check(row.text), row.octetCount);
        if (row.octetCount == 0)
        {
            EXPECT_VESK_THROW(UUIDEncoding{row.text}, FISEncodingException, "Illegal value string for UUIDEncoding");
        }
    }
    EXPECT_EQ(textOf(UUIDEncoding(ROWS[2].text)), UPPER);
    EXPECT_EQ(UUIDEncoding::check(""), 0);
    EXPECT_VESK_THROW(UUIDEncoding(""), FISEncodingException, "Illegal (empty) data for UUIDEncoding");
    EXPECT_VESK_THROW(UUIDEncoding(std::vector<UUID>()), FISEncodingException, "Illegal (empty) data for UUIDEncoding");
}

TEST(UUIDEncodingTest, ManyValuesSurvive)
{
    std::vector<UUID> values;
    for (unsigned int i = 0; i < 2000; ++i)
    {
        UUID::Octets octets;
        for (unsigned int k = 0; k < octets.size(); ++k)
            octets[k] = static_cast<std::uint8_t>((i * 16 + k) * 2654435761u >> 24);
        values.emplace_back(octets);
    }
    const UUIDEncoding encoding(values);
    const AutoPtr<Encoding> copy = decoded(&UUIDEncoding::decode, written(encoding));
    EXPECT_EQ(static_cast<const UUIDEncoding&>(*copy).values(), values);
    EXPECT_EQ(UUIDEncoding(copy->content()).values(), values);
}

TEST(UUIDEncodingTest, BadLengthsAreRefused)
{
    std::vector<UUID> values;
    std::string text;
    for (const char* length : {"00", "07", "08 06", "08 0F"}) // 1, 8, 15 and 24 octets
    {
        const std::string octets = octetsOf(length) + std::string(24, '\x01');
        EXPECT_VESK_THROW(UUIDEncoding::decode(ValueReader(octets), values), FISEncodingException,
                          "Illegal size entry for Vesk::UUID value");
        EXPECT_VESK_THROW(UUIDEncoding::decode(ValueReader(octets), text), FISEncodingException,
                          "Illegal size entry for Vesk::UUID value");
    }
    // Two octets of length and up to 15 of the value; then 2^32 octets of which 15 are there.
    const std::string value = octetsOf("08 07 " + OCTETS);
    const char* const END_MESSAGE = "Unexpected end of stream while decoding UUID values";
    for (std::size_t size = 2; size < value.size(); ++size)
        EXPECT_VESK_THROW(UUIDEncoding::decode(ValueReader(value.substr(0, size))), FISParseException, END_MESSAGE);
    const std::string hostile = octetsOf("0C FF FF FE F7") + std::string(15, '\x01');
    EXPECT_VESK_THROW(UUIDEncoding::decode(ValueReader(hostile), values), FISParseException, END_MESSAGE);
    EXPECT_LE(values.capacity() * sizeof(UUID), 65536u);
}

} // namespace Vesk::FastInfoset
