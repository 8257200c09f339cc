// SPDX-License-Identifier: MIT
//
// Reads documents from strangers: nothing is opened, and neither the document nor its text may be larger than allowed.
//
//   limits

#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/URIStreamOpener.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/XMLFilterImpl.h"
#include <algorithm>
#include <cstddef>
#include <exception>
#include <iostream>
#include <sstream>
#include <streambuf>
#include <string>

using Vesk::FastInfoset::Converter;
using Vesk::FastInfoset::FastInfosetParser;

namespace
{

// Passes on the first octets of another stream and ends behind them, so that a longer document is cut off.
class LimitedBuffer : public std::streambuf
{
public:
    LimitedBuffer(std::istream& source, std::size_t octetCount)
        : _source(source),
          _left(octetCount)
    {
    }

protected:
    int_type underflow() override
    {
        const std::size_t wanted = std::min(_left, sizeof _block);
        _source.read(_block, static_cast<std::streamsize>(wanted));
        const std::size_t got = static_cast<std::size_t>(_source.gcount());
        _left -= got;
        setg(_block, _block, _block + got);
        return got == 0 ? traits_type::eof() : traits_type::to_int_type(_block[0]);
    }

private:
    std::istream& _source;
    std::size_t _left;
    char _block[4096];
};

// Collects text, but not without limit: a few octets can repeat a long text again and again.
class Collector : public Vesk::XML::XMLFilterImpl
{
public:
    explicit Collector(std::size_t maxOctets)
        : _maxOctets(maxOctets)
    {
    }

    const std::string& text() const { return _text; }

    void characters(const char ch[], int start, int length) override
    {
        if (static_cast<std::size_t>(length) > _maxOctets - _text.size())
            throw Vesk::RangeException("Too much text");
        _text.append(ch + start, static_cast<std::size_t>(length));
    }

private:
    std::size_t _maxOctets;
    std::string _text;
};

std::string readFromStranger(std::istream& stream, std::size_t maxDocumentOctets, std::size_t maxTextOctets)
{
    LimitedBuffer buffer(stream, maxDocumentOctets);
    std::istream limited(&buffer);
    Vesk::XML::InputSource source(limited);
    Collector collector(maxTextOctets);
    FastInfosetParser parser;
    parser.setContentHandler(&collector);
    parser.parse(&source);
    return collector.text();
}

// The text of the document, or why it was refused.
std::string tryToRead(const std::string& document, std::size_t maxDocumentOctets, std::size_t maxTextOctets)
{
    try
    {
        std::istringstream stream(document);
        return readFromStranger(stream, maxDocumentOctets, maxTextOctets);
    }
    catch (const std::exception& exception)
    {
        return std::string("refused: ") + exception.what();
    }
}

void openNothing()
{
    // Once, before the first document: none may have files opened from now on.
    Vesk::URIStreamOpener::defaultOpener().unregisterStreamFactory("file");
}

bool readDocuments()
{
    openNothing();
    std::istringstream xml("<a><b>0123456789</b><b>0123456789</b></a>");
    std::ostringstream fis;
    Converter::convertToFIS(xml, fis, 16, 0);

    const std::string whole = tryToRead(fis.str(), 1000, 1000);
    const std::string large = tryToRead(fis.str(), 10, 1000);
    const std::string bloated = tryToRead(fis.str(), 1000, 15);
    std::cout << whole << '\n' << large << '\n' << bloated << '\n';
    return whole == "01234567890123456789" && large.rfind("refused: ", 0) == 0 &&
           bloated.find("Too much text") != std::string::npos;
}

} // namespace

int main()
{
    return readDocuments() ? 0 : 1;
}
