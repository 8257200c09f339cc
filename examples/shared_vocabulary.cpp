// SPDX-License-Identifier: MIT
//
// Two peers that know each other's names beforehand exchange small messages in a few octets.
//
// Both learn a vocabulary from the same sample message and give it a URI. A message then says which vocabulary it
// borrows, by that URI, and refers to everything in it by index. Prints the sizes, and fails if a message does not come
// back as it was or does not shrink to less than a third of its XML text.
//
//   shared_vocabulary

#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/NullOutputStream.h"
#include "Vesk/XML/SAXParser.h"
#include "Vesk/XML/XMLWriter.h"
#include <exception>
#include <iostream>
#include <sstream>
#include <string>

using Vesk::FastInfoset::Converter;
using Vesk::FastInfoset::DocumentVocabulary;
using Vesk::FastInfoset::FastInfosetParser;
using Vesk::FastInfoset::FastInfosetWriter;

namespace
{

const char VOCABULARY_URI[] = "urn:example:orders:1";

std::string item(const std::string& sku, const std::string& quantity, const std::string& state)
{
    return "<o:item sku=\"" + sku + "\"><o:quantity unit=\"piece\">" + quantity + "</o:quantity><o:state>" + state +
           "</o:state></o:item>";
}

std::string orderStatus(const std::string& order, const std::string& items)
{
    return "<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\" "
           "xmlns:wsa=\"http://www.w3.org/2005/08/addressing\">"
           "<soap:Header><wsa:To>http://example.com/shop</wsa:To><wsa:MessageID>" +
           order + "-status</wsa:MessageID></soap:Header>" +
           "<soap:Body><o:GetStatusResponse xmlns:o=\"urn:example:orders\">"
           "<o:order number=\"" +
           order + "\" currency=\"EUR\">" + items + "</o:order></o:GetStatusResponse></soap:Body></soap:Envelope>";
}

// Reports the events of XML text to the writer.
void write(const std::string& xml, FastInfosetWriter& writer)
{
    Vesk::XML::SAXParser parser;
    parser.setContentHandler(&writer);
    parser.parseMemoryNP(xml.data(), xml.size());
}

// The built-in entries and, behind them, all names and short values of the sample. Peers that read the same sample get
// the same entries in the same order, which is what their indexes rely on.
DocumentVocabulary learnVocabulary(const std::string& sample)
{
    Vesk::NullOutputStream nowhere;
    FastInfosetWriter writer(nowhere, false, DocumentVocabulary(VOCABULARY_URI, DocumentVocabulary::VOC_MAP));
    write(sample, writer);
    return writer.getDocumentVocabulary();
}

// The sender starts with the shared entries and names them by their URI instead of sending them.
std::string encode(const std::string& xml, const DocumentVocabulary& vocabulary)
{
    std::ostringstream out;
    FastInfosetWriter writer(out, false, vocabulary);
    writer.setExternalVocabulary(VOCABULARY_URI, vocabulary);
    write(xml, writer);
    return out.str();
}

// The receiver has the vocabulary for this URI, so nothing is opened. A fresh parser for each message: what a message
// adds to a prepared vocabulary would shift the indexes of the next one.
std::string decode(const std::string& message, const DocumentVocabulary& vocabulary)
{
    std::ostringstream xml;
    {
        Vesk::XML::XMLWriter writer(xml, Vesk::XML::XMLWriter::CANONICAL);
        FastInfosetParser parser(vocabulary);
        parser.initialize(&writer);
        parser.parseMemoryNP(message.data(), message.size());
    }
    return xml.str();
}

std::string encodeAlone(const std::string& xml)
{
    std::istringstream in(xml);
    std::ostringstream out;
    Converter::convertToFIS(in, out, 16, 0);
    return out.str();
}

bool exchangeMessages()
{
    const DocumentVocabulary vocabulary = learnVocabulary(
        orderStatus("10000001", item("A-1000", "1", "shipped") + item("A-1000", "2", "in preparation")));

    bool good = true;
    std::cout << "order     XML text   Fast Infoset   with the shared vocabulary\n";
    for (const std::string order : {"10482261", "10482262", "10482263"})
    {
        const std::string xml =
            orderStatus(order, item("B-" + order.substr(4), "12", "in preparation") + item("C-77", "1", "shipped"));
        const std::string message = encode(xml, vocabulary);
        std::cout << order << "  " << xml.size() << " octets " << encodeAlone(xml).size() << " octets     "
                  << message.size() << " octets, " << 100 * message.size() / xml.size() << " %\n";
        good = good && decode(message, vocabulary) == xml && 3 * message.size() < xml.size();
    }
    return good;
}

} // namespace

int main()
{
    try
    {
        if (exchangeMessages())
            return 0;
        std::cerr << "shared_vocabulary: a message was not what it should have been\n";
    }
    catch (const std::exception& exception)
    {
        std::cerr << "shared_vocabulary: " << exception.what() << '\n';
    }
    return 1;
}
