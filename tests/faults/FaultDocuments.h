// SPDX-License-Identifier: MIT
#ifndef VESK_TESTS_FAULTDOCUMENTS_H
#define VESK_TESTS_FAULTDOCUMENTS_H

#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/UUID.h"
#include "Vesk/XML/AttributesImpl.h"
#include <sstream>
#include <string>

namespace Vesk::FastInfoset
{

/// XML text with every construct, with names and texts beyond what a string holds without memory of its own.
inline const std::string& faultText()
{
    static const std::string xml = R"(<?xml version="1.0"?>
<?before the document type, a processing instruction?>
<!DOCTYPE p:root PUBLIC "-//Example//DTD Faults 1.0//EN" "http://example.org/faults.dtd" [
  <!NOTATION gif PUBLIC "-//Example//NOTATION GIF//EN" "image/gif">
  <!ENTITY logo SYSTEM "http://example.org/logo.gif" NDATA gif>
  <!ENTITY text "a text that is declared as an entity">
]>
<p:root xmlns:p="http://example.org/prefixed-namespace" xmlns="http://example.org/default-namespace" p:first="1"
        second="a value that is too long to be indexed">
  <element-with-a-rather-long-name attribute-with-a-rather-long-name="short"/>
  <a>text &amp; &text;<![CDATA[text of a <CDATA> section]]></a>
  <b xmlns:q="http://example.org/another-namespace" q:c="short"><!-- a comment --><?target data?><q:d>short</q:d></b>
</p:root>
<!-- after the root element -->
)";
    return xml;
}

inline std::string converted(const std::string& xml)
{
    std::istringstream in(xml);
    std::ostringstream out;
    Converter::convertToFIS(in, out, 16, 0);
    return out.str();
}

/// A document with every typed value.
inline void writeTypedDocument(FastInfosetWriter& writer)
{
    writer.notationDecl("notation", nullptr, nullptr);
    writer.startDocument();
    XML::AttributesImpl attributes;
    attributes.addAttribute("http://example.org/namespace", "attribute", "p:attribute", "CDATA", "a long enough value");
    writer.startElement("http://example.org/namespace", "values", "p:values", attributes);
    for (int i = 0; i < 3; ++i)
    {
        writer.binaryData("some octets that are written as they are", 40);
        writer.encodedData(static_cast<short>(i));
        writer.encodedData(i);
        writer.encodedData(static_cast<long>(i));
        writer.encodedData(i == 1);
        writer.encodedData(static_cast<float>(i));
        writer.encodedData(static_cast<double>(i));
        writer.encodedData(UUID());
        writer.encodedData(UUID());
        writer.characters("a text behind all of those values");
    }
    writer.endElement("http://example.org/namespace", "values", "p:values");
    writer.endDocument();
}

inline std::string typedDocument()
{
    std::ostringstream out;
    {
        FastInfosetWriter writer(out, true, DocumentVocabulary::VOC_MAP);
        writeTypedDocument(writer);
    }
    return out.str();
}

} // namespace Vesk::FastInfoset

#endif // VESK_TESTS_FAULTDOCUMENTS_H
