// SPDX-License-Identifier: MIT
#ifndef VESK_TESTS_ENCODINGTESTSUPPORT_H
#define VESK_TESTS_ENCODINGTESTSUPPORT_H

#include "Octets.h"
#include "Vesk/FastInfoset/BitStreamReader.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/Encoding.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/NumberFormatter.h"
#include <gtest/gtest.h>
#include <sstream>
#include <string>

// Values are written and read from bit 4 of an octet, where an encoded character string has them in a document.

namespace Vesk::FastInfoset
{

inline std::string written(const Encoding& encoding)
{
    std::ostringstream stream;
    BitStreamWriter writer(stream, false);
    writer.writeBits(4, false);
    encoding.write(writer);
    EXPECT_EQ(writer.bitOffset(), 0);
    return stream.str();
}

inline std::string encoded(Encoding::EncodeMethod encode, const std::string& text)
{
    std::ostringstream stream;
    BitStreamWriter writer(stream, false);
    writer.writeBits(4, false);
    encode(writer, text);
    return stream.str();
}

/// A reader at bit 4 of a copy of octets.
class ValueReader
{
public:
    explicit ValueReader(const std::string& octets)
        : _block(octets),
          _reader(_block.data(), _block.size())
    {
        _reader.skip(4);
    }

    operator BitStreamReader&() { return _reader; }
    BitStreamReader* operator->() { return &_reader; }

private:
    ExactBlock _block;
    BitStreamReader _reader;
};

inline AutoPtr<Encoding> decoded(Encoding::DecodeMethod decode, const std::string& octets)
{
    ValueReader reader(octets);
    AutoPtr<Encoding> encoding = decode(reader);
    EXPECT_EQ(reader->bitOffset(), 0);
    EXPECT_EQ(reader->octetPosition(), octets.size());
    return encoding;
}

inline std::string textOf(const Encoding& encoding)
{
    std::string text;
    encoding.text(text);
    return text;
}

/// Records what a value delivers, one line a call: "int 5", "binary 0A FF", "characters true".
class ContentRecorder : public FISContentHandler
{
public:
    const std::string& events() const { return _events; }

    void characters(const XML::XMLChar ch[], int start, int length) override
    {
        record("characters", std::string(ch + start, static_cast<std::size_t>(length)));
    }
    void binaryData(const char* data, std::size_t octetCount) override
    {
        record("binary", hexOf(std::string(data, octetCount)));
    }
    void encodedData(short value) override { record("short", NumberFormatter::format(static_cast<int>(value))); }
    void encodedData(int value) override { record("int", NumberFormatter::format(value)); }
    void encodedData(long value) override { record("long", NumberFormatter::format(value)); }
    void encodedData(bool value) override { record("bool", NumberFormatter::format(value)); }
    void encodedData(float value) override { record("float", NumberFormatter::format(value)); }
    void encodedData(double value) override { record("double", NumberFormatter::format(value)); }
    void encodedData(const UUID& value) override { record("UUID", value.toString()); }

    void setDocumentLocator(const XML::Locator*) override {}
    void startDocument() override {}
    void endDocument() override {}
    void startElement(const XML::XMLString&, const XML::XMLString&, const XML::XMLString&,
                      const XML::Attributes&) override
    {
    }
    void endElement(const XML::XMLString&, const XML::XMLString&, const XML::XMLString&) override {}
    void ignorableWhitespace(const XML::XMLChar*, int, int) override {}
    void processingInstruction(const XML::XMLString&, const XML::XMLString&) override {}
    void startPrefixMapping(const XML::XMLString&, const XML::XMLString&) override {}
    void endPrefixMapping(const XML::XMLString&) override {}
    void skippedEntity(const XML::XMLString&) override {}

private:
    void record(const std::string& kind, const std::string& value) { _events += kind + ' ' + value + '\n'; }

    std::string _events;
};

/// What a typed handler receives.
inline std::string typedEvents(const Encoding& encoding)
{
    ContentRecorder recorder;
    encoding.handle(static_cast<FISContentHandler*>(&recorder));
    return recorder.events();
}

/// What a plain handler receives.
inline std::string textEvents(const Encoding& encoding)
{
    ContentRecorder recorder;
    encoding.handle(static_cast<XML::ContentHandler*>(&recorder));
    return recorder.events();
}

} // namespace Vesk::FastInfoset

#endif // VESK_TESTS_ENCODINGTESTSUPPORT_H
