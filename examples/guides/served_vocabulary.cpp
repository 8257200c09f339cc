// SPDX-License-Identifier: MIT
//
// External vocabularies from memory: documents may name those that the program knows, and no file is opened.
//
//   served_vocabulary

#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/NullOutputStream.h"
#include "Vesk/URI.h"
#include "Vesk/URIStreamOpener.h"
#include "Vesk/XML/SAXParser.h"
#include <exception>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <string>

using Vesk::FastInfoset::Converter;
using Vesk::FastInfoset::DocumentVocabulary;
using Vesk::FastInfoset::FastInfosetWriter;

namespace
{

// By the path of the URI. It ends in ".xml", so the parser takes them for XML text.
const std::map<std::string, std::string> VOCABULARIES = {
    {"orders.xml", "<order><item sku='A-1'>in preparation</item></order>"}};

void openVocabulariesOnly()
{
    Vesk::URIStreamOpener::defaultOpener().unregisterStreamFactory("file");
    Vesk::URIStreamOpener::defaultOpener().registerStreamFactory(
        "vocabulary",
        [](const Vesk::URI& uri) -> std::unique_ptr<std::istream>
        {
            const auto found = VOCABULARIES.find(uri.getPath());
            if (found == VOCABULARIES.end())
                throw Vesk::FileNotFoundException(uri.toString());
            return std::make_unique<std::istringstream>(found->second);
        });
}

// A document that borrows from a vocabulary, as another program might send it.
std::string documentThatNames(const std::string& uri)
{
    Vesk::NullOutputStream nowhere;
    FastInfosetWriter learner(nowhere, false, DocumentVocabulary::VOC_MAP);
    Vesk::XML::SAXParser parser;
    parser.setContentHandler(&learner);
    const std::string& sample = VOCABULARIES.begin()->second;
    parser.parseMemoryNP(sample.data(), sample.size());
    const DocumentVocabulary& vocabulary = learner.getDocumentVocabulary();

    std::ostringstream out;
    FastInfosetWriter writer(out, false, vocabulary);
    writer.setExternalVocabulary(uri, vocabulary);
    writer.startDocument();
    writer.startElement("", "order", "order");
    writer.dataElement("", "item", "item", "in preparation", "sku", "B-2");
    writer.endElement("", "order", "order");
    writer.endDocument();
    return out.str();
}

// The document as XML text, or why it cannot be read.
std::string read(const std::string& document)
{
    try
    {
        std::istringstream fis(document);
        std::ostringstream xml;
        Converter::convertToXML(fis, xml, 0);
        return xml.str();
    }
    catch (const Vesk::Exception& exception)
    {
        return exception.className();
    }
}

bool readDocuments()
{
    openVocabulariesOnly();
    const std::string served = read(documentThatNames("vocabulary:orders.xml"));
    const std::string unknown = read(documentThatNames("vocabulary:others.xml"));
    const std::string file = read(documentThatNames("file:///etc/passwd"));
    std::cout << served << '\n' << unknown << '\n' << file << '\n';
    return served == "<order><item sku=\"B-2\">in preparation</item></order>" && unknown == "FileNotFoundException" &&
           file == "UnknownURISchemeException";
}

} // namespace

int main()
{
    try
    {
        return readDocuments() ? 0 : 1;
    }
    catch (const std::exception& exception)
    {
        std::cerr << "served_vocabulary: " << exception.what() << '\n';
        return 1;
    }
}
