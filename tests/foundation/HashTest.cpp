// SPDX-License-Identifier: MIT
#include "Vesk/Hash.h"
#include "SipHash.h"
#include <gtest/gtest.h>
#include <numeric>
#include <set>
#include <string>

namespace Vesk
{

namespace
{

// The octets 0, 1, 2, ...
std::string counting(std::size_t octetCount)
{
    std::string octets(octetCount, '\0');
    std::iota(octets.begin(), octets.end(), '\0');
    return octets;
}

struct HashCase
{
    std::size_t octetCount;
    std::uint64_t value;
};

// SipHash-1-3 of 0, 1, 2, ... under the key 0, from another implementation: every length of the last word, with and without
// whole words in front.
const HashCase HASH_CASES[] = {
    {1, 0x68A914128E01E473},  {2, 0x010BAC45C41E3669},  {3, 0x4D4C9A4A8EF6E0AD},  {4, 0x7CC43F98813E4DBD},
    {5, 0x5ABE2169DFF36275},  {6, 0xE3C25F87624F1CDB},  {7, 0x2F098AB0C751325A},  {8, 0xEAD411E67EBE2EEA},
    {9, 0x75927F9D95124362},  {10, 0xAF9F77A65AB51A1D}, {11, 0xFE64CE8B6617FCFF}, {12, 0xA6BAF4FB0F9FE1C2},
    {13, 0xA0CF3211850F8E0D}, {14, 0x7F86049379FBFE67}, {15, 0xF30EB725BB91C9EA}, {16, 0x8972188433A5C5B7},
    {17, 0x4883C49A2C009C1D}, {23, 0x37332B1389DAA4FF}, {24, 0x31185A47AF932F3A}, {31, 0x169739443111D49B},
    {40, 0x95BC321AB41D8206}, {63, 0x385D3E39E5F37359}, {64, 0x75E05FD5BBC870C6},
};

} // namespace

TEST(Hash, AgreesWithThePublishedVectorsForTwoAndFourRounds)
{
    const SipHash<2, 4> sipHash(0x0706050403020100, 0x0F0E0D0C0B0A0908);
    EXPECT_EQ(sipHash("", 0), 0x726FDB47DD0E0E31u);
    const std::string octets = counting(15);
    EXPECT_EQ(sipHash(octets.data(), octets.size()), 0xA129CA6149BE45E5u);
}

TEST(Hash, AgreesWithAnotherImplementationForOneAndThreeRounds)
{
    const SipHash<1, 3> sipHash(0, 0);
    for (const HashCase& row : HASH_CASES)
    {
        // A heap block of exactly this size, so that a sanitizer sees a read beyond it.
        const std::string octets = counting(row.octetCount);
        const std::unique_ptr<char[]> block(new char[row.octetCount]);
        octets.copy(block.get(), row.octetCount);
        EXPECT_EQ(sipHash(block.get(), row.octetCount), row.value) << row.octetCount << " octets";
    }
}

TEST(Hash, ThreeIntegersAreTheirOctets)
{
    const char octets[] = {4, 3, 2, 1, 8, 7, 6, 5, 12, 11, 10, 9};
    EXPECT_EQ(hash(0x01020304u, 0x05060708u, 0x090A0B0Cu), hash(octets, sizeof octets));
}

TEST(Hash, EqualTextsAgreeWhereverTheyLie)
{
    const std::string text("a local name");
    EXPECT_EQ(hash(text), hash(std::string(text)));
    EXPECT_EQ(hash(text), hash(text.data(), text.size()));
    EXPECT_EQ(hash(""), hash(nullptr, 0));
    EXPECT_NE(hash(text), hash(text + '\0'));
}

TEST(Hash, SpreadsSimilarKeys)
{
    // 20000 keys in 2^32 values collide 0.05 times on average; ten collisions do not happen by chance.
    std::set<std::uint32_t> values;
    for (int i = 0; i < 10000; ++i)
    {
        values.insert(hash("name" + std::to_string(i)));
        values.insert(hash(1, static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(i)));
    }
    EXPECT_GT(values.size(), 19990u);

    // Tables take the lowest bits. Each of 64 buckets expects 157 of the names.
    int buckets[64] = {};
    for (int i = 0; i < 10000; ++i)
        ++buckets[hash("name" + std::to_string(i)) % 64];
    for (const int count : buckets)
    {
        EXPECT_GT(count, 60);
        EXPECT_LT(count, 300);
    }
}

} // namespace Vesk
