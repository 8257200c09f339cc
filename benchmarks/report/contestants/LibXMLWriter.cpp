// SPDX-License-Identifier: MIT
#include "../Contestants.h"
#include "../ExpatTally.h"
#include "../TextHandler.h"
#include "Vesk/Exception.h"
#include "Vesk/XML/Attributes.h"
#include <libxml/xmlwriter.h>

namespace Vesk::Benchmarks
{

namespace
{

const xmlChar* toXML(const char* text)
{
    return reinterpret_cast<const xmlChar*>(text);
}

const xmlChar* toXML(const std::string& text)
{
    return toXML(text.c_str());
}

class Handler final : public TextHandler
{
public:
    /// The writer is borrowed.
    explicit Handler(xmlTextWriterPtr writer)
        : _writer(writer)
    {
    }

    void startDocument() override { check(xmlTextWriterStartDocument(_writer, nullptr, "UTF-8", nullptr)); }
    void endDocument() override { check(xmlTextWriterEndDocument(_writer)); }

    void startElement(const XML::XMLString&, const XML::XMLString&, const XML::XMLString& qname,
                      const XML::Attributes& attributes) override
    {
        check(xmlTextWriterStartElement(_writer, toXML(qname)));
        for (const Declaration& declaration : declarations())
            writeAttribute(declaration.attributeName(), *declaration.uri);
        declarations().clear();
        const int count = attributes.getLength();
        for (int i = 0; i < count; ++i)
            writeAttribute(attributes.getQName(i), attributes.getValue(i));
    }
    void endElement(const XML::XMLString&, const XML::XMLString&, const XML::XMLString&) override
    {
        check(xmlTextWriterEndElement(_writer));
    }

    // Stored text ends with a zero octet.
    void characters(const XML::XMLChar ch[], int start, int) override
    {
        check(xmlTextWriterWriteString(_writer, toXML(ch + start)));
    }
    void processingInstruction(const XML::XMLString& target, const XML::XMLString& data) override
    {
        check(xmlTextWriterWritePI(_writer, toXML(target), toXML(data)));
    }

private:
    void writeAttribute(const std::string& name, const std::string& value)
    {
        check(xmlTextWriterWriteAttribute(_writer, toXML(name), toXML(value)));
    }

    static void check(int result)
    {
        if (result < 0)
            throw RuntimeException("libxml2 cannot write the document");
    }

    xmlTextWriterPtr _writer;
};

class LibXMLWriter final : public Contestant
{
public:
    explicit LibXMLWriter(Workload& items)
        : Contestant(items),
          _buffer(xmlBufferCreate(), xmlBufferFree)
    {
    }

private:
    using Writer = std::unique_ptr<xmlTextWriter, void (*)(xmlTextWriterPtr)>;

    void process(std::size_t document) override
    {
        xmlBufferEmpty(_buffer.get());
        const Writer writer(xmlNewTextWriterMemory(_buffer.get(), 0), xmlFreeTextWriter);
        Handler handler(writer.get());
        workload().textEvents(document).replay(handler, EventStore::PREPARED);
    }
    Tally documentTally() override
    {
        return ExpatTally().parse(std::string(reinterpret_cast<const char*>(xmlBufferContent(_buffer.get())),
                                              static_cast<std::size_t>(xmlBufferLength(_buffer.get()))));
    }

    std::unique_ptr<xmlBuffer, void (*)(xmlBufferPtr)> _buffer;
};

} // namespace

ContestantPtr makeLibXMLWriter(Workload& workload)
{
    return std::make_unique<LibXMLWriter>(workload);
}

} // namespace Vesk::Benchmarks
