// SPDX-License-Identifier: MIT
//
// Writes the document that docs/format.md takes apart, and compares its octets with those on that page.
//
//   format [PAGE]

#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/XML/AttributesImpl.h"
#include <cstddef>
#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

using Vesk::FastInfoset::DocumentVocabulary;
using Vesk::FastInfoset::FastInfosetWriter;

namespace
{

std::string note()
{
    std::ostringstream out;
    FastInfosetWriter writer(out, false, DocumentVocabulary::VOC_MAP);
    writer.startDocument();
    writer.startPrefixMapping("n", "urn:example:note");
    writer.startElement("urn:example:note", "note", "n:note");
    Vesk::XML::AttributesImpl attributes;
    attributes.addAttribute("", "lang", "lang", "CDATA", "en");
    writer.startElement("", "p", "p", attributes);
    writer.characters("Hello");
    writer.endElement("", "p", "p");
    writer.startElement("", "p", "p", attributes);
    writer.characters("Hello");
    writer.endElement("", "p", "p");
    writer.startElement("", "n", "n");
    writer.encodedData(1);
    writer.encodedData(-1);
    writer.endElement("", "n", "n");
    writer.endElement("urn:example:note", "note", "n:note");
    writer.endPrefixMapping("n");
    writer.endDocument();
    return out.str();
}

std::string hexadecimal(const std::string& octets)
{
    const char digits[] = "0123456789ABCDEF";
    std::string text;
    for (const char c : octets)
    {
        const auto octet = static_cast<unsigned char>(c);
        text += digits[octet >> 4];
        text += digits[octet & 15];
    }
    return text;
}

// The octets on a page: what stands, two digits each, in front of two spaces or the end of the lines of its first block.
std::string octetsOn(const std::string& path)
{
    std::ifstream page(path);
    std::string octets;
    bool inBlock = false;
    for (std::string line; std::getline(page, line);)
    {
        if (line == "```octets" || (inBlock && line == "```"))
            inBlock = !inBlock;
        else if (inBlock)
            for (std::size_t i = 0; i + 2 <= line.size() && line[i] != ' '; i += 3)
                octets += line.substr(i, 2);
    }
    return octets;
}

} // namespace

int main(int argc, char* argv[])
{
    try
    {
        const std::string octets = hexadecimal(note());
        std::cout << octets << '\n';
        std::istringstream fis(note());
        std::ostringstream xml;
        Vesk::FastInfoset::Converter::convertToXML(fis, xml, 0);
        std::cout << xml.str() << '\n' << octets.size() / 2 << " octets instead of " << xml.str().size() << '\n';
        return argc < 2 || octetsOn(argv[1]) == octets ? 0 : 1;
    }
    catch (const std::exception& exception)
    {
        std::cerr << "format: " << exception.what() << '\n';
        return 1;
    }
}
