// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/BinaryEncoding.h"
#include "EncodingTestSupport.h"
#include "ExceptionMatcher.h"
#include "Vesk/FastInfoset/DWordEncoding.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/HexEncoding.h"

namespace Vesk::FastInfoset
{

namespace
{

struct TextCase
{
    const char* text;
    const char* octets; // null for a text that is refused
    const char* printed;
};

const TextCase HEX_CASES[] = {
    {"0AFF", "0A FF", "0AFF"},       {"0aFf", "0A FF", "0AFF"},     {"00", "00", "00"},
    {" 0A\tF\nF ", "0A FF", "0AFF"}, {"0", nullptr, nullptr},       {"0AF", nullptr, nullptr},
    {"0G", nullptr, nullptr},        {"0AFF-", nullptr, nullptr},   {"0x0A", nullptr, nullptr},
    {" ", nullptr, nullptr},         {"\r\n\t ", nullptr, nullptr},
};

const TextCase BASE64_CASES[] = {
    {"AAEC", "00 01 02", "AAEC"},
    {"AAE=", "00 01", "AAE="},
    {"AA==", "00", "AA=="},
    {"+/+/", "FB FF BF", "+/+/"},
    {"AA\nEC ", "00 01 02", "AAEC"},
    {"AAE", nullptr, nullptr},
    {"AA", nullptr, nullptr},
    {"AA=", nullptr, nullptr},
    {"A===", nullptr, nullptr},
    {"=AAE", nullptr, nullptr},
    {"AAE=AAEC", nullptr, nullptr},
    {"AA-_", nullptr, nullptr},
    {"AAE!", nullptr, nullptr},
    {"\xC3\xA4"
     "AA",
     nullptr, nullptr},
    {" ", nullptr, nullptr},
};

template <class Class>
void expectTexts(const TextCase* begin, const TextCase* end, const char* badTextMessage)
{
    for (const TextCase* row = begin; row != end; ++row)
    {
        SCOPED_TRACE(row->text);
        if (!row->octets)
        {
            EXPECT_EQ(Class::check(row->text), -1);
            EXPECT_VESK_THROW(Class{row->text}, FISEncodingException, badTextMessage);
            EXPECT_VESK_THROW(encoded(&Class::encode, row->text), FISEncodingException, badTextMessage);
            continue;
        }
        const Class encoding(row->text);
        EXPECT_EQ(hexOf(encoding.Encoding::content()), row->octets);
        EXPECT_EQ(Class::check(row->text), static_cast<int>(octetsOf(row->octets).size()));
        EXPECT_EQ(textEvents(encoding), std::string("characters ") + row->printed + '\n');
        EXPECT_EQ(typedEvents(encoding), std::string("binary ") + row->octets + '\n');
        EXPECT_EQ(hexOf(encoded(&Class::encode, row->text)), hexOf(written(encoding)));
    }
}

template <class Class>
void expectRoundTrip(const std::string& octets)
{
    const Class encoding(octets.data(), octets.size());
    const AutoPtr<Encoding> copy = decoded(&Class::decode, written(encoding));
    ASSERT_EQ(hexOf(copy->content()), hexOf(octets));

    std::string text;
    Class::decode(ValueReader(written(encoding)), text);
    ASSERT_EQ(text, textOf(encoding));
    ASSERT_EQ(Class::check(text), static_cast<int>(octets.size()));
    ASSERT_EQ(hexOf(Class(text).Encoding::content()), hexOf(octets));
}

} // namespace

TEST(BinaryEncodingTest, TextsAreReadAndPrinted)
{
    expectTexts<HexEncoding>(std::begin(HEX_CASES), std::end(HEX_CASES), "Invalid hex-encoded data");
    expectTexts<DWordEncoding>(std::begin(BASE64_CASES), std::end(BASE64_CASES), "Invalid base64-encoded data");
}

TEST(BinaryEncodingTest, NoOctetsAreRefused)
{
    EXPECT_VESK_THROW(HexEncoding(""), FISEncodingException, "Zero-length data for hex encoding");
    EXPECT_VESK_THROW(HexEncoding("x", 0), FISEncodingException, "Zero-length data for hex encoding");
    EXPECT_VESK_THROW(DWordEncoding(""), FISEncodingException, "Zero-length data for dword encoding");
    EXPECT_VESK_THROW(DWordEncoding("x", 0), FISEncodingException, "Zero-length data for dword encoding");
    EXPECT_EQ(HexEncoding::check(""), -1);
    EXPECT_EQ(DWordEncoding::check(""), -1);
    EXPECT_EQ(HexEncoding().content(), "");
}

TEST(BinaryEncodingTest, OctetsAreWrittenAsTheyAre)
{
    EXPECT_EQ(hexOf(written(HexEncoding("0AFF"))), "01 0A FF");
    EXPECT_EQ(hexOf(written(DWordEncoding("\0\1", 2))), "01 00 01");
}

TEST(BinaryEncodingTest, AllOctetsSurviveAtAllSmallLengths)
{
    for (unsigned int first = 0; first < 256; ++first)
    {
        for (std::size_t size = 1; size <= 9; ++size)
        {
            std::string octets;
            while (octets.size() < size)
                octets += static_cast<char>(first + 37 * octets.size());
            expectRoundTrip<HexEncoding>(octets);
            expectRoundTrip<DWordEncoding>(octets);
        }
    }
}

TEST(BinaryEncodingTest, LargeDataSurvives)
{
    std::string octets;
    for (unsigned int i = 0; i < 300001; ++i)
        octets += static_cast<char>((i * 2654435761u) >> 24);
    expectRoundTrip<HexEncoding>(octets);
    expectRoundTrip<DWordEncoding>(octets);

    // A bad character far behind is found, too.
    std::string text = textOf(DWordEncoding(octets.data(), octets.size()));
    text[399990] = '!';
    EXPECT_EQ(DWordEncoding::check(text), -1);
}

TEST(BinaryEncodingTest, CreateContentLeavesTheOctetsAlone)
{
    DWordEncoding encoding("AAEC");
    encoding.createContent();
    EXPECT_EQ(hexOf(encoding.content()), "00 01 02");
}

} // namespace Vesk::FastInfoset
