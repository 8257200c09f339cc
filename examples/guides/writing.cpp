// SPDX-License-Identifier: MIT
//
// Writes every kind of item that a document can have, and shows it as XML text.
//
//   writing

#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/XML/AttributesImpl.h"
#include <exception>
#include <iostream>
#include <sstream>
#include <string>

using Vesk::FastInfoset::Converter;
using Vesk::FastInfoset::DocumentVocabulary;
using Vesk::FastInfoset::FastInfosetWriter;
using Vesk::XML::AttributesImpl;

namespace
{

void writeLetter(std::ostream& out)
{
    const std::string ns = "urn:example:letter";
    const std::string xlink = "http://www.w3.org/1999/xlink";

    FastInfosetWriter writer(out, false, DocumentVocabulary::VOC_MAP);
    writer.startDocument();
    writer.processingInstruction("style", "plain");

    // Prefixes first, then the element that declares them. The empty prefix is the default namespace.
    writer.startPrefixMapping("", ns);
    writer.startPrefixMapping("xlink", xlink);
    AttributesImpl attributes;
    attributes.addAttribute("", "date", "date", "CDATA", "2026-11-21");
    attributes.addAttribute(xlink, "href", "xlink:href", "CDATA", "http://example.com/?a=1&b=2");
    writer.startElement(ns, "letter", "letter", attributes);

    writer.characters("Dear ");
    writer.dataElement(ns, "name", "name", "J\xC3\xB6rg"); // UTF-8
    writer.characters(",\n1 < 2 & 3 > 2.");                // nothing to escape

    const std::string comment = " to be continued ";
    writer.comment(comment.data(), 0, static_cast<int>(comment.size()));
    writer.startCDATA();
    writer.characters("if (a < b && b < c)");
    writer.endCDATA();
    writer.emptyElement(ns, "end", "end");

    writer.endElement(ns, "letter", "letter");
    writer.endPrefixMapping("xlink");
    writer.endPrefixMapping("");
    writer.endDocument();
}

const char EXPECTED[] =
    "<?style plain?>\n<letter xmlns=\"urn:example:letter\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
    "date=\"2026-11-21\" xlink:href=\"http://example.com/?a=1&amp;b=2\">"
    "Dear <name>J\xC3\xB6rg</name>,\n1 &lt; 2 &amp; 3 &gt; 2.<!-- to be continued -->"
    "<![CDATA[if (a < b && b < c)]]><end/></letter>";

bool writeAndShow()
{
    std::stringstream document;
    writeLetter(document);
    std::ostringstream text;
    Converter::convertToXML(document, text, 0);
    std::cout << text.str() << '\n';
    return text.str() == EXPECTED;
}

} // namespace

int main()
{
    try
    {
        return writeAndShow() ? 0 : 1;
    }
    catch (const std::exception& exception)
    {
        std::cerr << "writing: " << exception.what() << '\n';
        return 1;
    }
}
