// SPDX-License-Identifier: MIT
//
// Measures what the worst documents cost: time and memory for each octet, at two sizes, and memory while documents of
// 100 MB are written and read as streams. Prints tables for docs/security.md. Works on Linux only.
#include "SipHash.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/XML/AttributesImpl.h"
#include "Vesk/XML/InputSource.h"
#include "Octets.h"
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace Vesk;
using namespace Vesk::FastInfoset;

namespace
{

constexpr std::size_t MEGA = 1000 * 1000;

struct Cost
{
    double seconds = 0;
    double memoryOctets = 0; // peak, beyond what was there at the start
};

/// A figure of the process in octets: "VmRSS:" (resident memory) or "VmHWM:" (its peak).
double memoryFigure(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    double kibibytes = 0;
    while (status >> word)
    {
        if (word == name && status >> kibibytes)
            return kibibytes * 1024;
    }
    throw std::runtime_error("no figure " + name);
}

/// Runs the action in a process of its own.
Cost measured(const std::function<void()>& action)
{
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0)
    {
        std::ofstream("/proc/self/clear_refs") << 5; // the peak starts anew
        const double before = memoryFigure("VmRSS:");
        const auto start = std::chrono::steady_clock::now();
        action();
        Cost cost;
        cost.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        cost.memoryOctets = std::max(0.0, memoryFigure("VmHWM:") - before);
        const bool isWritten = write(ends[1], &cost, sizeof cost) == static_cast<ssize_t>(sizeof cost);
        std::_Exit(isWritten ? 0 : 1);
    }
    close(ends[1]);
    Cost cost;
    const bool isRead = read(ends[0], &cost, sizeof cost) == static_cast<ssize_t>(sizeof cost);
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (!isRead || status != 0)
        throw std::runtime_error("a measured process has failed");
    return cost;
}

/// Takes all events and keeps nothing. Typed says whether values come as values.
template <class Handler>
class Nothing : public Handler
{
public:
    void setDocumentLocator(const XML::Locator*) override {}
    void startDocument() override {}
    void endDocument() override {}
    void startElement(const std::string&, const std::string&, const std::string&, const XML::Attributes&) override {}
    void endElement(const std::string&, const std::string&, const std::string&) override {}
    void characters(const char[], int, int) override {}
    void ignorableWhitespace(const char[], int, int) override {}
    void processingInstruction(const std::string&, const std::string&) override {}
    void startPrefixMapping(const std::string&, const std::string&) override {}
    void endPrefixMapping(const std::string&) override {}
    void skippedEntity(const std::string&) override {}
};

/// Counts the octets and forgets them.
class CountingStream : public std::ostream
{
public:
    CountingStream()
        : std::ostream(nullptr)
    {
        rdbuf(&_buffer);
    }
    std::size_t octets() const { return _buffer.octets; }

private:
    struct Buffer : public std::streambuf
    {
        std::streamsize xsputn(const char*, std::streamsize size) override
        {
            octets += static_cast<std::size_t>(size);
            return size;
        }
        int_type overflow(int_type octet) override
        {
            ++octets;
            return traits_type::not_eof(octet);
        }
        std::size_t octets = 0;
    };

    Buffer _buffer;
};

// Hostile documents. Each is made for about the given number of octets, and may end in an exception at its end.

std::string repeated(const std::string& head, const std::string& unit, std::size_t octetCount,
                     const std::string& tail = std::string())
{
    std::string document = head;
    document.reserve(octetCount + unit.size() + tail.size());
    while (document.size() + tail.size() < octetCount)
        document += unit;
    return document + tail;
}

/// Four octets that are different for every number below 2^24.
std::string numbered(std::size_t number)
{
    std::string text(4, 'a');
    for (char& c : text)
    {
        c = static_cast<char>('!' + number % 64);
        number /= 64;
    }
    return text;
}

std::string counted(const std::string& head, const std::function<std::string(std::size_t)>& unit, std::size_t octetCount)
{
    std::string document = head;
    for (std::size_t i = 0; document.size() < octetCount; ++i)
        document += unit(i);
    return document;
}

