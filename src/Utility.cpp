// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/Utility.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/XML/XMLWriter.h"

namespace Vesk::FastInfoset
{

void Utility::convertToFIS(std::istream& xml, std::ostream& fis, int maxIndexedLength)
{
    Converter::convertToFIS(xml, fis, maxIndexedLength, 0);
}

void Utility::convertToXML(std::istream& fis, std::ostream& xml)
{
    Converter::convertToXML(fis, xml, XML::XMLWriter::WRITE_XML_DECLARATION);
}

} // namespace Vesk::FastInfoset
