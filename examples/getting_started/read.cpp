// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/XML/Attributes.h"
#include "Vesk/XML/XMLFilterImpl.h"
#include <iostream>
#include <string>

class Printer : public Vesk::XML::XMLFilterImpl
{
    void startElement(const std::string&, const std::string& name, const std::string&,
                      const Vesk::XML::Attributes& attributes) override
    {
        std::cout << name << ' ' << attributes.getValue("", "sku") << '\n';
    }

    void characters(const char ch[], int start, int length) override
    {
        std::cout << "  " << std::string(ch + start, ch + start + length) << '\n';
    }
};

int main()
{
    Vesk::FastInfoset::FastInfosetParser parser;
    Printer printer;
    parser.setContentHandler(&printer);
    parser.parse("order.finf");
}
