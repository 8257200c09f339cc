// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/Converter.h"
#include "PrologHandler.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/SAXParser.h"
#include "Vesk/XML/WhitespaceFilter.h"
#include "Vesk/XML/XMLWriter.h"

namespace Vesk::FastInfoset
{

namespace
{

constexpr int STRIP_WHITESPACE = 0x01 | 0x80; // either of the two

} // namespace

void Converter::convertToFIS(std::istream& xml, std::ostream& fis, int maxIndexedLength, int options)
{
    FastInfosetWriter writer(fis, false, DocumentVocabulary::VOC_MAP);
    writer.setMaxIndexedLength(maxIndexedLength);
    PrologHandler prolog(writer);

    XML::SAXParser parser;
    XML::WhitespaceFilter filter(&parser);
    XML::XMLReader& reader = (options & STRIP_WHITESPACE) != 0 ? static_cast<XML::XMLReader&>(filter) : parser;
    prolog.connect(reader);
    XML::InputSource source(xml);
    reader.parse(&source);
}

void Converter::convertToXML(std::istream& fis, std::ostream& xml, int options)
{
    XML::XMLWriter writer(xml, options);
    FastInfosetParser parser(DocumentVocabulary::VOC_VECTOR);
    parser.initialize(&writer);
    XML::InputSource source(fis);
    parser.parse(&source);
}

} // namespace Vesk::FastInfoset
