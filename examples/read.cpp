// SPDX-License-Identifier: MIT
//
// Reads a Fast Infoset document and prints its outline: elements, attributes and text.
//
//   read IN.finf

#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/XML/Attributes.h"
#include "Vesk/XML/XMLFilterImpl.h"
#include <exception>
#include <iostream>
#include <string>

using Vesk::FastInfoset::FastInfosetParser;
using Vesk::XML::Attributes;
using Vesk::XML::XMLFilterImpl;

// XMLFilterImpl is a convenient base for a handler: it takes every event, and one overrides those of interest.
class Outline : public XMLFilterImpl
{
public:
    using XMLFilterImpl::XMLFilterImpl;

    void startElement(const std::string&, const std::string& localName, const std::string&,
                      const Attributes& attributes) override
    {
        std::cout << std::string(2 * _depth++, ' ') << localName;
        for (int i = 0; i < attributes.getLength(); ++i)
            std::cout << ' ' << attributes.getLocalName(i) << "=\"" << attributes.getValue(i) << '"';
        std::cout << '\n';
    }

    void endElement(const std::string&, const std::string&, const std::string&) override { --_depth; }

    // Numbers and other typed values come as their text; a FISContentHandler would get the values themselves.
    void characters(const char ch[], int start, int length) override
    {
        std::cout << std::string(2 * _depth, ' ') << '"' << std::string(ch + start, ch + start + length) << "\"\n";
    }

private:
    std::size_t _depth = 0;
};

void printOutline(const std::string& path)
{
    FastInfosetParser parser; // for XML text: Vesk::XML::SAXParser, and nothing else changes
    Outline outline(&parser);
    outline.parse(path);
}

int main(int argc, char* argv[])
{
    if (argc != 2)
    {
        std::cerr << "usage: read IN.finf\n";
        return 2;
    }
    try
    {
        printOutline(argv[1]);
    }
    catch (const std::exception& exception)
    {
        std::cerr << "read: " << argv[1] << ": " << exception.what() << '\n';
        return 1;
    }
}
