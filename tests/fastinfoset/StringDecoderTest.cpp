// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/StringDecoder.h"
#include "EncodingTestSupport.h"
#include "ExceptionMatcher.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/RestrictedAlphabet.h"
#include "Vesk/UTF8Encoding.h"
#include <random>

namespace Vesk::FastInfoset
{

namespace
{

std::string decodedText(const std::string& octets, const RestrictedAlphabet& alphabet)
{
    std::string text("before");
    StringDecoder::decodeAlphabet(octets, alphabet, text);
    return text;
}

std::string fromUTF16(const char* octets)
{
    std::string text("before");
    StringDecoder::decodeUTF16(octetsOf(octets), text);
    return text;
}

void appendCharacter(std::string& text, int codePoint)
{
    char octets[UTF8Encoding::MAX_OCTETS];
    text.append(octets, UTF8Encoding().encode(codePoint, octets));
}

} // namespace

TEST(StringDecoderTest, CodesSelectCharacters)
{
    const RestrictedAlphabet numeric("0123456789-+.e");    // 3 bits: the first eight characters
    EXPECT_EQ(decodedText(octetsOf("01"), numeric), "00"); // 000 000 and two bits left
    EXPECT_EQ(decodedText(octetsOf("05 39 77"), numeric), "01234567");
    EXPECT_EQ(decodedText("", numeric), "");

    const RestrictedAlphabet letters("ab"); // 1 bit, no room for the end code 2
    EXPECT_EQ(decodedText(octetsOf("A5 01"), letters), "babaababaaaaaaab");
}

TEST(StringDecoderTest, TheCodeBehindTheLastCharacterEndsTheText)
{
    const RestrictedAlphabet three("abc"); // 2 bits, the end is 3
    EXPECT_EQ(decodedText(octetsOf("1B 00"), three), "abc");
    EXPECT_EQ(decodedText(octetsOf("FF"), three), "");
    const RestrictedAlphabet one("a"); // 1 bit, the end is 1
    EXPECT_EQ(decodedText(octetsOf("00 10"), one), "aaaaaaaaaaa");
    const RestrictedAlphabet fifteen("0123456789abcde"); // 4 bits, the end is 15
    EXPECT_EQ(decodedText(octetsOf("0E F0"), fifteen), "0e");
}

TEST(StringDecoderTest, CodesOfEveryWidthFollowOneAnother)
{
    std::mt19937 random(7);
    for (int codeBits = 1; codeBits <= 15; ++codeBits)
    {
        SCOPED_TRACE(testing::Message() << codeBits << " bits");
        // As many characters as codes: then no code means the end. Some of them have two, three and four octets.
        std::string characters;
        std::vector<int> codePoints;
        for (int code = 0; code < 1 << codeBits; ++code)
        {
            codePoints.push_back(0x20 + code * (codeBits > 11 ? 1 : 17) + (code % 3 == 1 ? 0x10000 : 0));
            appendCharacter(characters, codePoints.back());
        }
        const RestrictedAlphabet alphabet(characters);
        ASSERT_EQ(alphabet.bitsPerCharacter(), codeBits);

        std::string expected;
        std::ostringstream stream;
        {
            BitStreamWriter writer(stream, false);
            for (int i = 0; i < 16; ++i) // a whole number of octets, so that no bits are left over
            {
                const int code = static_cast<int>(random() % codePoints.size());
                appendCharacter(expected, codePoints[static_cast<std::size_t>(code)]);
                writer.write(code, codeBits);
            }
        }
        EXPECT_EQ(decodedText(stream.str(), alphabet), expected);
    }
}

TEST(StringDecoderTest, AnAlphabetWithoutCharactersIsRefused)
{
    EXPECT_VESK_THROW(decodedText("text", RestrictedAlphabet()), FISEncodingException,
                      "Restricted alphabet without characters");
}

TEST(StringDecoderTest, UTF16IsBigEndian)
{
    EXPECT_EQ(fromUTF16("00 61 00 E4 20 AC D8 3D DE 00"), "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(fromUTF16(""), "");
}

TEST(StringDecoderTest, IllFormedUTF16BecomesQuestionMarks)
{
    EXPECT_EQ(fromUTF16("D8 3D 00 61"), "?a"); // a high surrogate alone
    EXPECT_EQ(fromUTF16("DE 00 00 61"), "?a"); // a low one
    EXPECT_EQ(fromUTF16("00 61 D8 3D"), "a?");
    EXPECT_EQ(fromUTF16("00 61 00"), "a?"); // half a unit
}

} // namespace Vesk::FastInfoset
