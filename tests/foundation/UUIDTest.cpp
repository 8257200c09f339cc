// SPDX-License-Identifier: MIT
#include "Vesk/UUID.h"
#include "ExceptionMatcher.h"
#include <gtest/gtest.h>

namespace Vesk
{

namespace
{

const UUID::Octets OCTETS = {0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77,
                             0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF};
const char* const TEXT = "00112233-4455-6677-8899-aabbccddeeff";

const char* const BAD_TEXTS[] = {
    "",
    "00112233",
    "00112233-4455-6677-8899-aabbccddeef",
    "00112233-4455-6677-8899-aabbccddeeff0",
    "00112233-4455-6677-8899-aabbccddeefg",
    "0011223-34455-6677-8899-aabbccddeeff",
    "00112233-4455-6677-8899aabbccddeeff0",
    "00112233 4455 6677 8899 aabbccddeeff",
    "00112233445566778899aabbccddee-f",
    "{00112233-4455-6677-8899-aabbccddee}",
    " 0112233445566778899aabbccddeeff",
};

} // namespace

TEST(UUID, ReadsBothFormsInAnyCase)
{
    for (const char* text : {TEXT, "00112233-4455-6677-8899-AABBCCDDEEFF", "00112233445566778899aAbBcCdDeEfF"})
    {
        const UUID uuid{std::string(text)};
        EXPECT_EQ(uuid.octets(), OCTETS) << text;
        EXPECT_EQ(uuid.toString(), TEXT);
    }
    EXPECT_EQ(UUID(OCTETS).toString(), TEXT);
    EXPECT_EQ(UUID().toString(), "00000000-0000-0000-0000-000000000000");
}

TEST(UUID, RefusesEverythingElse)
{
    for (const char* text : BAD_TEXTS)
    {
        UUID uuid(OCTETS);
        EXPECT_FALSE(UUID::tryParse(text, uuid)) << text;
        EXPECT_EQ(uuid.octets(), OCTETS) << text;
        EXPECT_VESK_THROW(UUID{std::string(text)}, SyntaxException, std::string("Invalid UUID: ") + text);
    }
}

TEST(UUID, OrdersOctetByOctet)
{
    UUID::Octets octets = OCTETS;
    octets[3] = 0xFF;
    const UUID smaller(OCTETS);
    const UUID greater(octets);
    EXPECT_TRUE(smaller < greater);
    EXPECT_FALSE(greater < smaller);
    EXPECT_TRUE(smaller != greater);
    EXPECT_TRUE(smaller == UUID(OCTETS));
}

} // namespace Vesk
