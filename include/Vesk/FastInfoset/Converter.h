// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_CONVERTER_H
#define VESK_FASTINFOSET_CONVERTER_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <istream>
#include <ostream>

namespace Vesk::XML
{
class InputSource;
class XMLReader;
} // namespace Vesk::XML

namespace Vesk::FastInfoset
{

/// Converts between XML text and Fast Infoset in one call.
///
/// Elements, attributes, namespaces, text, comments, processing instructions, the identifiers of the document type
/// declaration, notations and unparsed entities come through; docs/conversion.md says what does not. Whatever the
/// parsers and writers throw passes through; what has been written by then stays on the output.
class VESK_FASTINFOSET_API Converter
{
public:
    /// What may be asked of a conversion to Fast Infoset.
    enum Options
    {
        /// Drops white space between tags (XML::WhitespaceFilter).
        STRIP_WHITESPACE = 0x01,
        /// Starts with "<?xml encoding='finf'?>".
        WRITE_XML_DECLARATION = 0x02,
        /// Stores text as values where that takes fewer octets (TypingFilter).
        TYPED = 0x04
    };

    /// Converts XML text (UTF-8, UTF-16, ISO-8859-1 or US-ASCII) to Fast Infoset with map tables.
    ///
    /// maxIndexedLength: text, attribute values, comments and data of processing instructions of up to so many octets
    /// are indexed; 16 is a good value, 0 or less indexes none. options: 0x01 or 0x80 drops white space between tags.
    static void convertToFIS(std::istream& xml, std::ostream& fis, int maxIndexedLength, int options);

    /// Converts what a reader makes of a source: a SAXParser, or a filter in front of it that watches what goes by.
    ///
    /// The reader is borrowed and given handlers of the converter's own; afterwards it can only be set up anew or
    /// destroyed. options is a combination of the constants above.
    static void convertToFIS(XML::XMLReader& reader, XML::InputSource& source, std::ostream& fis, int maxIndexedLength,
                             int options);

    /// Converts Fast Infoset to XML text in UTF-8. options are those of XML::XMLWriter.
    static void convertToXML(std::istream& fis, std::ostream& xml, int options);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_CONVERTER_H
