// SPDX-License-Identifier: MIT
//
// Any octets as XML text. What the XML parser takes has to go to Fast Infoset and back without a change, whether text
// that can be stored as values is or not.
#include "EventRecorder.h"
#include "Fuzz.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/SAXException.h"
#include "Vesk/XML/SAXParser.h"
#include "Vesk/XML/XMLWriter.h"
#include <sstream>

using namespace Vesk;
using namespace Vesk::FastInfoset;

namespace
{

constexpr int STRIP_WHITESPACE = 0x01;

/// References to entities that are not read have no place in the binary form.
class Recorder : public EventRecorder
{
public:
    void skippedEntity(const std::string&) override {}
};

/// A CDATA text that repeats comes back as plain text if short texts are indexed.
class TextRecorder : public Recorder
{
public:
    void startCDATA() override {}
    void endCDATA() override {}
};

template <class Recorder>
std::string eventsOf(XML::XMLReader& reader, const std::string& document)
{
    Recorder recorder;
    recorder.attachTo(reader);
    reader.parseMemoryNP(document.data(), document.size());
    return recorder.events();
}

template <class Recorder>
std::string eventsOfText(const std::string& xml)
{
    XML::SAXParser parser;
    return eventsOf<Recorder>(parser, xml);
}

std::string toFIS(const std::string& xml, int maxIndexedLength, int options)
{
    std::istringstream in(xml);
    std::ostringstream out;
    Converter::convertToFIS(in, out, maxIndexedLength, options);
    return out.str();
}

std::string toTypedFIS(const std::string& xml, int maxIndexedLength)
{
    std::istringstream in(xml);
    XML::InputSource source(in);
    XML::SAXParser parser;
    std::ostringstream out;
    Converter::convertToFIS(parser, source, out, maxIndexedLength, Converter::TYPED);
    return out.str();
}

std::string toXML(const std::string& document, int options)
{
    std::istringstream in(document);
    std::ostringstream out;
    Converter::convertToXML(in, out, options);
    return out.str();
}

template <class Recorder>
void roundTrip(const std::string& xml, int maxIndexedLength)
{
    const std::string events = eventsOfText<Recorder>(xml);
    const std::string document = toFIS(xml, maxIndexedLength, 0);
    FastInfosetParser parser;
    Fuzz::requireEqual(eventsOf<Recorder>(parser, document), events, "the Fast Infoset document has other events");
    Fuzz::requireEqual(eventsOf<Recorder>(parser, toTypedFIS(xml, maxIndexedLength)), events,
                       "the typed Fast Infoset document has other events");
    Fuzz::requireEqual(eventsOfText<Recorder>(toXML(document, 0)), events, "the text that came back has other events");
}

/// In ISO-8859-1 expat takes U+00AA, U+00B5 and U+00BA for letters of names, which they are not. The writer of XML text
/// refuses such names.
bool isRefusedForLetters(const std::string& xml)
{
    if (xml.find_first_of("\xAA\xB5\xBA") == std::string::npos)
        return false;
    try
    {
        toXML(toFIS(xml, 0, 0), 0);
        return false;
    }
    catch (const XML::SAXException& exception)
    {
        return exception.message().compare(0, 12, "Invalid name") == 0;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string xml = Fuzz::octetsOf(data, size);
    const std::string refusal = Fuzz::refusalOf([&] { eventsOfText<Recorder>(xml); });
    // The converter refuses what the XML parser refuses.
    const std::string conversionRefusal = Fuzz::refusalOf([&] { toFIS(xml, 16, 0); });
    Fuzz::requireEqual(conversionRefusal, refusal, "parser and converter disagree");
    if (!refusal.empty() || isRefusedForLetters(xml))
        return 0;

    roundTrip<Recorder>(xml, 0);
    roundTrip<TextRecorder>(xml, 16);

    const std::string pretty =
        toXML(toFIS(xml, 16, STRIP_WHITESPACE), XML::XMLWriter::WRITE_XML_DECLARATION | XML::XMLWriter::PRETTY_PRINT);
    eventsOfText<Recorder>(pretty);
    return 0;
}