const std::string HEADER = octetsOf("E0 00 00 01 00");
const std::string ROOT = HEADER + octetsOf("3C 00 'a'");

/// The 32-bit length of what follows, behind bit 6 of an octet.
std::string longLength(std::size_t octetCount)
{
    const unsigned long code = octetCount - 259;
    std::string octets;
    for (int shift = 24; shift >= 0; shift -= 8)
        octets += static_cast<char>(code >> shift);
    return octets;
}

/// One chunk that fills the document. Its leading bits hold the form; their last two announce a length of 32 bits.
std::string oneChunk(const std::string& head, const std::string& bits, std::size_t octetCount, char octet)
{
    std::string document = head;
    appendBits(document, bits + "11 000000"); // the octet behind is part of the long form
    document.pop_back();
    appendBits(document, "");
    return document + longLength(octetCount) + std::string(octetCount, octet);
}

/// A list of the initial vocabulary with 2^20 + 128 entries at most. The flags are its two octets.
std::string initialList(const std::string& flags, const std::string& entry, std::size_t octetCount)
{
    const std::size_t count = std::min<std::size_t>(octetCount / entry.size(), 0xFFFFF + 129);
    const std::size_t code = count - 129;
    std::string document = octetsOf("E0 00 00 01 20") + flags;
    document += static_cast<char>(0x80 | (code >> 16));
    document += static_cast<char>(code >> 8);
    document += static_cast<char>(code);
    for (std::size_t i = 0; i < count; ++i)
        document += entry;
    return document;
}

/// Texts whose hashes would collide if their key were known: under the key 0 the last ten bits are the same.
std::string collidingTexts(std::size_t octetCount)
{
    std::string document = ROOT;
    for (std::size_t i = 0; document.size() < octetCount; ++i)
    {
        const std::string text = numbered(i);
        SipHash hash(0, 0);
        hash.add(text.data(), text.size());
        if ((hash.result() & 0x3FF) == 0)
            document += octetsOf("92 01") + text;
    }
    return document;
}

struct Hostile
{
    const char* name;
    DocumentVocabulary::VocabularyImpl tables;
    std::function<std::string(std::size_t)> document;
    std::size_t octetCount; // of the smaller document; the other one has four times as many
};

