// SPDX-License-Identifier: MIT
//
// Writes a large document record by record and reads it again, in little memory.
//
//   streaming [RECORDS]

#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/XML/Attributes.h"
#include "Vesk/XML/AttributesImpl.h"
#include "Vesk/XML/XMLFilterImpl.h"
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <sys/resource.h>

using Vesk::FastInfoset::DocumentVocabulary;
using Vesk::FastInfoset::FastInfosetParser;
using Vesk::FastInfoset::FastInfosetWriter;
using Vesk::XML::Attributes;
using Vesk::XML::AttributesImpl;

namespace
{

const char PATH[] = "log.finf";

// A file whose buffer is written when it is full and not at every flush.
class UnflushedFile : public std::filebuf
{
public:
    explicit UnflushedFile(const std::string& path)
    {
        if (!open(path, std::ios::out | std::ios::binary))
            throw std::runtime_error("cannot write " + path);
    }

    // Call it at the end: only now is it known whether all octets have reached the file.
    void finish()
    {
        if (!close())
            throw std::runtime_error("cannot write all of the file");
    }

protected:
    int sync() override { return 0; }
};

void writeLog(const std::string& path, int records)
{
    UnflushedFile file(path);
    std::ostream out(&file);
    {
        FastInfosetWriter writer(out, false, DocumentVocabulary::VOC_MAP);
        writer.startDocument();
        writer.startElement("", "log", "log");
        AttributesImpl attributes;
        for (int i = 0; i < records; ++i)
        {
            attributes.clear(); // keeps its memory
            attributes.addAttribute("", "level", "level", "CDATA", i % 100 == 0 ? "error" : "info");
            writer.startElement("", "record", "record", attributes);
            writer.startElement("", "time", "time");
            writer.encodedData(1700000000000L + i);
            writer.endElement("", "time", "time");
            // More than 16 octets, so it enters no table.
            writer.dataElement("", "text", "text", "request number " + std::to_string(i) + " was served");
            writer.endElement("", "record", "record");
        }
        writer.endElement("", "log", "log");
        writer.endDocument();
    }
    file.finish();
}

class ErrorCounter : public Vesk::XML::XMLFilterImpl
{
public:
    int count() const { return _count; }

    void startElement(const std::string&, const std::string&, const std::string&, const Attributes& attributes) override
    {
        if (attributes.getValue("", "level") == "error")
            ++_count;
    }

private:
    int _count = 0;
};

// Thrown to leave a parse when the rest of the document does not matter.
struct Found
{
};

class FirstText : public Vesk::XML::XMLFilterImpl
{
public:
    const std::string& text() const { return _text; }

    void startElement(const std::string&, const std::string& localName, const std::string&, const Attributes&) override
    {
        _inText = localName == "text";
    }

    void characters(const char ch[], int start, int length) override
    {
        if (_inText)
            _text.append(ch + start, static_cast<std::size_t>(length));
    }

    void endElement(const std::string&, const std::string& localName, const std::string&) override
    {
        if (localName == "text")
            throw Found();
    }

private:
    std::string _text;
    bool _inText = false;
};

int countErrors(const std::string& path)
{
    FastInfosetParser parser;
    ErrorCounter counter;
    parser.setContentHandler(&counter);
    parser.parse(path);
    return counter.count();
}

std::string firstText(const std::string& path)
{
    FastInfosetParser parser;
    FirstText handler;
    parser.setContentHandler(&handler);
    try
    {
        parser.parse(path);
    }
    catch (const Found&)
    {
        // What a handler throws comes through unchanged. The parser can read the next document.
    }
    return handler.text();
}

// The most memory that the process has had so far, in KiB.
long peakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

bool writeAndRead(int records)
{
    const long before = peakMemory();
    writeLog(PATH, records);
    const int errors = countErrors(PATH);
    const std::string first = firstText(PATH);
    std::ifstream file(PATH, std::ios::binary | std::ios::ate);
    std::cout << records << " records, " << file.tellg() << " octets, " << errors << " errors, "
              << peakMemory() - before << " KiB more memory than at the start\n"
              << "The first one: " << first << '\n';
    return errors == (records + 99) / 100 && first == "request number 0 was served";
}

} // namespace

int main(int argc, char* argv[])
{
    try
    {
        const bool good = writeAndRead(argc > 1 ? std::stoi(argv[1]) : 20000);
        std::remove(PATH);
        return good ? 0 : 1;
    }
    catch (const std::exception& exception)
    {
        std::cerr << "streaming: " << exception.what() << '\n';
        return 1;
    }
}
