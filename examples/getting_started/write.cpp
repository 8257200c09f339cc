// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include <fstream>

using Vesk::FastInfoset::DocumentVocabulary;
using Vesk::FastInfoset::FastInfosetWriter;

int main()
{
    std::ofstream file("order.finf", std::ios::binary);
    FastInfosetWriter writer(file, false, DocumentVocabulary::VOC_MAP);
    writer.startDocument();
    writer.startElement("", "order", "order");
    writer.dataElement("", "item", "item", "Kettle", "sku", "A-1000");
    writer.startElement("", "prices", "prices");
    for (const double price : {24.5, 22.0, 19.75})
        writer.encodedData(price);
    writer.endElement("", "prices", "prices");
    writer.endElement("", "order", "order");
    writer.endDocument();
}
