// SPDX-License-Identifier: MIT
#include "Comparison.h"
#include "Columns.h"
#include "Deflate.h"
#include "ExpatParse.h"
#include "OctetCount.h"
#include "Timing.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/MemoryInputStream.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/SAXParser.h"
#include <cstdio>
#include <sstream>

namespace Vesk::Tool
{

using FastInfoset::Converter;
using FastInfoset::FastInfosetParser;

namespace
{

constexpr int MAX_INDEXED_OCTETS = 16;

/// Takes typed values as such and does nothing with anything, like the handlers that expat is given.
class Listener : public FastInfoset::FISContentHandler
{
public:
    void setDocumentLocator(const XML::Locator*) override {}
    void startDocument() override {}
    void endDocument() override {}
    void startElement(const XML::XMLString&, const XML::XMLString&, const XML::XMLString&,
                      const XML::Attributes&) override
    {
    }
    void endElement(const XML::XMLString&, const XML::XMLString&, const XML::XMLString&) override {}
    void characters(const XML::XMLChar[], int, int) override {}
    void ignorableWhitespace(const XML::XMLChar[], int, int) override {}
    void processingInstruction(const XML::XMLString&, const XML::XMLString&) override {}
    void startPrefixMapping(const XML::XMLString&, const XML::XMLString&) override {}
    void endPrefixMapping(const XML::XMLString&) override {}
    void skippedEntity(const XML::XMLString&) override {}
    void binaryData(const char*, std::size_t) override {}
    void encodedData(short) override {}
    void encodedData(int) override {}
    void encodedData(long) override {}
    void encodedData(bool) override {}
    void encodedData(float) override {}
    void encodedData(double) override {}
    void encodedData(const UUID&) override {}
};

std::string encode(const std::string& xml, int options)
{
    MemoryInputStream in(xml.data(), xml.size());
    std::ostringstream out;
    XML::SAXParser parser;
    XML::InputSource source(in);
    Converter::convertToFIS(parser, source, out, MAX_INDEXED_OCTETS, options);
    return out.str();
}

void parse(const std::string& fis)
{
    Listener listener;
    FastInfosetParser parser;
    parser.setContentHandler(&listener);
    parser.parseMemoryNP(fis.data(), fis.size());
}

std::string milliseconds(double seconds)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.2f ms", 1e3 * seconds);
    return text;
}

std::string row(const char* name, const std::array<std::string, 6>& cells)
{
    static constexpr std::array<std::size_t, 6> COLUMNS = {12, 9, 12, 9, 12, 12};
    std::string line = padded(std::string("  ") + name, 20);
    for (std::size_t i = 0; i < cells.size(); ++i)
        line += rightAligned(cells[i], COLUMNS[i]);
    return line + "\n";
}

} // namespace

Comparison::Comparison(const std::string& xml)
{
    measure(_forms[1], xml, 0); // first, because it tells where a malformed document is wrong
    measure(_forms[2], xml, Converter::TYPED);
    Form& text = _forms[0];
    text.octets = xml.size();
    text.deflatedOctets = deflatedSize(xml);
    text.parseSeconds = fastestSeconds([&xml] { parseWithExpat(xml); });
}

void Comparison::measure(Form& form, const std::string& xml, int options)
{
    const std::string fis = encode(xml, options);
    form.octets = fis.size();
    form.deflatedOctets = deflatedSize(fis);
    form.encodeSeconds = fastestSeconds([&] { encode(xml, options); });
    form.parseSeconds = fastestSeconds([&] { parse(fis); });
}

Comparison& Comparison::operator+=(const Comparison& other)
{
    for (std::size_t i = 0; i < _forms.size(); ++i)
    {
        _forms[i].octets += other._forms[i].octets;
        _forms[i].deflatedOctets += other._forms[i].deflatedOctets;
        _forms[i].encodeSeconds += other._forms[i].encodeSeconds;
        _forms[i].parseSeconds += other._forms[i].parseSeconds;
    }
    return *this;
}

std::string Comparison::text(const std::string& title) const
{
    const std::uint64_t whole = _forms[0].octets;
    std::string text = title + "\n" + row("", {"octets", "", "deflated", "", "encode", "parse"});
    for (const Form& form : _forms)
    {
        text += row(form.name,
                    {grouped(static_cast<long>(form.octets)), percentText(form.octets, whole),
                     grouped(static_cast<long>(form.deflatedOctets)), percentText(form.deflatedOctets, whole),
                     form.encodeSeconds > 0 ? milliseconds(form.encodeSeconds) : "-", milliseconds(form.parseSeconds)});
    }
    return text;
}

} // namespace Vesk::Tool
