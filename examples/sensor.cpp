// SPDX-License-Identifier: MIT
//
// Sensor readings that travel as what they are: timestamps, doubles, a UUID and a binary block are written typed, read
// back bit for bit, and compared in size with the same document as XML text.
//
//   sensor

#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/UUID.h"
#include <cmath>
#include <exception>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

using Vesk::UUID;
using Vesk::FastInfoset::DocumentVocabulary;
using Vesk::FastInfoset::FastInfosetParser;
using Vesk::FastInfoset::FastInfosetWriter;
using Vesk::FastInfoset::FISContentHandler;
using Vesk::XML::XMLChar;
using Vesk::XML::XMLString;

namespace
{

struct Recording
{
    UUID sensor;
    std::vector<long> timestamps; // milliseconds since 1970
    std::vector<double> celsius;
    std::string calibration; // octets that mean something to the sensor only

    bool operator==(const Recording& other) const
    {
        return sensor == other.sensor && timestamps == other.timestamps && celsius == other.celsius &&
               calibration == other.calibration;
    }
};

Recording record()
{
    Recording recording;
    recording.sensor = UUID("6ba7b810-9dad-11d1-80b4-00c04fd430c8");
    for (int i = 0; i < 1000; ++i)
    {
        recording.timestamps.push_back(1700000000000 + 250l * i);
        recording.celsius.push_back(21.5 + std::sin(i / 60.0) + 0.01 * std::cos(7.0 * i));
    }
    for (int i = 0; i < 512; ++i)
        recording.calibration += static_cast<char>(i * i);
    return recording;
}

// Consecutive values of one type go out together, as one block of numbers.
void write(const Recording& recording, std::ostream& out)
{
    FastInfosetWriter writer(out, false, DocumentVocabulary::VOC_MAP);
    writer.startDocument();
    writer.startElement("", "recording", "recording");

    writer.startElement("", "sensor", "sensor");
    writer.encodedData(recording.sensor);
    writer.endElement("", "sensor", "sensor");

    writer.startElement("", "timestamps", "timestamps");
    for (const long timestamp : recording.timestamps)
        writer.encodedData(timestamp);
    writer.endElement("", "timestamps", "timestamps");

    writer.startElement("", "celsius", "celsius");
    for (const double value : recording.celsius)
        writer.encodedData(value);
    writer.endElement("", "celsius", "celsius");

    writer.startElement("", "calibration", "calibration");
    writer.binaryData(recording.calibration.data(), recording.calibration.size());
    writer.endElement("", "calibration", "calibration");

    writer.endElement("", "recording", "recording");
    writer.endDocument();
}

// Takes the values as they come. Each kind stands in one element only, so the names need not be looked at.
class Reader : public FISContentHandler
{
public:
    const Recording& recording() const { return _recording; }

    void binaryData(const char* data, std::size_t octetCount) override
    {
        _recording.calibration.append(data, octetCount);
    }
    void encodedData(long value) override { _recording.timestamps.push_back(value); }
    void encodedData(double value) override { _recording.celsius.push_back(value); }
    void encodedData(const UUID& value) override { _recording.sensor = value; }

    void encodedData(short) override {}
    void encodedData(int) override {}
    void encodedData(bool) override {}
    void encodedData(float) override {}
    void setDocumentLocator(const Vesk::XML::Locator*) override {}
    void startDocument() override {}
    void endDocument() override {}
    void startElement(const XMLString&, const XMLString&, const XMLString&, const Vesk::XML::Attributes&) override {}
    void endElement(const XMLString&, const XMLString&, const XMLString&) override {}
    void characters(const XMLChar*, int, int) override {}
    void ignorableWhitespace(const XMLChar*, int, int) override {}
    void processingInstruction(const XMLString&, const XMLString&) override {}
    void startPrefixMapping(const XMLString&, const XMLString&) override {}
    void endPrefixMapping(const XMLString&) override {}
    void skippedEntity(const XMLString&) override {}

private:
    Recording _recording;
};

Recording read(const std::string& document)
{
    Reader reader;
    FastInfosetParser parser;
    parser.setContentHandler(&reader);
    parser.parseMemoryNP(document.data(), document.size());
    return reader.recording();
}

bool compare()
{
    const Recording recording = record();
    std::stringstream document;
    write(recording, document);
    const bool same = read(document.str()) == recording;

    // A plain content handler, such as the writer of XML text, gets the text of the values.
    std::ostringstream text;
    Vesk::FastInfoset::Converter::convertToXML(document, text, 0);
    std::istringstream textAgain(text.str());
    std::ostringstream untyped;
    Vesk::FastInfoset::Converter::convertToFIS(textAgain, untyped, 16, 0);

    std::cout << "1000 timestamps, 1000 doubles, a UUID and 512 octets:\n"
              << "  XML text                  " << text.str().size() << " octets\n"
              << "  Fast Infoset, as text     " << untyped.str().size() << " octets\n"
              << "  Fast Infoset, typed       " << document.str().size() << " octets, "
              << 100 * document.str().size() / text.str().size() << " % of the text\n"
              << (same ? "All values came back bit for bit.\n" : "Values were lost!\n");
    return same && document.str().size() < text.str().size();
}

} // namespace

int main()
{
    try
    {
        return compare() ? 0 : 1;
    }
    catch (const std::exception& exception)
    {
        std::cerr << "sensor: " << exception.what() << '\n';
        return 1;
    }
}