std::vector<Hostile> hostileDocuments()
{
    const auto vector = DocumentVocabulary::VOC_VECTOR;
    const auto map = DocumentVocabulary::VOC_MAP;
    const auto again = [](const std::string& head, const std::string& unit)
    {
        return [=](std::size_t size) { return repeated(head, unit, size); };
    };
    const auto number = [](const std::string& head, const std::string& before, const std::string& behind)
    {
        return [=](std::size_t size)
        { return counted(head, [&](std::size_t i) { return before + numbered(i) + behind; }, size); };
    };
    const auto chunk = [](const std::string& head, const std::string& bits, char octet)
    {
        return [=](std::size_t size) { return oneChunk(head, bits, size, octet); };
    };
    const std::string attributes = HEADER + octetsOf("7C 00 'a' 78 00 'b' 40 '1'");
    const std::string alphabet = octetsOf("E0 00 00 01 20 08 00 00 03 F0 9F 98 80 3C 00 'a'");
    return {
        {"texts of one octet, added to the table", vector, again(ROOT, octetsOf("90 'x'")), 4 * MEGA},
        {"different texts, added to the table", map, number(ROOT, octetsOf("92 01"), ""), 4 * MEGA},
        {"texts made to collide", map, collidingTexts, MEGA / 4},
        {"comments of one octet, added to the table", vector, again(ROOT, octetsOf("E2 40 'x'")), 4 * MEGA},
        {"attributes of one element, values added", vector, again(attributes, octetsOf("00 40 'x'")), 4 * MEGA},
        {"attributes of one element, values by index", vector, again(attributes, octetsOf("00 80")), 4 * MEGA},
        {"names of indexes", vector, again(ROOT, octetsOf("3E 80 80 3E 80 80 FF")), 4 * MEGA},
        {"different names", map, number(HEADER, octetsOf("3C 03"), octetsOf("F0")), 4 * MEGA},
        {"nested elements", vector, again(ROOT, octetsOf("00")), 4 * MEGA},
        {"namespace declarations of one element", vector, again(HEADER + octetsOf("38"), octetsOf("CC")), 4 * MEGA},
        {"namespace declarations, different prefixes", map,
         number(HEADER + octetsOf("38"), octetsOf("CF 03"), octetsOf("80")), 4 * MEGA},
        {"alphabets of one character in the header", vector,
         [](std::size_t size) { return initialList(octetsOf("08 00"), octetsOf("00 'x'"), size); }, MEGA / 2},
        {"prefixes of one octet in the header", vector,
         [](std::size_t size) { return initialList(octetsOf("02 00"), octetsOf("00 'x'"), size); }, MEGA / 2},
        {"element names in the header", vector,
         [](std::size_t size) { return initialList(octetsOf("00 02"), octetsOf("00 00"), size); }, MEGA / 2},
        {"text in an alphabet of one character", vector, chunk(alphabet, "10 0 0 10 00 001111", '\0'), 4 * MEGA},
        {"the same, added to the table", vector, chunk(alphabet, "10 0 1 10 00 001111", '\0'), 4 * MEGA},
        {"text in UTF-16", vector, chunk(ROOT, "10 0 1 01", '\x20'), 4 * MEGA},
        {"hexadecimal data, added as text", vector, chunk(ROOT, "10 0 1 11 00 000000", 'x'), 4 * MEGA},
        {"base64 data, added as text", vector, chunk(ROOT, "10 0 1 11 00 000001", 'x'), 4 * MEGA},
        {"booleans, added as text", vector, chunk(ROOT, "10 0 1 11 00 000101", '\0'), MEGA},
        {"floats, added as text", vector, chunk(ROOT, "10 0 1 11 00 000110", '\x91'), 4 * MEGA},
        {"short integers, added as text", vector, chunk(ROOT, "10 0 1 11 00 000010", '\x91'), 4 * MEGA},
        {"one long text, repeated by index", vector,
         [](std::size_t size)
         {
             const std::string text(size / 2, 'x');
             std::string document = ROOT;
             appendBits(document, "10 0 1 00 11");
             return repeated(document + longLength(text.size()) + text, octetsOf("A0"), size);
         },
         4 * MEGA},
        {"names of one long prefix", vector,
         [](std::size_t size)
         {
             const std::string prefix(size / 2, 'p');
             std::string document = HEADER + octetsOf("3E");
             appendBits(document, "0 1100000");
             const std::string code = longLength(prefix.size() + 259 - 321);
             return repeated(document + code + prefix + octetsOf("00 'a'"), octetsOf("3E 81 80 3E 81 80 FF"), size);
         },
         4 * MEGA},
    };
}

template <class Handler>
void parse(DocumentVocabulary::VocabularyImpl tables, const std::string& document)
{
    Nothing<Handler> handler;
    FastInfosetParser parser(tables);
    parser.setContentHandler(&handler);
    try
    {
        parser.parseMemoryNP(document.data(), document.size());
    }
    catch (const Exception&)
    {
    }
}

void measureHostile()
{
    std::cout << "| Document | Tables | ns per octet | at four times the size | memory per octet | at four times the size |\n"
                 "| --- | --- | ---: | ---: | ---: | ---: |\n";
    for (const Hostile& row : hostileDocuments())
    {
        std::cout << "| " << row.name << " | " << (row.tables == DocumentVocabulary::VOC_MAP ? "map" : "vector");
        Cost costs[2];
        double octets[2];
        for (const int i : {0, 1})
        {
            const std::string document = row.document(row.octetCount * (i == 0 ? 1 : 4));
            octets[i] = static_cast<double>(document.size());
            costs[i] = measured([&] { parse<XML::ContentHandler>(row.tables, document); });
        }
        std::printf(" | %.1f | %.1f | %.1f | %.1f |\n", costs[0].seconds / octets[0] * 1e9,
                    costs[1].seconds / octets[1] * 1e9, costs[0].memoryOctets / octets[0],
                    costs[1].memoryOctets / octets[1]);
        std::fflush(stdout);
    }
}

