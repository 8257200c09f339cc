// SPDX-License-Identifier: MIT
//
// Measures what the worst documents cost: time and memory for each octet, at two sizes, and memory while documents of
// 100 MB are written and read as streams. Prints the tables of docs/security.md.
#include "Cost.h"
#include "HostileDocuments.h"
#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/XMLFilterImpl.h"
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <unistd.h>

using namespace Vesk;
using namespace Vesk::FastInfoset;

namespace
{

constexpr std::size_t MEGA = 1000 * 1000;

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

/// A filter that nobody listens to takes all events and keeps nothing.
using Nothing = XML::XMLFilterImpl;

void parse(DocumentVocabulary::VocabularyImpl tables, const std::string& document)
{
    Nothing handler;
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
    std::cout
        << "| Document | Tables | ns per octet | at four times the size | memory per octet | at four times the size |\n"
           "| --- | --- | ---: | ---: | ---: | ---: |\n";
    for (const HostileDocument& row : hostileDocuments())
    {
        std::cout << "| " << row.name << " | " << (row.tables == DocumentVocabulary::VOC_MAP ? "map" : "vector");
        Cost costs[2];
        double octets[2];
        for (const int i : {0, 1})
        {
            const std::string document = row.document(row.octetCount * (i == 0 ? 1 : 4));
            octets[i] = static_cast<double>(document.size());
            costs[i] = measured([&] { parse(row.tables, document); });
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
             [](FastInfosetWriter& writer, std::size_t i)
             {
                 writeElement(writer, "text " + std::to_string(i));
             }},
            {"elements with texts of 1 MiB",
             [](FastInfosetWriter& writer, std::size_t)
             {
                 static const std::string text(1024 * 1024, 'x');
                 writeElement(writer, text);
             }},
            {"small elements without text",
             [](FastInfosetWriter& writer, std::size_t)
             {
                 writeElement(writer, std::string());
             }},
            {"100,000 levels deep, again and again", [](FastInfosetWriter& writer, std::size_t)
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
                    Nothing handler;
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
