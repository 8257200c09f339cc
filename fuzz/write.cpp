// SPDX-License-Identifier: MIT
//
// The octets are a program of events, in any order, for a writer. If the events are in order and the writer throws
// nothing, the document has to parse and to mean what was written; whatever else is written must do no harm.
#include "EventText.h"
#include "Fuzz.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/XML/AttributesImpl.h"
#include <cstring>
#include <sstream>

using namespace Vesk;
using namespace Vesk::FastInfoset;

namespace
{

/// Takes choices and values from the octets of an input; zeros when there are no more.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size)
        : _next(data),
          _end(data + size)
    {
    }

    bool isEmpty() const { return _next == _end; }

    unsigned int octet() { return isEmpty() ? 0 : *_next++; }

    template <typename Value>
    Value value()
    {
        unsigned char octets[sizeof(Value)];
        for (unsigned char& each : octets)
            each = static_cast<unsigned char>(octet());
        Value result;
        std::memcpy(&result, octets, sizeof result);
        return result;
    }

    /// One of a few common texts, or any octets. Common ones make events that belong together.
    std::string text()
    {
        static const char* const COMMON[] = {"",
                                             "a",
                                             "b",
                                             "p",
                                             "q",
                                             "xml",
                                             "p:a",
                                             "q:b",
                                             "xmlns",
                                             "xmlns:p",
                                             "urn:p",
                                             "urn:q",
                                             "a text",
                                             "1 2 3",
                                             "2.5",
                                             "xmlns:q",
                                             "text that is not indexed",
                                             ":a",
                                             "xmlns:xml",
                                             "http://www.w3.org/XML/1998/namespace"};
        const unsigned int choice = octet();
        if (choice < 0xC0)
            return COMMON[choice % (sizeof COMMON / sizeof *COMMON)];
        std::string result;
        for (unsigned int left = choice & 0x3F; left > 0 && !isEmpty(); --left)
            result += static_cast<char>(octet());
        return result;
    }

private:
    const std::uint8_t* _next;
    const std::uint8_t* _end;
};

/// Knows which events a well-formed document can have where.
class Order
{
public:
    void declaration() { _isGood = _isGood && !_started; }
    void startDocument()
    {
        _isGood = _isGood && !_started;
        _started = true;
    }
    void endDocument()
    {
        _isGood = _isGood && isWithin() && _depth == 0 && !_inDTD && !_inCDATA;
        _ended = true;
    }
    void startDTD()
    {
        _isGood = _isGood && isWithin() && !_content && !_inDTD;
        _inDTD = true;
    }
    void endDTD()
    {
        _isGood = _isGood && _inDTD;
        _inDTD = false;
    }
    void startElement()
    {
        content();
        _isGood = _isGood && !_inCDATA;
        ++_depth;
    }
    void endElement()
    {
        _isGood = _isGood && isWithin() && !_inCDATA && _depth > 0;
        --_depth;
    }
    void startCDATA()
    {
        content();
        _isGood = _isGood && !_inCDATA;
        _inCDATA = true;
    }
    void endCDATA()
    {
        _isGood = _isGood && _inCDATA;
        _inCDATA = false;
    }
    void content()
    {
        _isGood = _isGood && isWithin() && !_inDTD;
        _content = true;
    }
    void comment() { _isGood = _isGood && isWithin() && !_inDTD && !_inCDATA; }
    void processingInstruction() { _isGood = _isGood && isWithin() && !_inCDATA; }

    bool isWithin() const { return _started && !_ended; }
    bool isWhole() const { return _isGood && _ended; }

    int depth() const { return _depth; }
    bool inDTD() const { return _inDTD; }
    bool inCDATA() const { return _inCDATA; }

private:
    bool _isGood = true;
    bool _started = false;
    bool _ended = false;
    bool _content = false;
    bool _inDTD = false;
    bool _inCDATA = false;
    int _depth = 0;
};

