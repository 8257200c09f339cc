// SPDX-License-Identifier: MIT
#include "DecodeCommand.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/XML/XMLWriter.h"

namespace Vesk::Tool
{

DecodeCommand::DecodeCommand(CLI::App& tool)
    : ConversionCommand(tool, "decode", "Convert Fast Infoset to XML text")
{
}

void DecodeCommand::convert(std::istream& input, std::ostream& output)
{
    FastInfoset::Converter::convertToXML(input, output, XML::XMLWriter::WRITE_XML_DECLARATION);
}

} // namespace Vesk::Tool
