// SPDX-License-Identifier: MIT
#include "../Contestants.h"
#include "../ExpatTally.h"
#include "../TextHandler.h"
#include "Vesk/XML/Attributes.h"
#include <array>
#include <cstddef>
#include <string>

namespace Vesk::Benchmarks
{

namespace
{

/// For each octet what stands for it in text; null where it stands for itself.
class Escapes
{
public:
    explicit Escapes(bool inAttributes)
    {
        _escapes['&'] = "&amp;";
        _escapes['<'] = "&lt;";
        _escapes['>'] = "&gt;";
        _escapes['\r'] = "&#13;";
        if (inAttributes)
        {
            _escapes['"'] = "&quot;";
            _escapes['\t'] = "&#9;";
            _escapes['\n'] = "&#10;";
        }
    }

    void append(const char* text, std::size_t octetCount, std::string& out) const
    {
        const char* const end = text + octetCount;
        for (const char* run = text;; run = text)
        {
            while (text != end && _escapes[static_cast<unsigned char>(*text)] == nullptr)
                ++text;
            out.append(run, text);
            if (text == end)
                return;
            out += _escapes[static_cast<unsigned char>(*text++)];
        }
    }
    void append(const std::string& text, std::string& out) const { append(text.data(), text.size(), out); }

private:
    std::array<const char*, 256> _escapes{};
};

class Handler final : public TextHandler
{
public:
    const std::string& text() const { return _text; }

    void startDocument() override { _text.clear(); }

    void startElement(const XML::XMLString&, const XML::XMLString&, const XML::XMLString& qname,
                      const XML::Attributes& attributes) override
    {
        _text += '<';
        _text += qname;
        for (const Declaration& declaration : declarations())
            writeAttribute(declaration.attributeName(), *declaration.uri);
        declarations().clear();
        const int count = attributes.getLength();
        for (int i = 0; i < count; ++i)
            writeAttribute(attributes.getQName(i), attributes.getValue(i));
        _text += '>';
    }
    void endElement(const XML::XMLString&, const XML::XMLString&, const XML::XMLString& qname) override
    {
        _text += "</";
        _text += qname;
        _text += '>';
    }

    void characters(const XML::XMLChar ch[], int start, int length) override
    {
        _inText.append(ch + start, static_cast<std::size_t>(length), _text);
    }
    void processingInstruction(const XML::XMLString& target, const XML::XMLString& data) override
    {
        _text += "<?";
        _text += target;
        _text += ' ';
        _text += data;
        _text += "?>";
    }

private:
    void writeAttribute(const std::string& name, const std::string& value)
    {
        _text += ' ';
        _text += name;
        _text += "=\"";
        _inAttributes.append(value, _text);
        _text += '"';
    }

    const Escapes _inText{false};
    const Escapes _inAttributes{true};
    std::string _text;
};

class Escaper final : public Contestant
{
public:
    using Contestant::Contestant;

private:
    void process(std::size_t document) override
    {
        workload().textEvents(document).replay(_handler, EventStore::PREPARED);
    }
    Tally documentTally() override { return ExpatTally().parse(_handler.text()); }

    Handler _handler;
};

} // namespace

ContestantPtr makeEscaper(Workload& workload)
{
    return std::make_unique<Escaper>(workload);
}

} // namespace Vesk::Benchmarks
