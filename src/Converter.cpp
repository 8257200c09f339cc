// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/Converter.h"
#include "PrologHandler.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/FastInfoset/TypingFilter.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/SAXParser.h"
#include "Vesk/XML/WhitespaceFilter.h"
#include "Vesk/XML/XMLWriter.h"

namespace Vesk::FastInfoset
{

namespace
{

// Either bit of the short form's options asks for it.
constexpr int STRIP_WHITESPACE_BITS = 0x01 | 0x80;

} // namespace

void Converter::convertToFIS(std::istream& xml, std::ostream& fis, int maxIndexedLength, int options)
{
    XML::SAXParser parser;
    XML::InputSource source(xml);
    convertToFIS(parser, source, fis, maxIndexedLength,
                 (options & STRIP_WHITESPACE_BITS) != 0 ? static_cast<int>(STRIP_WHITESPACE) : 0);
}

void Converter::convertToFIS(XML::XMLReader& reader, XML::InputSource& source, std::ostream& fis, int maxIndexedLength,
                             int options)
{
    FastInfosetWriter writer(fis, (options & WRITE_XML_DECLARATION) != 0, DocumentVocabulary::VOC_MAP);
    writer.setMaxIndexedLength(maxIndexedLength);
    TypingFilter typing(writer, maxIndexedLength);
    const bool isTyped = (options & TYPED) != 0;
    PrologHandler prolog(isTyped ? static_cast<XML::ContentHandler&>(typing) : writer,
                         isTyped ? static_cast<XML::LexicalHandler&>(typing) : writer, writer);

    XML::WhitespaceFilter stripping(&reader);
    XML::XMLReader& front = (options & STRIP_WHITESPACE) != 0 ? stripping : reader;
    prolog.connect(front);
    front.parse(&source);
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
