// SPDX-License-Identifier: MIT
#include "ExceptionMatcher.h"
#include "Octets.h"
#include "Vesk/FastInfoset/BitStreamReader.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/Decoder.h"
#include "Vesk/FastInfoset/Encoder.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include <functional>
#include <sstream>

// The codes of Encoder and Decoder: what the one writes, bit by bit, and what the other makes of it.

namespace Vesk::FastInfoset
{

namespace
{

const char INTEGER_CUT_OFF[] = "Unexpected end of stream while reading integer";
const char LENGTH_CUT_OFF[] = "Unexpected end of stream while parsing string length";
const char SEQUENCE_CUT_OFF[] = "Unexpected end of stream while parsing sequence length";
const char SURROGATE_CUT_OFF[] = "Unexpected end of stream while reading surrogate";
const char HEADER_CUT_OFF[] = "Unexpected end of stream while parsing document header";

using Writing = std::function<void(BitStreamWriter&)>;
using Reading = std::function<void(BitStreamReader&)>;

/// What is written at a bit offset behind bits that are 1, padded with 1.
std::string writtenAt(int offset, const Writing& writing)
{
    std::ostringstream stream;
    {
        BitStreamWriter writer(stream, true);
        writer.writeBits(offset, true);
        writing(writer);
    }
    return stream.str();
}

/// The octets that such a code makes, given its bits.
std::string codeAt(int offset, const std::string& bits)
{
    std::string digits;
    for (const char bit : std::string(static_cast<std::size_t>(offset), '1') + bits)
    {
        if (bit != ' ')
            digits += bit;
    }
    digits.append((8 - digits.size() % 8) % 8, '1');
    std::string octets;
    appendBits(octets, digits);
    return octets;
}

unsigned int integerAt(int offset, const std::string& octets)
{
    const ExactBlock block(octets);
    BitStreamReader reader(block.data(), block.size());
    reader.skip(static_cast<unsigned long>(offset));
    unsigned int value = 12345;
    Decoder::integer(reader, value);
    return value;
}

unsigned long lengthAt(int offset, const std::string& octets)
{
    const ExactBlock block(octets);
    BitStreamReader reader(block.data(), block.size());
    reader.skip(static_cast<unsigned long>(offset));
    unsigned long length = 12345;
    Decoder::nonEmptyStringLength(reader, length);
    return length;
}

/// Whatever input lacks of the octets, from a stream as from memory, the reading ends with that message.
void expectCutOff(int offset, const std::string& octets, const char* message, const Reading& reading)
{
    // An offset other than 0 is never reached in an octet that is not there.
    for (std::size_t size = offset == 0 ? 0 : 1; size < octets.size(); ++size)
    {
        SCOPED_TRACE(testing::Message() << hexOf(octets) << " cut to " << size << " octets, bit " << offset);
        const ExactBlock block(octets.substr(0, size));
        BitStreamReader memory(block.data(), block.size());
        memory.skip(static_cast<unsigned long>(offset));
        EXPECT_VESK_THROW(reading(memory), FISParseException, message);

        std::istringstream stream(octets.substr(0, size));
        BitStreamReader fromStream(stream);
        fromStream.skip(static_cast<unsigned long>(offset));
        EXPECT_VESK_THROW(reading(fromStream), FISParseException, message);
    }
}

struct Code
{
    int offset;
    unsigned long value;
    const char* bits;
};

} // namespace

TEST(PrimitiveCodeTest, IntegersTakeTheFormOfTheirOffset)
{
    // The last value of a form, then the first of the next.
    const Code codes[] = {{1, 0, "1111111"},
                          {1, 1, "0 000000"},
                          {1, 64, "0 111111"},
                          {1, 65, "10 00000 00000000"},
                          {1, 8256, "10 11111 11111111"},
                          {1, 8257, "110 0000 00000000 00000000"},
                          {1, 1048576, "110 1111 11011111 10111111"},
                          {2, 1, "0 00000"},
                          {2, 32, "0 11111"},
                          {2, 33, "100 000 00000000"},
                          {2, 2080, "100 111 11111111"},
                          {2, 2081, "101 000 00000000 00000000"},
                          {2, 526368, "101 111 11111111 11111111"},
                          {2, 526369, "110 000 0000 0000 00000000 00000000"},
                          {2, 1048576, "110 000 0000 0111 11110111 11011111"},
                          {3, 1, "0 0000"},
                          {3, 16, "0 1111"},
                          {3, 17, "100 00 00000000"},
                          {3, 1040, "100 11 11111111"},
                          {3, 1041, "101 00 00000000 00000000"},
                          {3, 263184, "101 11 11111111 11111111"},
                          {3, 263185, "110 00 0000 0000 00000000 00000000"},
                          {3, 1048576, "110 00 0000 1011 11111011 11101111"},
                          {4, 1, "00000000"},
                          {4, 256, "11111111"},
                          {6, 1, "00000000"},
                          {6, 2, "00000001"},
                          {6, 256, "11111111"}};
    for (const Code& code : codes)
    {
        SCOPED_TRACE(testing::Message() << code.value << " at bit " << code.offset);
        const std::string octets = codeAt(code.offset, code.bits);
        const unsigned int value = static_cast<unsigned int>(code.value);
        EXPECT_EQ(hexOf(writtenAt(code.offset, [=](BitStreamWriter& writer) { Encoder::integer(writer, value); })),
                  hexOf(octets));
        EXPECT_EQ(integerAt(code.offset, octets), value);
        expectCutOff(code.offset, octets, INTEGER_CUT_OFF,
                     [](BitStreamReader& reader)
                     {
                         unsigned int ignored = 0;
                         Decoder::integer(reader, ignored);
                     });
    }
}

TEST(PrimitiveCodeTest, EveryIntegerIsReadAsItWasWritten)
{
    const auto check = [](int offset, unsigned int first, unsigned int last)
    {
        std::ostringstream stream;
        {
            BitStreamWriter writer(stream, false);
            writer.hold();
            for (unsigned int value = first; value <= last; ++value)
            {
                writer.writeBits((offset + 8 - writer.bitOffset()) % 8, false);
                Encoder::integer(writer, value);
            }
        }
        const std::string octets = stream.str();
        BitStreamReader reader(octets.data(), octets.size());
        for (unsigned int value = first; value <= last; ++value)
        {
            reader.skip(static_cast<unsigned long>((offset + 8 - reader.bitOffset()) % 8));
            unsigned int read = 0;
            Decoder::integer(reader, read);
            ASSERT_EQ(read, value) << "at bit " << offset;
        }
    };
    check(1, 0, 1u << 20);
    check(2, 1, 1u << 20);
    check(3, 1, 1u << 20);
    check(4, 1, 256);
    check(6, 1, 256);
}

TEST(PrimitiveCodeTest, SpareBitsOfIntegersAreNotLookedAt)
{
    const Code codes[] = {{1, 8257, "111 0000 00000000 00000000"},
                          {1, 73792, "111 0000 11111111 11111111"},
                          {1, 927070, "1111110 00000101 00011101"},
                          {2, 526369, "111 111 1111 0000 00000000 00000000"},
                          {2, 1574944, "111 010 1010 1111 11111111 11111111"},
                          {3, 263185, "111 11 1111 0000 00000000 00000000"},
                          {3, 1311760, "110 10 1010 1111 11111111 11111111"}};
    for (const Code& code : codes)
        EXPECT_EQ(integerAt(code.offset, codeAt(code.offset, code.bits)), code.value) << code.bits;
}

TEST(PrimitiveCodeTest, IntegersThatCannotBeWritten)
{
    const char TOO_LARGE[] = "Cannot encode integer value: too large, must be smaller than 2^20";
    const char ZERO[] = "Value zero must start on the second bit of a byte";
    const char SMALL[] = "Illegal bit position: Only Integers <= 256 can start at pos 4 or 6.";
    const char NEVER[] = "Illegal bit position: No Integers are allowed to be written to pos 5 or 7.";
    struct Case
    {
        int offset;
        unsigned int value;
        const char* message;
    };
    const Case cases[] = {{0, 1, "Illegal bit position 0: Integers can never start there"},
                          {0, 0, ZERO},
                          {2, 0, ZERO},
                          {7, 0, ZERO},
                          {0, 1048577, TOO_LARGE},
                          {1, 1048577, TOO_LARGE},
                          {5, 0xFFFFFFFF, TOO_LARGE},
                          {4, 257, SMALL},
                          {6, 1048576, SMALL},
                          {5, 1, NEVER},
                          {7, 1048576, NEVER}};
    for (const Case& row : cases)
    {
        SCOPED_TRACE(testing::Message() << row.value << " at bit " << row.offset);
        const std::string octets =
            writtenAt(row.offset, [&](BitStreamWriter& writer)
                      { EXPECT_VESK_THROW(Encoder::integer(writer, row.value), FISEncodingException, row.message); });
        EXPECT_EQ(hexOf(octets), hexOf(codeAt(row.offset, ""))) << "nothing is written";
    }
}

TEST(PrimitiveCodeTest, PaddedIntegers)
{
    struct Case
    {
        int offset;
        unsigned int value;
        const char* bits;
    };
    const Case cases[] = {{0, 0, "0 1111111"},
                          {0, 5, "0 0000100"},
                          {0, 64, "0 0111111"},
                          {0, 65, "0 10 00000 00000000"},
                          {0, 8256, "0 10 11111 11111111"},
                          {0, 8257, "0 110 0000 00000000 00000000"},
                          {0, 1048576, "0 110 1111 11011111 10111111"},
                          {1, 5, "0 0 00100"},
                          {2, 5, "0 0 0100"},
                          {3, 5, "0 00000100"},
                          {5, 5, "0 00000100"}};
    for (const Case& row : cases)
    {
        const std::string octets =
            writtenAt(row.offset, [&](BitStreamWriter& writer) { Encoder::pad0ThenInteger(writer, row.value); });
        EXPECT_EQ(hexOf(octets), hexOf(codeAt(row.offset, row.bits))) << row.value << " at bit " << row.offset;
    }
    writtenAt(4,
              [](BitStreamWriter& writer)
              {
                  EXPECT_VESK_THROW(Encoder::pad0ThenInteger(writer, 5), FISEncodingException,
                                    "Illegal bit position: No Integers are allowed to be written to pos 5 or 7.");
              });
}

TEST(PrimitiveCodeTest, LengthsTakeTheFormOfTheirOffset)
{
    const Code codes[] = {{1, 1, "0 000000"},
                          {1, 64, "0 111111"},
                          {1, 65, "1000000 00000000"},
                          {1, 320, "1000000 11111111"},
                          {1, 321, "1100000 00000000 00000000 00000000 00000000"},
                          {1, 4294967616, "1100000 11111111 11111111 11111111 11111111"},
                          {4, 1, "0 000"},
                          {4, 8, "0 111"},
                          {4, 9, "1000 00000000"},
                          {4, 264, "1000 11111111"},
                          {4, 265, "1100 00000000 00000000 00000000 00000000"},
                          {4, 4294967560, "1100 11111111 11111111 11111111 11111111"},
                          {6, 1, "0 0"},
                          {6, 2, "0 1"},
                          {6, 3, "10 00000000"},
                          {6, 258, "10 11111111"},
                          {6, 259, "11 00000000 00000000 00000000 00000000"},
                          {6, 4294967554, "11 11111111 11111111 11111111 11111111"}};
    for (const Code& code : codes)
    {
        SCOPED_TRACE(testing::Message() << code.value << " at bit " << code.offset);
        const std::string octets = codeAt(code.offset, code.bits);
        const auto write = [&](BitStreamWriter& writer)
        {
            Encoder::nonEmptyStringLength(writer, code.value);
            EXPECT_EQ(writer.bitOffset(), 0) << "the string's octets are not shifted";
        };
        EXPECT_EQ(hexOf(writtenAt(code.offset, write)), hexOf(octets));
        EXPECT_EQ(lengthAt(code.offset, octets), code.value);
        expectCutOff(code.offset, octets, LENGTH_CUT_OFF,
                     [](BitStreamReader& reader)
                     {
                         unsigned long ignored = 0;
                         Decoder::nonEmptyStringLength(reader, ignored);
                     });
    }
}

TEST(PrimitiveCodeTest, EveryLengthIsReadAsItWasWritten)
{
    for (const int offset : {1, 4, 6})
    {
        // One by one over all forms, then in growing steps up to the end of the longest one.
        for (unsigned long length = 1; length <= 4294967296; length += 1 + (length > 600 ? length / 50 : 0))
        {
            const std::string octets =
                writtenAt(offset, [=](BitStreamWriter& writer) { Encoder::nonEmptyStringLength(writer, length); });
            ASSERT_EQ(lengthAt(offset, octets), length) << "at bit " << offset;
        }
    }
}

TEST(PrimitiveCodeTest, SpareBitsOfLengthsAreNotLookedAt)
{
    const Code codes[] = {{1, 321, "1000001 00000000 00000000 00000000 00000000"},
                          {1, 323, "1111111 00000000 00000000 00000000 00000010"},
                          {4, 265, "1001 00000000 00000000 00000000 00000000"},
                          {4, 266, "1111 00000000 00000000 00000000 00000001"}};
    for (const Code& code : codes)
        EXPECT_EQ(lengthAt(code.offset, codeAt(code.offset, code.bits)), code.value) << code.bits;
}

TEST(PrimitiveCodeTest, OctetStringsFollowTheirLength)
{
    for (const int offset : {1, 4, 6})
    {
        for (const std::size_t size : {1u, 2u, 3u, 8u, 9u, 64u, 65u, 258u, 259u, 264u, 265u, 320u, 321u, 70000u})
        {
            SCOPED_TRACE(testing::Message() << size << " octets at bit " << offset);
            std::string text(size, 'x');
            text.front() = '\0';
            const std::string octets =
                writtenAt(offset, [&](BitStreamWriter& writer) { Encoder::nonEmptyOctetString(writer, text); });
            const ExactBlock block(octets);
            BitStreamReader reader(block.data(), block.size());
            reader.skip(static_cast<unsigned long>(offset));
            std::string read;
            Decoder::nonEmptyOctetString(reader, read);
            EXPECT_EQ(read, text);
            EXPECT_EQ(reader.octetPosition(), octets.size());
        }
    }
    const std::string octets =
        writtenAt(1,
                  [](BitStreamWriter& writer)
                  {
                      EXPECT_VESK_THROW(Encoder::nonEmptyOctetString(writer, ""), FISEncodingException,
                                        "Encoder::nonEmptyOctetString cannot encode empty strings");
                  });
    EXPECT_EQ(hexOf(octets), "FF");
}

TEST(PrimitiveCodeTest, OctetStringsCutOff)
{
    const std::string octets = codeAt(6, "10 00000000") + "ab";
    std::string text;
    const ExactBlock block(octets);
    BitStreamReader memory(block.data(), block.size());
    memory.skip(6);
    EXPECT_VESK_THROW(Decoder::nonEmptyOctetString(memory, text), FISParseException,
                      "Unexpected end of stream while reading octet string");
    std::istringstream stream(octets);
    BitStreamReader fromStream(stream);
    fromStream.skip(6);
    EXPECT_VESK_THROW(Decoder::nonEmptyOctetString(fromStream, text), FISParseException,
                      "Unexpected end of stream while parsing octet string");
}

TEST(PrimitiveCodeTest, SequenceLengths)
{
    struct Case
    {
        const char* octets;
        unsigned int count;
    };
    const Case cases[] = {{"00", 1},           {"7F", 128},           {"80 00 00", 129},
                          {"80 00 01", 130},   {"8F FF FF", 1048704}, {"F0 00 00", 129},
                          {"FF 00 02", 983171}};
    for (const Case& row : cases)
    {
        SCOPED_TRACE(row.octets);
        const auto read = [](BitStreamReader& reader)
        {
            unsigned int count = 0;
            Decoder::lengthOfSequence(reader, count);
            return count;
        };
        const ExactBlock block(octetsOf(row.octets));
        BitStreamReader reader(block.data(), block.size());
        EXPECT_EQ(read(reader), row.count);
        EXPECT_EQ(reader.octetPosition(), block.size());
        expectCutOff(0, octetsOf(row.octets), SEQUENCE_CUT_OFF, read);
    }

    for (unsigned int count = 1; count <= 128; ++count)
    {
        const std::string octets =
            writtenAt(0, [=](BitStreamWriter& writer) { Encoder::lengthOfSequence(writer, count); });
        EXPECT_EQ(octets, std::string(1, static_cast<char>(count - 1)));
    }
}

TEST(PrimitiveCodeTest, LongSequenceLengthsAreWrittenInAFormOfTheirOwn)
{
    const std::pair<unsigned int, const char*> cases[] = {
        {129, "08 00 00"}, {130, "08 00 01"}, {0x7FFFF, "0F FF 7E"}, {0x80000, "07 FF 7F"}, {0x100000, "17 FF 7F"}};
    for (const auto& [count, octets] : cases)
    {
        const unsigned int written = count;
        EXPECT_EQ(hexOf(writtenAt(0, [=](BitStreamWriter& writer) { Encoder::lengthOfSequence(writer, written); })),
                  octets);
    }
}

TEST(PrimitiveCodeTest, CodesAtIllegalOffsets)
{
    struct Case
    {
        const char* name;
        const char* offsets;
        const char* message;
        Reading read;
        Writing write;
    };
    const char LENGTH[] = "illegal position for nonEmptyOctetString encoding";
    const char SEQUENCE[] = "Illegal startposition for a lengthOfSequence value";
    unsigned int number = 0;
    unsigned long length = 0;
    std::string text;
    const Case cases[] = {
        {"integer", "0", "Illegal bit position 0: Integers can never start there",
         [&](BitStreamReader& reader) { Decoder::integer(reader, number); },
         [](BitStreamWriter& writer)
         {
             Encoder::integer(writer, 1);
         }},
        {"integer", "57", "Illegal bit position: No Integers are allowed to be read from pos 5 or 7.",
         [&](BitStreamReader& reader) { Decoder::integer(reader, number); }, nullptr},
        {"length", "02357", LENGTH, [&](BitStreamReader& reader) { Decoder::nonEmptyStringLength(reader, length); },
         [](BitStreamWriter& writer)
         {
             Encoder::nonEmptyStringLength(writer, 1);
         }},
        {"octet string", "02357", LENGTH, [&](BitStreamReader& reader) { Decoder::nonEmptyOctetString(reader, text); },
         [](BitStreamWriter& writer)
         {
             Encoder::nonEmptyOctetString(writer, "a");
         }},
        {"sequence length", "1234567", SEQUENCE,
         [&](BitStreamReader& reader) { Decoder::lengthOfSequence(reader, number); },
         [](BitStreamWriter& writer)
         {
             Encoder::lengthOfSequence(writer, 1);
         }},
        {"name surrogate", "0123457", "Illegal startposition for a nameSurrogate value",
         [](BitStreamReader& reader) { Decoder::nameSurrogate(reader); }, nullptr}};
    for (const Case& row : cases)
    {
        for (const char* digit = row.offsets; *digit != '\0'; ++digit)
        {
            SCOPED_TRACE(testing::Message() << row.name << " at bit " << *digit);
            const int offset = *digit - '0';
            BitStreamReader reader("abcdefgh", 8);
            reader.skip(static_cast<unsigned long>(offset));
            EXPECT_VESK_THROW(row.read(reader), FISEncodingException, row.message);
            EXPECT_EQ(reader.bitOffset(), offset);
            EXPECT_EQ(reader.octetPosition(), 0u);
            if (!row.write)
                continue;
            const std::string octets =
                writtenAt(offset, [&](BitStreamWriter& writer)
                          { EXPECT_VESK_THROW(row.write(writer), FISEncodingException, row.message); });
            EXPECT_EQ(hexOf(octets), hexOf(codeAt(offset, "")));
        }
    }

    writtenAt(0,
              [](BitStreamWriter& writer)
              {
                  EXPECT_VESK_THROW(Encoder::lengthOfSequence(writer, 0), FISEncodingException,
                                    "Illegal value zero for lengthOfSequence");
                  EXPECT_VESK_THROW(Encoder::lengthOfSequence(writer, 1048577), FISEncodingException,
                                    "Illegal value for lengthOfSequence: larger than 2^20");
              });
}

TEST(PrimitiveCodeTest, NameSurrogates)
{
    constexpr unsigned int ABSENT = 0xFFFFFFFF;
    struct Case
    {
        const char* octets;
        unsigned int prefix;
        unsigned int namespaceName;
        unsigned int localName;
    };
    const Case cases[] = {{"[000000 00] 00", ABSENT, ABSENT, 1},
                          {"[000000 01] 02 3F", ABSENT, 3, 64},
                          {"[000000 10] 02 FF", 3, ABSENT, 0},
                          {"[000000 11] 00 01 40 00", 1, 2, 65},
                          {"[111111 11] 60 00 00 81 02", 8257, 2, 3}};
    for (const Case& row : cases)
    {
        SCOPED_TRACE(row.octets);
        const std::string octets = octetsOf(row.octets);
        const ExactBlock block(octets);
        BitStreamReader reader(block.data(), block.size());
        reader.skip(6);
        const QualifiedNameEntry name = Decoder::nameSurrogate(reader);
        EXPECT_EQ(name.prefix(), row.prefix);
        EXPECT_EQ(name.namespaceName(), row.namespaceName);
        EXPECT_EQ(name.localName(), row.localName);
        EXPECT_EQ(reader.octetPosition(), octets.size());
    }
    expectCutOff(6, octetsOf("[000000 11] 00 01 02"), SURROGATE_CUT_OFF,
                 [](BitStreamReader& reader) { Decoder::nameSurrogate(reader); });
    BitStreamReader insideInteger("\x03\x40", 2);
    insideInteger.skip(6);
    EXPECT_VESK_THROW(Decoder::nameSurrogate(insideInteger), FISParseException, INTEGER_CUT_OFF);
}

TEST(PrimitiveCodeTest, PreHeaders)
{
    const auto write = [](bool withDeclaration)
    {
        return writtenAt(0,
                         [=](BitStreamWriter& writer)
                         {
                             Encoder::documentPreHeader(writer, withDeclaration);
                             EXPECT_EQ(writer.bitOffset(), 1);
                         });
    };
    EXPECT_EQ(hexOf(write(false)), "E0 00 00 01 7F");
    EXPECT_EQ(hexOf(write(true)), hexOf("<?xml encoding='finf'?>" + octetsOf("E0 00 00 01 7F")));

    const auto declaration = [](const std::string& octets)
    {
        const ExactBlock block(octets);
        BitStreamReader reader(block.data(), block.size());
        std::string text("before");
        Decoder::documentPreHeader(reader, text);
        EXPECT_EQ(reader.bitOffset(), 1);
        EXPECT_EQ(reader.octetPosition() + 1, octets.size());
        return text;
    };
    EXPECT_EQ(declaration(octetsOf("E0 00 00 01 00")), "");
    for (const char* text :
         {"<?xml encoding='finf'?>", "<?>", "<?xml version=\"1.0\" encoding='finf' standalone='no'?>"})
        EXPECT_EQ(declaration(text + octetsOf("E0 00 00 01 00")), text);
}

TEST(PrimitiveCodeTest, PreHeadersOfOtherFormats)
{
    const char INVALID[] = "Not a valid Fast Infoset document (invalid header)";
    const std::pair<std::string, const char*> cases[] = {
        {octetsOf("E0 00 00 02 00"), "Unsupported Fast Infoset document version"},
        {octetsOf("E0 00 01 01 00"), "Unsupported Fast Infoset document version"},
        {octetsOf("E0 01 00 01 00"), INVALID},
        {octetsOf("3C 3C 00 01 00"), INVALID},
        {"<?xml version='1.0'?>\n<a/>", INVALID},
        {"<?xml version='1.0'?>" + octetsOf("E0 00 00 00 00"), "Unsupported Fast Infoset document version"}};
    for (const auto& [octets, message] : cases)
    {
        BitStreamReader reader(octets.data(), octets.size());
        std::string text;
        EXPECT_VESK_THROW(Decoder::documentPreHeader(reader, text), FISException, message);
    }
}

TEST(PrimitiveCodeTest, PreHeadersCutOff)
{
    const auto read = [](BitStreamReader& reader)
    {
        std::string text;
        Decoder::documentPreHeader(reader, text);
    };
    expectCutOff(0, octetsOf("E0 00 00 01"), HEADER_CUT_OFF, read);
    const std::string declaration("<?xml encoding='finf'?>");
    for (std::size_t size = 0; size < declaration.size(); ++size)
    {
        BitStreamReader reader(declaration.data(), size);
        EXPECT_VESK_THROW(read(reader), FISParseException,
                          size < 2 ? HEADER_CUT_OFF : "Unexpected end of stream while parsing XML declaration");
    }
    BitStreamReader nothingBehind(declaration.data(), declaration.size());
    EXPECT_VESK_THROW(read(nothingBehind), FISParseException, HEADER_CUT_OFF);
}

} // namespace Vesk::FastInfoset
