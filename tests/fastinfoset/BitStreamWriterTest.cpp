// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "ExceptionMatcher.h"
#include "Octets.h"
#include "TestStreams.h"
#include <functional>
#include <random>
#include <sstream>

namespace Vesk::FastInfoset
{

namespace
{

const char STREAM_FAILED[] = "error while writing Fast Infoset document to stream";

using Writing = std::function<void(BitStreamWriter&)>;

/// What a stream holds after the writing and the destruction of the writer, which pads with 0.
std::string written(const Writing& writing)
{
    std::ostringstream stream;
    {
        BitStreamWriter writer(stream, false);
        writing(writer);
    }
    return stream.str();
}

/// The low bits of a value, most significant first.
std::string lowBits(unsigned long value, int count)
{
    std::string bits;
    for (int i = count - 1; i >= 0; --i)
        bits += ((value >> i) & 1) != 0 ? '1' : '0';
    return bits;
}

std::string padded(std::string bits)
{
    bits.append((8 - bits.size() % 8) % 8, '0');
    std::string octets;
    appendBits(octets, bits);
    return hexOf(octets);
}

} // namespace

TEST(BitStreamWriterTest, WritesBitsFromTheMostSignificantOn)
{
    struct Case
    {
        const char* name;
        Writing write;
        const char* octets;
    };
    const Case cases[] = {
        {"one bit", [](BitStreamWriter& writer) { writer.write(true); }, "80"},
        {"eight bits",
         [](BitStreamWriter& writer)
         {
             for (const bool bit : {true, false, true, true, false, false, true, false})
                 writer.write(bit);
         },
         "B2"},
        {"int", [](BitStreamWriter& writer) { writer.write(0x01020304, 32); }, "01 02 03 04"},
        {"short", [](BitStreamWriter& writer) { writer.write(static_cast<short>(0x0102), 16); }, "01 02"},
        {"long", [](BitStreamWriter& writer) { writer.write(0x0102030405060708l, 64); }, "01 02 03 04 05 06 07 08"},
        {"char", [](BitStreamWriter& writer) { writer.write('\xFE', 8); }, "FE"},
        {"low bits only", [](BitStreamWriter& writer) { writer.write('\5', 3); }, "A0"},
        {"high bits are cut off", [](BitStreamWriter& writer) { writer.write(-2, 4); }, "E0"},
        {"text behind a bit",
         [](BitStreamWriter& writer)
         {
             writer.write(true);
             writer.write(std::string("A"));
         },
         "A0 80"},
        {"zero-terminated text", [](BitStreamWriter& writer) { writer.write("ab"); }, "61 62"},
        {"octets", [](BitStreamWriter& writer) { writer.write("a\0b", 3); }, "61 00 62"},
        {"copies of a bit", [](BitStreamWriter& writer) { writer.writeBits(13, true); }, "FF F8"},
        {"nothing",
         [](BitStreamWriter& writer)
         {
             writer.writeBits(0, true);
             writer.writeBits(-1, true);
             writer.write(std::string());
             writer.write("");
             writer.write(static_cast<const char*>(nullptr));
             writer.write(static_cast<const char*>(nullptr), 1);
             writer.write("a", 0);
         },
         ""},
        {"completed with ones",
         [](BitStreamWriter& writer)
         {
             writer.writeBits(1, false);
             writer.complete(true);
             writer.complete(true);
             writer.write(true);
             writer.complete(false);
         },
         "7F 80"}};
    for (const Case& row : cases)
        EXPECT_EQ(hexOf(written(row.write)), row.octets) << row.name;
}

TEST(BitStreamWriterTest, WritesEveryWidthAtEveryOffset)
{
    std::mt19937_64 random(3);
    for (int offset = 0; offset < 8; ++offset)
    {
        for (int width = 1; width <= 64; ++width)
        {
            const unsigned long value = random();
            const std::string expected =
                padded(std::string(static_cast<std::size_t>(offset), '1') + lowBits(value, width) + lowBits(value, 5));
            const auto check = [&](const char* type, const Writing& write)
            {
                const std::string octets = written(
                    [&](BitStreamWriter& writer)
                    {
                        writer.writeBits(offset, true);
                        write(writer);
                        EXPECT_EQ(writer.bitOffset(), (offset + width) % 8);
                        writer.write(static_cast<long>(value), 5);
                    });
                EXPECT_EQ(hexOf(octets), expected) << width << " bits of a " << type << " at bit " << offset;
            };
            if (width <= 8)
                check("char", [&](BitStreamWriter& writer) { writer.write(static_cast<char>(value), width); });
            if (width <= 16)
                check("short", [&](BitStreamWriter& writer) { writer.write(static_cast<short>(value), width); });
            if (width <= 32)
                check("int", [&](BitStreamWriter& writer) { writer.write(static_cast<int>(value), width); });
            check("long", [&](BitStreamWriter& writer) { writer.write(static_cast<long>(value), width); });
        }
    }
}

TEST(BitStreamWriterTest, WritesOctetsAtEveryOffset)
{
    for (const std::size_t size : {1u, 7u, 4095u, 4096u, 10000u})
    {
        const std::string text(size, '\xA5');
        for (int offset = 0; offset < 8; ++offset)
        {
            std::string bits(static_cast<std::size_t>(offset), '1');
            for (std::size_t i = 0; i < size; ++i)
                bits += "10100101";
            const std::string octets = written(
                [&](BitStreamWriter& writer)
                {
                    writer.writeBits(offset, true);
                    writer.write(text);
                });
            EXPECT_EQ(hexOf(octets), padded(bits)) << size << " octets at bit " << offset;
        }
    }
}

TEST(BitStreamWriterTest, IllegalWidthsFailACheckAndWriteNothing)
{
    const auto message = [](const char* width, int line)
    {
        return std::string("checkInputParams(Utility::") + width + ", numOfBits) [in src/BitStreamWriter, line " +
               std::to_string(line) + "]";
    };
    const std::string octets = written(
        [&](BitStreamWriter& writer)
        {
            writer.write(true);
            for (const int width : {-1, 0, 9})
                EXPECT_VESK_THROW(writer.write('x', width), AssertionViolationException,
                                  message("SIZEOFCHARINBIT", 139));
            for (const int width : {-1, 0, 17})
                EXPECT_VESK_THROW(writer.write(static_cast<short>(1), width), AssertionViolationException,
                                  message("SIZEOFINT16INBIT", 161));
            for (const int width : {-1, 0, 33})
                EXPECT_VESK_THROW(writer.write(1, width), AssertionViolationException,
                                  message("SIZEOFINT32INBIT", 195));
            for (const int width : {-1, 0, 65})
                EXPECT_VESK_THROW(writer.write(1l, width), AssertionViolationException,
                                  message("SIZEOFINT64INBIT", 229));
        });
    EXPECT_EQ(hexOf(octets), "80");
}

TEST(BitStreamWriterTest, DestructorPadsAndFlushes)
{
    for (const bool padding : {false, true})
    {
        RecordingOutputStream stream;
        {
            BitStreamWriter writer(stream, padding);
            writer.write(5, 3);
        }
        EXPECT_EQ(hexOf(stream.octets()), padding ? "BF" : "A0");
        EXPECT_EQ(stream.flushes(), 1);
    }
}

TEST(BitStreamWriterTest, FinishedOctetsGoToTheStreamAtOnce)
{
    RecordingOutputStream stream;
    BitStreamWriter writer(stream, false);
    writer.write(0x1234, 15);
    EXPECT_EQ(hexOf(stream.octets()), "24") << "and seven bits stay";
    EXPECT_EQ(stream.flushes(), 0);
    writer.complete(true);
    EXPECT_EQ(hexOf(stream.octets()), "24 69");
    EXPECT_EQ(stream.flushes(), 1);
}

TEST(BitStreamWriterTest, HeldOctetsReachTheStreamInOneCall)
{
    RecordingOutputStream stream;
    {
        BitStreamWriter writer(stream, false);
        writer.hold();
        writer.write('a', 8);
        writer.complete(false);
        writer.write("bc");
        writer.complete(false);
        writer.write(true);
        EXPECT_EQ(stream.writes() + stream.flushes(), 0);
        writer.release();
        EXPECT_EQ(stream.octets(), "abc");
        EXPECT_EQ(stream.writes(), 1);
        EXPECT_EQ(stream.flushes(), 1);

        writer.hold();
        writer.release();
        EXPECT_EQ(stream.writes() + stream.flushes(), 2) << "nothing held, nothing written";
        writer.hold();
        writer.write(0, 7);
    }
    EXPECT_EQ(hexOf(stream.octets()), "61 62 63 80") << "what is still held is written in the end";
}

TEST(BitStreamWriterTest, FailedStreamStaysFailed)
{
    const Writing operations[] = {[](BitStreamWriter& writer) { writer.writeBits(8, true); },
                                  [](BitStreamWriter& writer) { writer.write('x', 8); },
                                  [](BitStreamWriter& writer) { writer.write(static_cast<short>(1), 16); },
                                  [](BitStreamWriter& writer) { writer.write(1, 32); },
                                  [](BitStreamWriter& writer) { writer.write(1l, 64); },
                                  [](BitStreamWriter& writer) { writer.write("text"); },
                                  [](BitStreamWriter& writer) { writer.write(std::string(5000, 'x')); },
                                  [](BitStreamWriter& writer)
                                  {
                                      writer.complete(false);
                                  }};
    for (const std::ios::iostate state : {std::ios::badbit, std::ios::failbit, std::ios::eofbit})
    {
        for (const Writing& first : operations)
        {
            std::ostringstream stream;
            stream.setstate(state);
            BitStreamWriter writer(stream, false);
            EXPECT_VESK_THROW(first(writer), IOException, STREAM_FAILED);
            stream.clear();
            for (const Writing& operation : operations)
                EXPECT_VESK_THROW(operation(writer), IOException, STREAM_FAILED);
            EXPECT_VESK_THROW(writer.write(true), IOException, STREAM_FAILED);
        }
    }
}

TEST(BitStreamWriterTest, StreamThatFailsAfterAnyNumberOfOctets)
{
    const auto writeAll = [](BitStreamWriter& writer)
    {
        writer.write(true);
        writer.write(0x01020304, 32);
        writer.write("text");
        writer.complete(false);
        writer.write(0x0102030405060708l, 64);
        writer.complete(false);
    };
    const std::string complete = written(writeAll);
    for (std::size_t limit = 0; limit <= complete.size(); ++limit)
    {
        SCOPED_TRACE(limit);
        RecordingOutputStream stream(limit);
        {
            BitStreamWriter writer(stream, false);
            if (limit < complete.size())
            {
                EXPECT_VESK_THROW(writeAll(writer), IOException, STREAM_FAILED);
                stream.clear();
            }
            else
            {
                writeAll(writer);
            }
        }
        EXPECT_EQ(complete.compare(0, stream.octets().size(), stream.octets()), 0)
            << "nothing is written behind a gap: " << hexOf(stream.octets());
    }
}

TEST(BitStreamWriterTest, StreamThatThrowsIsFailedAsWell)
{
    RecordingOutputStream stream(0);
    stream.exceptions(std::ios::badbit);
    BitStreamWriter writer(stream, false);
    EXPECT_THROW(writer.write('x', 8), std::ios::failure);
    EXPECT_VESK_THROW(writer.write('x', 8), IOException, STREAM_FAILED);
}

TEST(BitStreamWriterTest, BufferThatThrowsIsAFailedStream)
{
    struct Buffer : std::streambuf
    {
        std::streamsize xsputn(const char*, std::streamsize) override { throw std::runtime_error("disk on fire"); }
        int sync() override { throw std::runtime_error("disk on fire"); }
    };
    Buffer buffer;
    std::ostream stream(&buffer);
    BitStreamWriter writer(stream, false);
    EXPECT_VESK_THROW(writer.write('x', 8), IOException, STREAM_FAILED);
    EXPECT_TRUE(stream.bad());

    std::ostream other(&buffer);
    BitStreamWriter flusher(other, false);
    EXPECT_VESK_THROW(flusher.complete(false), IOException, STREAM_FAILED);
    EXPECT_TRUE(other.bad());
}

// As the cancellation of a thread does.
TEST(BitStreamWriterTest, WhatIsNoExceptionPassesAndFailsTheStream)
{
    struct Buffer : std::streambuf
    {
        std::streamsize xsputn(const char*, std::streamsize) override { throw 1; }
    };
    Buffer buffer;
    std::ostream stream(&buffer);
    BitStreamWriter writer(stream, false);
    EXPECT_THROW(writer.write('x', 8), int);
    EXPECT_TRUE(stream.bad());
    EXPECT_VESK_THROW(writer.write('x', 8), IOException, STREAM_FAILED);
}

TEST(BitStreamWriterTest, StreamThatItIsTiedToIsFlushedFirst)
{
    RecordingOutputStream first;
    RecordingOutputStream stream;
    stream.tie(&first);
    BitStreamWriter writer(stream, false);
    writer.write('x', 8);
    EXPECT_EQ(first.flushes(), 1);
    EXPECT_EQ(stream.octets(), "x");
}

TEST(BitStreamWriterTest, DestructorReportsAFailureOnce)
{
    testing::internal::CaptureStderr();
    {
        RecordingOutputStream stream;
        stream.failToFlush();
        BitStreamWriter writer(stream, false);
    }
    const std::string report = testing::internal::GetCapturedStderr();
    EXPECT_NE(report.find(STREAM_FAILED), std::string::npos) << report;
    EXPECT_NE(report.find("[in src/BitStreamWriter, line 54]"), std::string::npos) << report;

    testing::internal::CaptureStderr();
    {
        RecordingOutputStream stream;
        stream.failToFlush();
        BitStreamWriter writer(stream, false);
        EXPECT_VESK_THROW(writer.complete(false), IOException, STREAM_FAILED);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "the caller knows already";
}

} // namespace Vesk::FastInfoset
