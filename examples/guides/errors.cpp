// SPDX-License-Identifier: MIT
//
// What reading throws, and how to tell one failure from another.
//
//   errors

#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/XML/SAXParseException.h"
#include <exception>
#include <iostream>
#include <sstream>
#include <string>

using Vesk::FastInfoset::Converter;
using Vesk::FastInfoset::FastInfosetParser;

namespace
{

// For most programs this is enough: whatever is wrong with the document, here it ends.
std::string failureOf(const std::string& document)
{
    try
    {
        FastInfosetParser parser;
        parser.parseMemoryNP(document.data(), document.size());
        return "";
    }
    catch (const std::exception& exception)
    {
        return exception.what();
    }
}

// From the most particular to the most general.
std::string kindOfFailure(const std::string& document)
{
    try
    {
        FastInfosetParser parser;
        parser.parseMemoryNP(document.data(), document.size());
        return "none";
    }
    catch (const Vesk::FastInfoset::FISParseException&)
    {
        return "the document ends too soon";
    }
    catch (const Vesk::FastInfoset::FISException&)
    {
        return "this is no Fast Infoset document";
    }
    catch (const Vesk::Exception& exception)
    {
        return std::string("the document is broken: ") + exception.className();
    }
    catch (const std::exception&)
    {
        return "the document is broken: an index stands for nothing";
    }
}

std::string failureOfConversion(const std::string& text)
{
    std::istringstream xml(text);
    std::ostringstream fis;
    try
    {
        Converter::convertToFIS(xml, fis, 16, 0);
        return "none";
    }
    catch (const Vesk::XML::SAXParseException& exception)
    {
        return "line " + std::to_string(exception.getLineNumber()) + ", column " +
               std::to_string(exception.getColumnNumber()) + ": " + exception.getText();
    }
}

bool expect(const std::string& found, const std::string& expected)
{
    std::cout << found << '\n';
    return found == expected;
}

bool failInAllWays()
{
    std::istringstream xml("<a>text</a>");
    std::ostringstream fis;
    Converter::convertToFIS(xml, fis, 16, 0);
    const std::string document = fis.str();
    const std::string cut = document.substr(0, document.size() - 3);
    // An element whose name is entry 1 of an empty table.
    const std::string unknownName("\xE0\x00\x00\x01\x00\x00\xF0", 7);

    bool good = expect(kindOfFailure(document), "none");
    good = expect(kindOfFailure(cut), "the document ends too soon") && good;
    good = expect(kindOfFailure("<a>text</a>"), "this is no Fast Infoset document") && good;
    good = expect(kindOfFailure(unknownName), "the document is broken: an index stands for nothing") && good;
    good = expect(failureOfConversion("<a>\n  <b></c>\n</a>"), "line 2, column 8: mismatched tag") && good;
    return good && failureOf(document).empty() && !failureOf(cut).empty();
}

} // namespace

int main()
{
    return failInAllWays() ? 0 : 1;
}
