// SPDX-License-Identifier: MIT
#ifndef VESK_TESTS_CODECTESTER_H
#define VESK_TESTS_CODECTESTER_H

#include <gtest/gtest.h>
#include <random>
#include <sstream>
#include <string>

/// What the tests of the stream codecs have in common.
template <class Encoder, class Decoder>
struct CodecTester
{
    struct Decoded
    {
        std::string octets;
        bool valid;
    };

    static std::string encode(const std::string& octets, int lineLength = 0)
    {
        std::ostringstream text;
        Encoder encoder(text);
        encoder.setLineLength(lineLength);
        encoder.write(octets.data(), static_cast<std::streamsize>(octets.size()));
        encoder.close();
        EXPECT_TRUE(encoder.good());
        return text.str();
    }

    static Decoded decode(const std::string& text)
    {
        std::istringstream source(text);
        Decoder decoder(source);
        std::string octets;
        for (int octet = decoder.get(); octet != EOF; octet = decoder.get())
            octets += static_cast<char>(octet);
        return {octets, decoder.eof() && !decoder.bad()};
    }

    // The same by read(), in blocks that fit no buffer.
    static Decoded decodeBlocks(const std::string& text)
    {
        std::istringstream source(text);
        Decoder decoder(source);
        std::string octets;
        char block[173];
        do
        {
            decoder.read(block, sizeof block);
            octets.append(block, static_cast<std::size_t>(decoder.gcount()));
        } while (decoder);
        return {octets, decoder.eof() && !decoder.bad()};
    }

    static void expectValid(const std::string& text, const std::string& octets)
    {
        for (const Decoded& decoded : {decode(text), decodeBlocks(text)})
        {
            EXPECT_TRUE(decoded.valid) << '"' << text << '"';
            EXPECT_EQ(decoded.octets, octets) << '"' << text << '"';
        }
    }

    /// octets: what is delivered in front of the invalid text.
    static void expectInvalid(const std::string& text, const std::string& octets)
    {
        for (const Decoded& decoded : {decode(text), decodeBlocks(text)})
        {
            EXPECT_FALSE(decoded.valid) << '"' << text << '"';
            EXPECT_EQ(decoded.octets, octets) << '"' << text << '"';
        }
    }

    static std::string randomOctets(std::size_t octetCount)
    {
        std::mt19937 random(static_cast<unsigned>(octetCount));
        std::string octets(octetCount, '\0');
        for (char& octet : octets)
            octet = static_cast<char>(random() & 0xFF);
        return octets;
    }

    /// All short lengths, those around the blocks of the buffers, and a large one; with line breaks and without.
    static void expectRoundTrips()
    {
        const auto expectRoundTrip = [](std::size_t octetCount)
        {
            const std::string octets = randomOctets(octetCount);
            for (const int lineLength : {0, 1, 7, 76})
                expectValid(encode(octets, lineLength), octets);
        };
        for (std::size_t octetCount = 0; octetCount <= 100; ++octetCount)
            expectRoundTrip(octetCount);
        for (const std::size_t block : {256u, 512u, 768u, 1024u, 1536u})
        {
            expectRoundTrip(block - 1);
            expectRoundTrip(block);
            expectRoundTrip(block + 1);
        }
        expectRoundTrip(100000);
    }

    /// Writing in any pieces, flushed or not, gives the text of the whole.
    static void expectPiecesJoin()
    {
        const std::string octets = randomOctets(2000);
        std::ostringstream text;
        {
            Encoder encoder(text);
            std::size_t written = 0;
            for (std::size_t piece = 0; written < octets.size(); piece = (piece + 1) % 60)
            {
                const std::size_t count = std::min(piece, octets.size() - written);
                encoder.write(octets.data() + written, static_cast<std::streamsize>(count));
                written += count;
                if (piece % 7 == 0)
                    encoder.flush();
            }
        } // the destructor closes
        EXPECT_EQ(text.str(), encode(octets));
    }

    static void expectFailuresShow()
    {
        std::ostringstream target;
        target.setstate(std::ios::badbit);
        Encoder encoder(target);
        encoder << "some octets";
        encoder.close();
        EXPECT_TRUE(encoder.bad());

        std::istringstream source("4142");
        source.setstate(std::ios::badbit);
        Decoder decoder(source);
        EXPECT_EQ(decoder.get(), EOF);
        EXPECT_TRUE(decoder.bad());
    }
};

#endif // VESK_TESTS_CODECTESTER_H
