// SPDX-License-Identifier: MIT
//
// Reads one document from a file, a stream and memory, with handlers for content and for comments.
//
//   reading

#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/XML/Attributes.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/LexicalHandler.h"
#include "Vesk/XML/SAXParser.h"
#include "Vesk/XML/XMLFilterImpl.h"
#include <cstddef>
#include <exception>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

using Vesk::FastInfoset::Converter;
using Vesk::FastInfoset::FastInfosetParser;
using Vesk::XML::Attributes;
using Vesk::XML::InputSource;
using Vesk::XML::LexicalHandler;
using Vesk::XML::SAXParser;
using Vesk::XML::XMLFilterImpl;
using Vesk::XML::XMLReader;

namespace
{

const char CATALOGUE[] = "<c:catalogue xmlns:c='urn:example:books'><!-- two books -->"
                         "<c:book id='b1'><c:title>Small &amp; fast</c:title></c:book>"
                         "<c:book id='b2'><c:title>Bits</c:title></c:book></c:catalogue>";

// The titles of all books by their identifiers.
class Titles : public XMLFilterImpl
{
public:
    const std::map<std::string, std::string>& titles() const { return _titles; }

    void startElement(const std::string& uri, const std::string& localName, const std::string&,
                      const Attributes& attributes) override
    {
        if (uri != "urn:example:books")
            return;
        if (localName == "book")
            _id = attributes.getValue("", "id");
        _inTitle = localName == "title";
    }

    void endElement(const std::string&, const std::string&, const std::string&) override { _inTitle = false; }

    // A text may come in several calls.
    void characters(const char ch[], int start, int length) override
    {
        if (_inTitle)
            _titles[_id].append(ch + start, static_cast<std::size_t>(length));
    }

private:
    std::map<std::string, std::string> _titles;
    std::string _id;
    bool _inTitle = false;
};

class CommentCounter : public LexicalHandler
{
public:
    int count() const { return _count; }

    void comment(const char[], int, int) override { ++_count; }
    void startDTD(const std::string&, const std::string&, const std::string&) override {}
    void endDTD() override {}
    void startEntity(const std::string&) override {}
    void endEntity(const std::string&) override {}
    void startCDATA() override {}
    void endCDATA() override {}

private:
    int _count = 0;
};

std::map<std::string, std::string> titlesInFile(const std::string& path)
{
    FastInfosetParser parser;
    Titles titles;
    parser.setContentHandler(&titles);
    parser.parse(path);
    return titles.titles();
}

std::map<std::string, std::string> titlesInStream(std::istream& stream)
{
    FastInfosetParser parser;
    Titles titles;
    parser.setContentHandler(&titles);
    InputSource source(stream);
    parser.parse(&source);
    return titles.titles();
}

// For either form: the parser of XML text and that of Fast Infoset have the same interface.
std::map<std::string, std::string> titlesInMemory(XMLReader& parser, const std::string& document)
{
    Titles titles;
    parser.setContentHandler(&titles);
    parser.parseMemoryNP(document.data(), document.size());
    return titles.titles();
}

int countComments(const std::string& document)
{
    FastInfosetParser parser;
    CommentCounter counter;
    parser.setProperty(XMLReader::PROPERTY_LEXICAL_HANDLER, static_cast<LexicalHandler*>(&counter));
    parser.parseMemoryNP(document.data(), document.size());
    return counter.count();
}

std::string encodedCatalogue()
{
    std::istringstream xml(CATALOGUE);
    std::ostringstream fis;
    Converter::convertToFIS(xml, fis, 16, 0);
    return fis.str();
}

bool readInAllWays()
{
    const std::string document = encodedCatalogue();
    std::ofstream("catalogue.finf", std::ios::binary) << document;
    std::istringstream stream(document);
    FastInfosetParser parser;
    SAXParser textParser;

    const std::map<std::string, std::string> titles = titlesInMemory(parser, document);
    for (const auto& [id, title] : titles)
        std::cout << id << ": " << title << '\n';
    return titles.at("b1") == "Small & fast" && titles.size() == 2 && titlesInFile("catalogue.finf") == titles &&
           titlesInStream(stream) == titles && titlesInMemory(textParser, CATALOGUE) == titles &&
           countComments(document) == 1;
}

} // namespace

int main()
{
    try
    {
        return readInAllWays() ? 0 : 1;
    }
    catch (const std::exception& exception)
    {
        std::cerr << "reading: " << exception.what() << '\n';
        return 1;
    }
}
