// SPDX-License-Identifier: MIT
//
// Converts an XML file to Fast Infoset and back, in memory, and tells sizes, times and whether anything was lost.
//
//   roundtrip IN.xml
//
// The document that came back and the original are compared by the events that a SAX parser reports for them:
// elements, attributes and prefix mappings with their namespaces, text, CDATA sections, comments, processing
// instructions, document type identifiers, notations and unparsed entities. The exit status is 1 if they differ.

#include "EventRecorder.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/MemoryInputStream.h"
#include "Vesk/XML/SAXParser.h"
#include "Vesk/XML/XMLFilterImpl.h"
#include "Vesk/XML/XMLWriter.h"
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

using Vesk::FastInfoset::Converter;
using Vesk::FastInfoset::FastInfosetParser;
using Vesk::XML::SAXParser;
using Vesk::XML::XMLReader;
using Vesk::XML::XMLWriter;

namespace
{

constexpr int RUNS = 15;
constexpr int MAX_INDEXED_OCTETS = 16;

std::string contentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string content((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (!file)
        throw std::runtime_error(std::strerror(errno));
    return content;
}

std::string encoded(const std::string& xml)
{
    Vesk::MemoryInputStream in(xml.data(), xml.size());
    std::ostringstream out;
    Converter::convertToFIS(in, out, MAX_INDEXED_OCTETS, 0);
    return out.str();
}

std::string decoded(const std::string& fis)
{
    Vesk::MemoryInputStream in(fis.data(), fis.size());
    std::ostringstream out;
    Converter::convertToXML(in, out, XMLWriter::WRITE_XML_DECLARATION);
    return out.str();
}

// The least that an application does with a document: looks at every element and text.
class Counter : public Vesk::XML::XMLFilterImpl
{
public:
    using XMLFilterImpl::XMLFilterImpl;

    void startElement(const std::string&, const std::string&, const std::string&,
                      const Vesk::XML::Attributes& attributes) override
    {
        _count += 1 + static_cast<std::size_t>(attributes.getLength());
    }
    void characters(const char[], int, int length) override { _count += static_cast<std::size_t>(length); }

    std::size_t count() const { return _count; }

private:
    std::size_t _count = 0;
};

template <class Parser>
std::size_t parse(const std::string& document)
{
    Parser parser;
    Counter counter(&parser);
    counter.parseMemoryNP(document.data(), document.size());
    return counter.count();
}

template <class Action>
double medianMilliseconds(Action action)
{
    std::vector<double> milliseconds;
    for (int run = 0; run < RUNS; ++run)
    {
        const auto start = std::chrono::steady_clock::now();
        action();
        milliseconds.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    std::nth_element(milliseconds.begin(), milliseconds.begin() + RUNS / 2, milliseconds.end());
    return milliseconds[RUNS / 2];
}

void printSizes(const std::string& xml, const std::string& fis)
{
    const double percent = 100.0 * static_cast<double>(fis.size()) / static_cast<double>(xml.size());
    std::printf("  XML text                  %10zu octets\n", xml.size());
    std::printf("  Fast Infoset              %10zu octets, %.1f %% of the text\n", fis.size(), percent);
}

void printTimes(const std::string& xml, const std::string& fis)
{
    // Nothing is timed that did not do its work.
    if (parse<SAXParser>(xml) != parse<FastInfosetParser>(fis))
        throw std::runtime_error("the two forms hold different amounts of content");
    const double parseXML = medianMilliseconds([&] { parse<SAXParser>(xml); });
    const double parseFIS = medianMilliseconds([&] { parse<FastInfosetParser>(fis); });
    std::printf("  parse XML text            %10.3f ms\n", parseXML);
    std::printf("  parse Fast Infoset        %10.3f ms, %.1f times as fast\n", parseFIS, parseXML / parseFIS);
    std::printf("  XML text to Fast Infoset  %10.3f ms\n", medianMilliseconds([&] { encoded(xml); }));
    std::printf("  Fast Infoset to XML text  %10.3f ms\n", medianMilliseconds([&] { decoded(fis); }));
}

// Compares two records of events, one event a line, and prints the verdict.
bool printVerdict(const std::string& before, const std::string& after)
{
    std::istringstream beforeLines(before);
    std::istringstream afterLines(after);
    std::string event;
    std::string result;
    for (int number = 1;; ++number)
    {
        const bool more = static_cast<bool>(std::getline(beforeLines, event));
        const bool moreAfter = static_cast<bool>(std::getline(afterLines, result));
        if (!more && !moreAfter)
        {
            std::printf("  nothing lost: all %d events are the same\n", number - 1);
            return true;
        }
        if (more != moreAfter || event != result)
        {
            std::printf("  LOST: event %d was\n    %s\n  and came back as\n    %s\n", number,
                        more ? event.c_str() : "(nothing)", moreAfter ? result.c_str() : "(nothing)");
            return false;
        }
    }
}

bool roundtrip(const std::string& path)
{
    const std::string xml = contentOf(path);
    const std::string fis = encoded(xml);
    std::printf("%s, medians of %d runs in memory:\n", path.c_str(), RUNS);
    printSizes(xml, fis);
    printTimes(xml, fis);
    return printVerdict(eventsOfXML(xml), eventsOfXML(decoded(fis)));
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2)
    {
        std::fprintf(stderr, "usage: roundtrip IN.xml\n");
        return 2;
    }
    try
    {
        return roundtrip(argv[1]) ? 0 : 1;
    }
    catch (const std::exception& exception)
    {
        std::fprintf(stderr, "roundtrip: %s: %s\n", argv[1], exception.what());
        return 1;
    }
}
