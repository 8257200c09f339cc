// SPDX-License-Identifier: MIT
#include "Vesk/MemoryInputStream.h"
#include "Vesk/NullOutputStream.h"
#include <gtest/gtest.h>
#include <string>

namespace Vesk
{

TEST(MemoryInputStream, ReadsTheBlockToItsEnd)
{
    const std::string octets("a\0\xFF\nz", 5);
    MemoryInputStream stream(octets.data(), octets.size());
    EXPECT_EQ(stream.get(), 'a');
    char rest[8];
    EXPECT_FALSE(stream.read(rest, sizeof rest));
    EXPECT_EQ(std::string(rest, static_cast<std::size_t>(stream.gcount())), octets.substr(1));
    EXPECT_TRUE(stream.eof());
    EXPECT_FALSE(stream.bad());
}

TEST(MemoryInputStream, EmptyBlockMayBeNull)
{
    MemoryInputStream stream(nullptr, 0);
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(stream.get(), std::istream::traits_type::eof());
}

TEST(MemoryInputStream, NeverWritesToTheBlock)
{
    const std::string octets("ab");
    MemoryInputStream stream(octets.data(), octets.size());
    stream.get();
    stream.putback('x');
    EXPECT_TRUE(stream.bad());
    EXPECT_EQ(octets, "ab");
}

TEST(NullOutputStream, TakesEverything)
{
    NullOutputStream stream;
    const std::string megabyte(1 << 20, 'x');
    stream << "text" << 42 << std::flush;
    stream.write(megabyte.data(), static_cast<std::streamsize>(megabyte.size()));
    stream.put('\xFF');
    EXPECT_TRUE(stream.good());
}

} // namespace Vesk