/// Sends the events of a program to a handler: a writer, or one that writes down what they mean.
template <class Handler>
class Program
{
public:
    Program(Input input, Handler& handler)
        : _input(input),
          _handler(handler)
    {
    }

    /// isTidy: in order whatever the octets say, with all that is open ended.
    /// Returns whether the events were in order and made a whole document.
    bool run(bool isTidy)
    {
        _isTidy = isTidy;
        if (isTidy)
        {
            for (unsigned int count = _input.octet() % 4; count > 0; --count)
                declaration();
            startDocument();
        }
        while (!_input.isEmpty())
            event();
        if (isTidy)
            endAll();
        return _order.isWhole();
    }

private:
    void event()
    {
        switch (_input.octet() % 24)
        {
        case 0:
        case 1:
        case 2:
            return startElement();
        case 3:
        case 4:
            return endElement();
        case 5:
        case 6:
            return characters();
        case 7:
            return comment();
        case 8:
            return processingInstruction();
        case 9:
            return _handler.startPrefixMapping(_input.text(), _input.text());
        case 10:
            return _handler.endPrefixMapping(_input.text());
        case 11:
            return cdata();
        case 12:
            return dtd();
        case 13:
            return declaration();
        case 14:
            return startDocument();
        case 15:
            return endDocument();
        case 16:
            return typed([this](const std::string& octets) { _handler.binaryData(octets.data(), octets.size()); },
                         _input.text());
        case 17:
            return typedValue<short>();
        case 18:
            return typedValue<int>();
        case 19:
            return typedValue<long>();
        case 20:
            return typed([this](bool value) { _handler.encodedData(value); }, _input.octet() % 2 != 0);
        case 21:
            return typedValue<float>();
        case 22:
            return typedValue<double>();
        default:
            return typed([this](const UUID& value) { _handler.encodedData(value); },
                         UUID(_input.value<UUID::Octets>()));
        }
    }

    bool skips(bool isOutOfOrder) const { return _isTidy && isOutOfOrder; }

    void startDocument()
    {
        if (skips(_order.isWithin()))
            return;
        _order.startDocument();
        _handler.startDocument();
    }
    void endDocument()
    {
        if (skips(true))
            return;
        _order.endDocument();
        _handler.endDocument();
    }
    void startElement()
    {
        const std::string uri = _input.text();
        const std::string localName = _input.text();
        const std::string qname = _input.text();
        XML::AttributesImpl attributes;
        for (unsigned int count = _input.octet() % 4; count > 0; --count)
        {
            const std::string attributeURI = _input.text();
            const std::string attributeName = _input.text();
            const std::string attributeQName = _input.text();
            attributes.addAttribute(attributeURI, attributeName, attributeQName, "CDATA", _input.text());
        }
        if (skips(_order.inDTD() || _order.inCDATA()))
            return;
        _order.startElement();
        _handler.startElement(uri, localName, qname, attributes);
    }
    void endElement()
    {
        if (skips(_order.inCDATA() || _order.depth() == 0))
            return;
        _order.endElement();
        _handler.endElement(std::string(), std::string(), std::string());
    }
    void characters()
    {
        const std::string text = _input.text();
        if (skips(_order.inDTD()))
            return;
        _order.content();
        _handler.characters(text.data(), 0, static_cast<int>(text.size()));
    }
    void comment()
    {
        const std::string text = _input.text();
        if (skips(_order.inDTD() || _order.inCDATA()))
            return;
        _order.comment();
        _handler.comment(text.data(), 0, static_cast<int>(text.size()));
    }
    void processingInstruction()
    {
        const std::string target = _input.text();
        const std::string data = _input.text();
        if (skips(_order.inCDATA()))
            return;
        _order.processingInstruction();
        _handler.processingInstruction(target, data);
    }
    void cdata()
    {
        if (_order.inCDATA())
        {
            _order.endCDATA();
            return _handler.endCDATA();
        }
        if (skips(_order.inDTD()))
            return;
        _order.startCDATA();
        _handler.startCDATA();
    }
    void dtd()
    {
        if (_order.inDTD())
        {
            _order.endDTD();
            return _handler.endDTD();
        }
        const std::string publicId = _input.text();
        const std::string systemId = _input.text();
        if (skips(_order.inCDATA() || _order.depth() > 0))
            return;
        _order.startDTD();
        _handler.startDTD("a", publicId, systemId);
    }
    void declaration()
    {
        const std::string name = _input.text();
        const std::string publicId = _input.text();
        const std::string systemId = _input.text();
        const unsigned int kind = _input.octet();
        if (skips(_order.isWithin()))
            return;
        _order.declaration();
        const std::string* const optionalId = (kind & 1) != 0 ? &publicId : nullptr;
        if ((kind & 2) != 0)
            _handler.unparsedEntityDecl(name, optionalId, systemId, "a");
        else
            _handler.notationDecl(name, optionalId, &systemId);
    }

