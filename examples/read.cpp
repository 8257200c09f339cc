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

// Receives the events of a document, from a parser of Fast Infoset or of XML text. XMLFilterImpl is a convenient base:
// it takes every event, so that only the interesting ones have to be written.
class Outline : public XMLFilterImpl
{
public:
    using XMLFilterImpl::XMLFilterImpl;

    void startElement(const std::string&, const std::string& localName, const std::string&,
                      const Attributes& attributes) override
    {
        std::cout << indentation() << localName;
        for (int i = 0; i < attributes.getLength(); ++i)
            std::cout << ' ' << attributes.getLocalName(i) << "=\"" << attributes.getValue(i) << '"';
        std::cout << '\n';
        ++_depth;
    }

    void endElement(const std::string&, const std::string&, const std::string&) override { --_depth; }

    // Typed values come as their text; a handler that derives from FISContentHandler gets the values themselves.
    void characters(const char ch[], int start, int length) override
    {
        std::cout << indentation() << '"' << std::string(ch + start, ch + start + length) << "\"\n";
    }

private:
    std::string indentation() const { return std::string(2 * _depth, ' '); }

    std::size_t _depth = 0;
};

int main(int argc, char* argv[])
{
    if (argc != 2)
    {
        std::cerr << "usage: read IN.finf\n";
        return 2;
    }
    try
    {
        FastInfosetParser parser;
        Outline outline(&parser);
        outline.parse(argv[1]);
    }
    catch (const std::exception& exception)
    {
        std::cerr << "read: " << argv[1] << ": " << exception.what() << '\n';
        return 1;
    }
}
