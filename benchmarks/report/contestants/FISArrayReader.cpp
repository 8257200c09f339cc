// SPDX-License-Identifier: MIT
#include "../ArrayReaders.h"
#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"

namespace Vesk::Benchmarks
{

namespace
{

class Handler final : public FastInfoset::FISContentHandler
{
public:
    const ArrayTally& tally() const { return _tally; }

    void binaryData(const char* data, std::size_t octetCount) override { _tally.addOctets(data, octetCount); }
    void encodedData(int value) override { _tally.add(value); }
    void encodedData(float value) override { _tally.add(value); }
    void encodedData(double value) override { _tally.add(value); }

    void encodedData(short) override { unexpected(); }
    void encodedData(long) override { unexpected(); }
    void encodedData(bool) override { unexpected(); }
    void encodedData(const UUID&) override { unexpected(); }
    void characters(const XML::XMLChar[], int, int) override { unexpected(); }

    void setDocumentLocator(const XML::Locator*) override {}
    void startDocument() override { _tally = ArrayTally(); }
    void endDocument() override {}
    void startElement(const XML::XMLString&, const XML::XMLString&, const XML::XMLString&,
                      const XML::Attributes&) override
    {
    }
    void endElement(const XML::XMLString&, const XML::XMLString&, const XML::XMLString&) override {}
    void ignorableWhitespace(const XML::XMLChar[], int, int) override {}
    void processingInstruction(const XML::XMLString&, const XML::XMLString&) override {}
    void startPrefixMapping(const XML::XMLString&, const XML::XMLString&) override {}
    void endPrefixMapping(const XML::XMLString&) override {}
    void skippedEntity(const XML::XMLString&) override {}

private:
    [[noreturn]] static void unexpected() { throw DataFormatException("Values of another type than were written"); }

    ArrayTally _tally;
};

class FISArrayReader final : public ArrayReader
{
public:
    explicit FISArrayReader(const TypedArray& array)
        : _array(array)
    {
        _parser.setContentHandler(&_handler);
    }

    ArrayTally read() override
    {
        _parser.parseMemoryNP(_array.fis.data(), _array.fis.size());
        return _handler.tally();
    }

private:
    const TypedArray& _array;
    Handler _handler;
    FastInfoset::FastInfosetParser _parser;
};

} // namespace

std::unique_ptr<ArrayReader> makeFISArrayReader(const TypedArray& array)
{
    return std::make_unique<FISArrayReader>(array);
}

} // namespace Vesk::Benchmarks