    template <typename Deliver, typename Value>
    void typed(Deliver deliver, const Value& value)
    {
        if (skips(_order.inDTD()))
            return;
        _order.content();
        deliver(value);
    }
    template <typename Value>
    void typedValue()
    {
        typed([this](Value value) { _handler.encodedData(value); }, _input.value<Value>());
    }

    void endAll()
    {
        if (_order.inDTD())
            dtd();
        if (_order.inCDATA())
            cdata();
        while (_order.depth() > 0)
            endElement();
        _order.endDocument();
        _handler.endDocument();
    }

    Input _input;
    Handler& _handler;
    Order _order;
    bool _isTidy = false;
};

DocumentVocabulary vocabularyOf(DocumentVocabulary::VocabularyImpl tables)
{
    DocumentVocabulary vocabulary(tables);
    bool found = false;
    vocabulary.vocabulary(DocumentVocabulary::LOCAL_NAME).index("a", found);
    vocabulary.vocabulary(DocumentVocabulary::PREFIX).index("p", found);
    vocabulary.vocabulary(DocumentVocabulary::OTHER_URI).index("urn:p", found);
    vocabulary.restrictedAlphabets().add("0123");
    return vocabulary;
}

void expectMeaning(const std::string& document, const std::string& meaning)
{
    for (const auto tables : {DocumentVocabulary::VOC_VECTOR, DocumentVocabulary::VOC_MAP})
    {
        FastInfosetParser parser(tables);
        Fuzz::Meaning read;
        read.attachTo(parser);
        parser.parseMemoryNP(document.data(), document.size());
        Fuzz::requireEqual(read.text(), meaning, "the document does not mean what was written");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const unsigned int options = input.octet();
    const auto tables = (options & 1) != 0 ? DocumentVocabulary::VOC_HASH : DocumentVocabulary::VOC_MAP;
    const bool writesXMLDeclaration = (options & 2) != 0;
    const bool isTidy = (options & 8) == 0;

    bool isWhole = false;
    std::ostringstream stream;
    const std::string refusal = Fuzz::refusalOf(
        [&]
        {
            FastInfosetWriter writer(stream, writesXMLDeclaration, tables);
            if ((options & 4) != 0)
                writer.setDocumentVocabulary(vocabularyOf(tables));
            isWhole = Program<FastInfosetWriter>(input, writer).run(isTidy);
        });

    if (refusal.empty() && isWhole)
    {
        Fuzz::Meaning meaning;
        Program<Fuzz::Meaning>(input, meaning).run(isTidy);
        expectMeaning(stream.str(), meaning.text());
        return 0;
    }
    const std::string document = stream.str();
    FastInfosetParser parser;
    Fuzz::Meaning meaning;
    meaning.attachTo(parser);
    Fuzz::refusalOf([&] { parser.parseMemoryNP(document.data(), document.size()); });
    return 0;
}