// Documents of 100 MB, as a stream.

constexpr std::size_t STREAM_OCTETS = 100 * MEGA;

struct Streamed
{
    const char* name;
    std::function<void(FastInfosetWriter&, std::size_t i)> item; // the same again and again, until there is enough
};

void writeElement(FastInfosetWriter& writer, const std::string& text)
{
    static const std::string NONE;
    static const std::string NAME = "item";
    writer.startElement(NONE, NAME, NONE);
    if (!text.empty())
        writer.characters(text);
    writer.endElement(NONE, NAME, NONE);
}

std::vector<Streamed> streamedDocuments()
{
    return {{"elements with short texts, all different",
             [](FastInfosetWriter& writer, std::size_t i) { writeElement(writer, "text " + std::to_string(i)); }},
            {"elements with texts of 1 MiB",
             [](FastInfosetWriter& writer, std::size_t)
             {
                 static const std::string text(1024 * 1024, 'x');
                 writeElement(writer, text);
             }},
            {"small elements without text",
             [](FastInfosetWriter& writer, std::size_t) { writeElement(writer, std::string()); }},
            {"100,000 levels deep, again and again",
             [](FastInfosetWriter& writer, std::size_t)
             {
                 for (int depth = 0; depth < 100000; ++depth)
                     writer.startElement("", "level", "");
                 for (int depth = 0; depth < 100000; ++depth)
                     writer.endElement("", "level", "");
             }}};
}

void writeStreamed(const Streamed& row, std::ostream& stream, const std::function<bool()>& isEnough)
{
    FastInfosetWriter writer(stream, false, DocumentVocabulary::VOC_MAP);
    writer.startDocument();
    writer.startElement("", "root", "");
    for (std::size_t i = 0; !isEnough(); ++i)
        row.item(writer, i);
    writer.endElement("", "root", "");
    writer.endDocument();
}

void measureStreams()
{
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("vesk-limits-" + std::to_string(getpid()));
    std::cout << "| Document of 100 MB | memory to write | to read, vector tables | to read, map tables |\n"
                 "| --- | ---: | ---: | ---: |\n";
    for (const Streamed& row : streamedDocuments())
    {
        const Cost written = measured(
            [&]
            {
                CountingStream stream;
                writeStreamed(row, stream, [&] { return stream.octets() >= STREAM_OCTETS; });
            });
        {
            // Flushing after each item would take most of the time.
            std::ofstream stream(file, std::ios::binary);
            std::size_t octets = 0;
            std::ostringstream block;
            writeStreamed(row, block,
                          [&]
                          {
                              if (block.tellp() > static_cast<std::streamoff>(MEGA))
                              {
                                  octets += block.str().size();
                                  stream << block.str();
                                  block.str(std::string());
                              }
                              return octets >= STREAM_OCTETS;
                          });
            stream << block.str();
        }
        std::printf("| %s | %.1f MB", row.name, written.memoryOctets / 1e6);
        for (const auto tables : {DocumentVocabulary::VOC_VECTOR, DocumentVocabulary::VOC_MAP})
        {
            const Cost read = measured(
                [&]
                {
                    std::ifstream stream(file, std::ios::binary);
                    XML::InputSource source(stream);
                    Nothing<XML::ContentHandler> handler;
                    FastInfosetParser parser(tables);
                    parser.setContentHandler(&handler);
                    parser.parse(&source);
                });
            std::printf(" | %.1f MB", read.memoryOctets / 1e6);
        }
        std::cout << " |" << std::endl;
        std::filesystem::remove(file);
    }
}

} // namespace

int main()
{
    try
    {
        measureHostile();
        std::cout << "\n";
        measureStreams();
        return 0;
    }
    catch (const std::exception& exception)
    {
        std::cerr << exception.what() << "\n";
        return 1;
    }
}
