// SPDX-License-Identifier: MIT
//
// Converts XML text to Fast Infoset and back: as it is, without the white space that lays it out, and with numbers
// stored as numbers.
//
//   converting

#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/SAXParser.h"
#include "Vesk/XML/XMLWriter.h"
#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

using Vesk::FastInfoset::Converter;
using Vesk::XML::InputSource;
using Vesk::XML::SAXParser;
using Vesk::XML::XMLWriter;

namespace
{

// Texts and attribute values of up to so many octets enter tables, and are an index when they come again.
constexpr int MAX_INDEXED_LENGTH = 16;

void convertFile(const std::string& xmlPath, const std::string& fisPath)
{
    std::ifstream xml(xmlPath, std::ios::binary);
    std::ofstream fis(fisPath, std::ios::binary);
    Converter::convertToFIS(xml, fis, MAX_INDEXED_LENGTH, 0);
}

void convertFileBack(const std::string& fisPath, const std::string& xmlPath)
{
    std::ifstream fis(fisPath, std::ios::binary);
    std::ofstream xml(xmlPath, std::ios::binary);
    Converter::convertToXML(fis, xml, XMLWriter::WRITE_XML_DECLARATION);
}

// The form with a parser knows more options.
std::string encoded(const std::string& text, int options)
{
    std::istringstream xml(text);
    std::ostringstream fis;
    SAXParser parser;
    InputSource source(xml);
    Converter::convertToFIS(parser, source, fis, MAX_INDEXED_LENGTH, options);
    return fis.str();
}

std::string decoded(const std::string& document)
{
    std::istringstream fis(document);
    std::ostringstream xml;
    Converter::convertToXML(fis, xml, XMLWriter::CANONICAL);
    return xml.str();
}

bool compareSizes()
{
    std::string xml = "<measurements>\n";
    for (int i = 0; i < 20; ++i)
    {
        xml += "  <row>";
        for (int column = 0; column < 5; ++column)
            xml += std::to_string(1000003 * i + 100000 * column) + " ";
        xml += "-1</row>\n";
    }
    xml += "</measurements>";

    const std::string all = encoded(xml, 0);
    const std::string bare = encoded(xml, Converter::STRIP_WHITESPACE);
    const std::string typed = encoded(xml, Converter::STRIP_WHITESPACE | Converter::TYPED);
    std::cout << "XML text             " << xml.size() << " octets\n"
              << "as it is             " << all.size() << " octets\n"
              << "without white space  " << bare.size() << " octets\n"
              << "and with numbers     " << typed.size() << " octets\n";
    return decoded(all) == xml && decoded(typed) == decoded(bare) && all.size() < xml.size() &&
           bare.size() < all.size() && typed.size() < bare.size();
}

bool convertFiles()
{
    const std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a b=\"c\">text</a>\n";
    std::ofstream("small.xml", std::ios::binary) << xml;
    convertFile("small.xml", "small.finf");
    convertFileBack("small.finf", "small-again.xml");
    std::ifstream file("small-again.xml", std::ios::binary);
    std::stringstream again;
    again << file.rdbuf();
    return again.str().find("<a b=\"c\">text</a>") != std::string::npos;
}

} // namespace

int main()
{
    try
    {
        return compareSizes() && convertFiles() ? 0 : 1;
    }
    catch (const std::exception& exception)
    {
        std::cerr << "converting: " << exception.what() << '\n';
        return 1;
    }
}
