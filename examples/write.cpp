// SPDX-License-Identifier: MIT
//
// Writes a small Fast Infoset document with namespaces, attributes, text and typed values.
//
//   write OUT.finf

#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/XML/AttributesImpl.h"
#include <exception>
#include <fstream>
#include <iostream>

using Vesk::FastInfoset::DocumentVocabulary;
using Vesk::FastInfoset::FastInfosetWriter;
using Vesk::XML::AttributesImpl;

// The events are those that any SAX parser would report for the document as XML text.
void writeStation(std::ostream& out)
{
    const std::string ns = "urn:example:weather";
    FastInfosetWriter writer(out, false, DocumentVocabulary::VOC_MAP); // tables that grow with the document
    writer.startDocument();
    writer.startPrefixMapping("w", ns);

    AttributesImpl attributes;
    attributes.addAttribute("", "id", "id", "CDATA", "DE-0042");
    writer.startElement(ns, "station", "w:station", attributes);
    writer.dataElement(ns, "name", "w:name", "Zugspitze");

    // Consecutive values of one type are stored together, as numbers; a reader gets them exactly as they are here.
    writer.startElement(ns, "temperatures", "w:temperatures");
    for (const double celsius : {-3.5, -2.25, -4.0})
        writer.encodedData(celsius);
    writer.endElement(ns, "temperatures", "w:temperatures");

    writer.endElement(ns, "station", "w:station");
    writer.endPrefixMapping("w");
    writer.endDocument();
}

int main(int argc, char* argv[])
{
    if (argc != 2)
    {
        std::cerr << "usage: write OUT.finf\n";
        return 2;
    }
    try
    {
        std::ofstream file(argv[1], std::ios::binary);
        writeStation(file); // throws if the stream fails
    }
    catch (const std::exception& exception)
    {
        std::cerr << "write: " << argv[1] << ": " << exception.what() << '\n';
        return 1;
    }
}
