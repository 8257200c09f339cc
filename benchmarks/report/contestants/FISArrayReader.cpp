// SPDX-License-Identifier: MIT
#include "../ArrayReaders.h"
#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/FISArrayHandler.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"

namespace Vesk::Benchmarks
{

namespace
{

class Handler : public FastInfoset::FISContentHandler
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

protected:
    [[noreturn]] static void unexpected() { throw DataFormatException("Values of another type than were written"); }

    ArrayTally _tally;
};

class BlockHandler final : public Handler, public FastInfoset::FISArrayHandler
{
public:
    void encodedArray(const int* values, std::size_t count) override { add(values, count); }
    void encodedArray(const float* values, std::size_t count) override { add(values, count); }
    void encodedArray(const double* values, std::size_t count) override { add(values, count); }

    void encodedArray(const short*, std::size_t) override { unexpected(); }
    void encodedArray(const long*, std::size_t) override { unexpected(); }

private:
    template <class Value>
    void add(const Value* values, std::size_t count)
    {
        ArrayTally tally = _tally; // not where the values might lie, for all that the compiler knows
        for (std::size_t i = 0; i < count; ++i)
            tally.add(values[i]);
        _tally = tally;
    }
};

template <class Handler>
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
    return std::make_unique<FISArrayReader<Handler>>(array);
}

std::unique_ptr<ArrayReader> makeFISBlockReader(const TypedArray& array)
{
    return std::make_unique<FISArrayReader<BlockHandler>>(array);
}

} // namespace Vesk::Benchmarks
