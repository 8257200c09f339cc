// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/Encoding.h"
#include "EncodingTestSupport.h"
#include "ExceptionMatcher.h"
#include "Vesk/FastInfoset/BoolEncoding.h"
#include "Vesk/FastInfoset/CDataEncoding.h"
#include "Vesk/FastInfoset/DWordEncoding.h"
#include "Vesk/FastInfoset/DecodingAlgorithm.h"
#include "Vesk/FastInfoset/DoubleEncoding.h"
#include "Vesk/FastInfoset/EncodingAlgorithm.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include "Vesk/FastInfoset/FloatEncoding.h"
#include "Vesk/FastInfoset/HexEncoding.h"
#include "Vesk/FastInfoset/IntEncoding.h"
#include "Vesk/FastInfoset/LongEncoding.h"
#include "Vesk/FastInfoset/NullRefEncoding.h"
#include "Vesk/FastInfoset/ShortEncoding.h"
#include "Vesk/FastInfoset/UUIDEncoding.h"

namespace Vesk::FastInfoset
{

namespace
{

const std::string UUID_TEXT("00112233-4455-6677-8899-AABBCCDDEEFF");

// One value of each kind, with its index as position.
std::vector<AutoPtr<Encoding>> kinds()
{
    return {new NullEncoding("text"), new HexEncoding("0AFF"),     new DWordEncoding("AAEC"), new ShortEncoding(3),
            new IntEncoding(4),       new LongEncoding(5L),        new BoolEncoding(true),    new FloatEncoding(1.5f),
            new DoubleEncoding(2.5),  new UUIDEncoding(UUID_TEXT), new CDataEncoding("cdata")};
}

const char* const KIND_TEXTS[] = {"text", "0AFF", "AAEC", "3", "4", "5", "true", "1.5", "2.5", UUID_TEXT.c_str(),
                                  "cdata"};

const char* const KIND_EVENTS[] = {"characters text\n", "binary 0A FF\n",
                                   "binary 00 01 02\n", "short 3\n",
                                   "int 4\n",           "long 5\n",
                                   "bool true\n",       "float 1.5\n",
                                   "double 2.5\n",      "UUID 00112233-4455-6677-8899-aabbccddeeff\n",
                                   "characters cdata\n"};

} // namespace

TEST(EncodingTest, EachKindKnowsItsFunctions)
{
    const EncodingAlgorithm encodings;
    const DecodingAlgorithm decodings;
    const std::vector<AutoPtr<Encoding>> values = kinds();
    for (unsigned int index = 0; index < values.size(); ++index)
    {
        SCOPED_TRACE(index);
        const Encoding& value = *values[index];
        EXPECT_EQ(value.type(), static_cast<int>(index));
        const std::string octets = written(value);
        const AutoPtr<Encoding> copy = decoded(value.decodeMethod(), octets);
        EXPECT_EQ(copy->type(), value.type());
        EXPECT_EQ(typedEvents(*copy), KIND_EVENTS[index]);
        EXPECT_EQ(textOf(*copy), KIND_TEXTS[index]);
        EXPECT_EQ(textEvents(*copy), std::string("characters ") + KIND_TEXTS[index] + '\n');
        EXPECT_EQ(hexOf(encoded(value.encodeMethod(), KIND_TEXTS[index])), hexOf(octets));
        if (index > 0)
        {
            EXPECT_EQ(encodings.encoding(index), value.encodeMethod());
            EXPECT_EQ(encodings.check(index), value.checkMethod());
            EXPECT_EQ(decodings.decoding(index), value.decodeMethod());
        }
    }
}

TEST(EncodingTest, NoHandlerReceivesNothing)
{
    for (const AutoPtr<Encoding>& value : kinds())
    {
        value->handle(static_cast<FISContentHandler*>(nullptr));
        value->handle(static_cast<XML::ContentHandler*>(nullptr));
    }
    const std::string text("text");
    const NullRefEncoding reference(text);
    reference.handle(static_cast<FISContentHandler*>(nullptr));
    reference.handle(static_cast<XML::ContentHandler*>(nullptr));
}

TEST(EncodingTest, MergesOnlyValuesOfItsOwnKind)
{
    for (std::size_t left = 0; left < kinds().size(); ++left)
    {
        for (std::size_t right = 0; right < kinds().size(); ++right)
        {
            SCOPED_TRACE(testing::Message() << left << " merged with " << right);
            const AutoPtr<Encoding> value = kinds()[left];
            const AutoPtr<Encoding> other = kinds()[right];
            EXPECT_EQ(value->merge(*other), left == right);
            EXPECT_EQ(typedEvents(*other), KIND_EVENTS[right]);
            EXPECT_EQ(typedEvents(*value) == KIND_EVENTS[left], left != right);
        }
    }
}

TEST(EncodingTest, MergingAppends)
{
    IntEncoding numbers(std::vector<int>{1, 2});
    EXPECT_TRUE(numbers.merge(IntEncoding(3)));
    EXPECT_TRUE(numbers.merge(numbers));
    EXPECT_EQ(numbers.values(), (std::vector<int>{1, 2, 3, 1, 2, 3}));

    HexEncoding octets("0AFF");
    EXPECT_TRUE(octets.merge(HexEncoding("0B")));
    EXPECT_TRUE(octets.merge(octets));
    EXPECT_EQ(textOf(octets), "0AFF0B0AFF0B");

    CDataEncoding section("a");
    EXPECT_TRUE(section.merge(CDataEncoding("b")));
    EXPECT_TRUE(section.merge(section));
    EXPECT_EQ(section.content(), "abab");

    const std::string referenced("referenced");
    NullEncoding text("plain ");
    EXPECT_TRUE(text.merge(NullRefEncoding(referenced)));
    EXPECT_EQ(text.content(), "plain referenced");
}

TEST(EncodingTest, ContentIsWhatCreateContentSawLast)
{
    IntEncoding numbers(1);
    const Encoding& asConst = numbers;
    EXPECT_EQ(asConst.content(), "");
    EXPECT_EQ(textEvents(numbers), "characters \n");
    EXPECT_EQ(textOf(numbers), "1");

    numbers.createContent();
    EXPECT_TRUE(numbers.merge(IntEncoding(2)));
    EXPECT_EQ(asConst.content(), "1") << "merging leaves the content as it was";
    EXPECT_EQ(textEvents(numbers), "characters 1\n");
    EXPECT_EQ(textOf(numbers), "1 2");

    numbers.createContent();
    EXPECT_FALSE(numbers.merge(ShortEncoding(7)));
    EXPECT_EQ(textEvents(numbers), "characters 1 2\n");

    numbers.content() = "changed";
    EXPECT_EQ(asConst.content(), "changed");
    EXPECT_EQ(textOf(numbers), "1 2");
    numbers.createContent();
    EXPECT_EQ(numbers.content(), "1 2");
}

TEST(EncodingTest, DecodedValuesCarryTheirText)
{
    for (const AutoPtr<Encoding>& value : kinds())
    {
        SCOPED_TRACE(value->type());
        const bool octets = value->type() == HexEncoding::TYPE || value->type() == DWordEncoding::TYPE;
        const AutoPtr<Encoding> copy = decoded(value->decodeMethod(), written(*value));
        EXPECT_EQ(copy->content(), octets ? value->content() : KIND_TEXTS[value->type()]);
    }
}

TEST(EncodingTest, CutOffValuesEndInAnException)
{
    for (const AutoPtr<Encoding>& value : kinds())
    {
        const std::string octets = written(*value);
        for (std::size_t size = 1; size < octets.size(); ++size)
        {
            SCOPED_TRACE(testing::Message() << value->type() << " cut to " << size << " octets");
            const std::string cut = octets.substr(0, size);
            EXPECT_THROW(value->decodeMethod()(ValueReader(cut)), FISParseException);
            std::istringstream stream(cut);
            BitStreamReader reader(stream);
            reader.skip(4);
            EXPECT_THROW(value->decodeMethod()(reader), FISParseException);
        }
    }
}

TEST(EncodingTest, EmptyTextsAreRefused)
{
    EXPECT_VESK_THROW(NullEncoding(""), FISEncodingException, "Illegal empty string for NullEncoding");
    EXPECT_VESK_THROW(NullEncoding("text", 0), FISEncodingException, "Illegal empty string for NullEncoding");
    EXPECT_VESK_THROW(CDataEncoding(""), FISEncodingException, "Illegal empty string for CDataEncoding");
    EXPECT_VESK_THROW(CDataEncoding("text", 0), FISEncodingException, "Illegal empty string for CDataEncoding");
    EXPECT_VESK_THROW(encoded(&CDataEncoding::encode, ""), FISEncodingException,
                      "Illegal empty string for CDataEncoding");
}

TEST(EncodingTest, TextCarriersKeepTheirOctets)
{
    const std::string text("a\0\xC3\xA4<", 5);
    EXPECT_EQ(hexOf(written(NullEncoding(text))), "04 61 00 C3 A4 3C");
    EXPECT_EQ(hexOf(written(CDataEncoding(text))), "04 61 00 C3 A4 3C");
    EXPECT_EQ(NullEncoding("text", 2).content(), "te");
    EXPECT_EQ(CDataEncoding("text", 2).content(), "te");

    std::string read("before");
    NullEncoding::decode(ValueReader(octetsOf("01 61 62")), read);
    EXPECT_EQ(read, "ab");
    CDataEncoding::decode(ValueReader(octetsOf("01 63 64")), read);
    EXPECT_EQ(read, "cd");
}

TEST(EncodingTest, NullEncodingHasRoomForTheNextText)
{
    NullEncoding empty;
    EXPECT_EQ(empty.content(), "");
    EXPECT_GE(empty.content().capacity(), 1024u);
    EXPECT_EQ(decoded(&NullEncoding::decode, octetsOf("00 61"))->content(), "a");
}

TEST(EncodingTest, NullRefEncodingDeliversTheReferencedText)
{
    std::string text("first");
    NullRefEncoding reference(text);
    EXPECT_EQ(reference.type(), 0);
    EXPECT_EQ(&static_cast<const Encoding&>(reference).content(), &text);
    EXPECT_EQ(hexOf(written(reference)), "04 66 69 72 73 74");
    const std::string second("second");
    reference.refer(&second);
    EXPECT_EQ(typedEvents(reference), "characters second\n");
    EXPECT_EQ(textEvents(reference), "characters second\n");
    EXPECT_EQ(textOf(reference), "second");
}

TEST(EncodingTest, NullRefEncodingIsImmutable)
{
    const std::string text("text");
    NullRefEncoding reference(text);
    const char* const MESSAGE = "NullRefEncoding is immutable";
    EXPECT_VESK_THROW(reference.content(), InvalidAccessException, MESSAGE);
    EXPECT_VESK_THROW(reference.merge(NullEncoding("more")), InvalidAccessException, MESSAGE);
    EXPECT_VESK_THROW(reference.merge(IntEncoding(1)), InvalidAccessException, MESSAGE);

    reference.refer(nullptr);
    EXPECT_VESK_THROW(reference.content(), InvalidAccessException, MESSAGE);
    EXPECT_VESK_THROW(reference.merge(NullEncoding("more")), InvalidAccessException, MESSAGE);
    EXPECT_THROW(textOf(reference), NullPointerException);
    EXPECT_THROW(written(reference), NullPointerException);
    EXPECT_THROW(typedEvents(reference), NullPointerException);
}

TEST(EncodingTest, ExceptionsHaveTheirNames)
{
    EXPECT_STREQ(FISException().name(), "FastInfoset Exception");
    EXPECT_STREQ(FISParseException().name(), "FastInfoset Parse Exception");
    EXPECT_STREQ(FISEncodingException().name(), "FastInfoset Encoding Exception");
    EXPECT_THROW(FISParseException("message").rethrow(), FISParseException);
    EXPECT_THROW(throw FISEncodingException(), FISException);
    EXPECT_THROW(throw FISException(), RuntimeException);
}

} // namespace Vesk::FastInfoset
