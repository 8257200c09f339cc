// SPDX-License-Identifier: MIT
#include "DecodeCommand.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/XML/XMLWriter.h"

namespace Vesk::Tool
{

const char* DecodeCommand::examples() const
{
    return "Example:\n  veskfi decode document.finf -o document.xml\n";
}

void DecodeCommand::convert(std::istream& input, std::ostream& output)
{
    FastInfoset::Converter::convertToXML(input, output, XML::XMLWriter::WRITE_XML_DECLARATION);
}

} // namespace Vesk::Tool
