// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/XML/XMLWriter.h"
#include <fstream>
#include <iostream>

using Vesk::FastInfoset::Converter;
using Vesk::XML::XMLWriter;

int main()
{
    std::ifstream document("order.finf", std::ios::binary);
    Converter::convertToXML(document, std::cout, XMLWriter::WRITE_XML_DECLARATION | XMLWriter::PRETTY_PRINT);
}
