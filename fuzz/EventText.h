// SPDX-License-Identifier: MIT
#ifndef VESK_FUZZ_EVENTTEXT_H
#define VESK_FUZZ_EVENTTEXT_H

#include "Vesk/FastInfoset/FISArrayHandler.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FISDocumentHandler.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/NumberFormatter.h"
#include "Vesk/UUID.h"
#include "Vesk/XML/Attributes.h"
#include "Vesk/XML/DTDHandler.h"
#include "Vesk/XML/LexicalHandler.h"
#include "Vesk/XML/Name.h"
#include <cstring>
#include <string>

namespace Fuzz
{

/// Writes down every event as it comes, one a line. Handler is ContentHandler or FISContentHandler.
template <class Handler>
class BasicEventText : public Handler, public Vesk::XML::LexicalHandler, public Vesk::XML::DTDHandler
{
public:
    const std::string& events() const { return _events; }

    void attachTo(Vesk::XML::XMLReader& reader)
    {
        reader.setContentHandler(this);
        reader.setDTDHandler(this);
        reader.setProperty(Vesk::XML::XMLReader::PROPERTY_LEXICAL_HANDLER,
                           static_cast<Vesk::XML::LexicalHandler*>(this));
    }

    void setDocumentLocator(const Vesk::XML::Locator*) override {}
    void startDocument() override { add("start document"); }
    void endDocument() override { add("end document"); }
    void startElement(const std::string& uri, const std::string& localName, const std::string& qname,
                      const Vesk::XML::Attributes& attributes) override
    {
        add("<" + name(uri, localName, qname));
        for (int i = 0; i < attributes.getLength(); ++i)
        {
            add("@" + name(attributes.getURI(i), attributes.getLocalName(i), attributes.getQName(i)) + "=" +
                attributes.getValue(i));
        }
    }
    void endElement(const std::string& uri, const std::string& localName, const std::string& qname) override
    {
        add(">" + name(uri, localName, qname));
    }
    void characters(const char ch[], int start, int length) override
    {
        add("\"" + std::string(ch + start, static_cast<std::size_t>(length)));
    }
    void ignorableWhitespace(const char[], int, int) override { add("white space"); }
    void processingInstruction(const std::string& target, const std::string& data) override
    {
        add("?" + target + " " + data);
    }
    void startPrefixMapping(const std::string& prefix, const std::string& uri) override
    {
        add("map " + prefix + "=" + uri);
    }
    void endPrefixMapping(const std::string& prefix) override { add("unmap " + prefix); }
    void skippedEntity(const std::string& entity) override { add("skipped " + entity); }

    void startDTD(const std::string&, const std::string& publicId, const std::string& systemId) override
    {
        add("start DTD [" + publicId + "] [" + systemId + "]");
    }
    void endDTD() override { add("end DTD"); }
    void startEntity(const std::string&) override {}
    void endEntity(const std::string&) override {}
    void startCDATA() override { add("start CDATA"); }
    void endCDATA() override { add("end CDATA"); }
    void comment(const char ch[], int start, int length) override
    {
        add("#" + std::string(ch + start, static_cast<std::size_t>(length)));
    }

    void notationDecl(const std::string& notation, const std::string* publicId, const std::string* systemId) override
    {
        add("notation " + notation + identifier(publicId) + identifier(systemId));
    }
    void unparsedEntityDecl(const std::string& entity, const std::string* publicId, const std::string& systemId,
                            const std::string& notationName) override
    {
        add("entity " + entity + identifier(publicId) + identifier(&systemId) + " " + notationName);
    }

protected:
    void add(const std::string& line) { _events += line + "\n"; }

    // An absent identifier is written as an empty one.
    static std::string identifier(const std::string* id) { return " [" + (id ? *id : std::string()) + "]"; }

    virtual std::string name(const std::string& uri, const std::string& localName, const std::string& qname) const
    {
        return "{" + uri + "}" + localName + "(" + qname + ")";
    }

private:
    std::string _events;
};

using PlainEventText = BasicEventText<Vesk::XML::ContentHandler>;

/// The same for typed values, one a line.
class TypedEventText : public BasicEventText<Vesk::FastInfoset::FISContentHandler>
{
public:
    void binaryData(const char* data, std::size_t octetCount) override
    {
        add("binary " + std::string(data, octetCount));
    }
    void encodedData(short value) override { add("short " + Vesk::NumberFormatter::format(static_cast<int>(value))); }
    void encodedData(int value) override { add("int " + Vesk::NumberFormatter::format(value)); }
    void encodedData(long value) override { add("long " + Vesk::NumberFormatter::format(value)); }
    void encodedData(bool value) override { add("bool " + Vesk::NumberFormatter::format(value)); }
    void encodedData(float value) override { add("float " + bits(value)); }
    void encodedData(double value) override { add("double " + bits(value)); }
    void encodedData(const Vesk::UUID& value) override { add("UUID " + value.toString()); }

private:
    // Every bit counts, those of NaN and the sign of zero among them.
    template <typename Value>
    static std::string bits(Value value)
    {
        return std::string(reinterpret_cast<const char*>(&value), sizeof value);
    }
};

/// The same, with numbers taken in arrays.
class ArrayEventText : public TypedEventText, public Vesk::FastInfoset::FISArrayHandler
{
public:
    void encodedArray(const short* values, std::size_t count) override { addAll(values, count); }
    void encodedArray(const int* values, std::size_t count) override { addAll(values, count); }
    void encodedArray(const long* values, std::size_t count) override { addAll(values, count); }
    void encodedArray(const float* values, std::size_t count) override { addAll(values, count); }
    void encodedArray(const double* values, std::size_t count) override { addAll(values, count); }

private:
    template <typename Value>
    void addAll(const Value* values, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            encodedData(values[i]);
    }
};

/// What a document means, whatever way it was taken: two documents that mean the same have the same text.
///
/// Joined are adjacent texts and adjacent binary data. Left out are CDATA marks, prefix mappings and namespace
/// declarations, qualified names, and what comes behind a zero character in text, which no writer takes. Notations stand
/// in front, then unparsed entities.
class Meaning : public TypedEventText
{
public:
    std::string text()
    {
        settle();
        return _notations + _entities + events();
    }

    /// True if something came that no XML document has: a document type declaration behind content, an empty name. The
    /// writer makes of it what it can.
    bool isOdd() const { return _isOdd; }

    void startElement(const std::string& uri, const std::string& localName, const std::string& qname,
                      const Vesk::XML::Attributes& attributes) override
    {
        settle();
        _content = true;
        _isOdd = _isOdd || (localName.empty() && (qname.empty() || !uri.empty()));
        add("<" + name(uri, localName.empty() ? qname : localName, qname));
        for (int i = 0; i < attributes.getLength(); ++i)
            addAttribute(attributes, i);
    }
    void endElement(const std::string&, const std::string&, const std::string&) override
    {
        settle();
        add(">");
    }
    void characters(const char ch[], int start, int length) override
    {
        const char* const begin = ch + start;
        const void* const zero = std::memchr(begin, 0, static_cast<std::size_t>(length));
        const char* const end = zero ? static_cast<const char*>(zero) : begin + length;
        if (begin == end)
            return; // of which nothing is written
        settleBinary();
        _text.append(begin, end);
        _content = true;
    }
    void ignorableWhitespace(const char ch[], int start, int length) override { characters(ch, start, length); }
    void binaryData(const char* data, std::size_t octetCount) override
    {
        settleText();
        _binary.append(data, octetCount);
        _content = true;
    }
    void encodedData(short value) override { typed(value); }
    void encodedData(int value) override { typed(value); }
    void encodedData(long value) override { typed(value); }
    void encodedData(bool value) override { typed(value); }
    void encodedData(float value) override { typed(value); }
    void encodedData(double value) override { typed(value); }
    void encodedData(const Vesk::UUID& value) override { typed(value); }

    void endDocument() override
    {
        settle();
        TypedEventText::endDocument();
    }
    void processingInstruction(const std::string& target, const std::string& data) override
    {
        settle();
        TypedEventText::processingInstruction(target, data);
    }
    void startPrefixMapping(const std::string&, const std::string&) override {}
    void endPrefixMapping(const std::string&) override {}
    void skippedEntity(const std::string&) override {}

    void startDTD(const std::string& dtdName, const std::string& publicId, const std::string& systemId) override
    {
        settle();
        _isOdd = _isOdd || _content;
        TypedEventText::startDTD(dtdName, publicId, systemId);
    }
    void notationDecl(const std::string& notation, const std::string* publicId, const std::string* systemId) override
    {
        _notations += notation + identifier(publicId) + identifier(systemId) + "\n";
    }
    void unparsedEntityDecl(const std::string& entity, const std::string* publicId, const std::string& systemId,
                            const std::string& notationName) override
    {
        _entities += entity + identifier(publicId) + identifier(&systemId) + " " + notationName + "\n";
    }
    void startCDATA() override {}
    void endCDATA() override {}
    void comment(const char ch[], int start, int length) override
    {
        settle();
        TypedEventText::comment(ch, start, length);
    }

protected:
    std::string name(const std::string& uri, const std::string& localName, const std::string&) const override
    {
        return "{" + uri + "}" + localName;
    }

private:
    void addAttribute(const Vesk::XML::Attributes& attributes, int i)
    {
        const std::string& qname = attributes.getQName(i);
        if (qname == "xmlns" || qname.compare(0, 6, "xmlns:") == 0)
            return;
        std::string prefix;
        std::string localName = attributes.getLocalName(i);
        if (localName.empty())
            Vesk::XML::Name::split(qname, prefix, localName);
        _isOdd = _isOdd || localName.empty();
        add("@" + name(attributes.getURI(i), localName, qname) + "=" + attributes.getValue(i));
    }

    template <typename Value>
    void typed(const Value& value)
    {
        settle();
        _content = true;
        TypedEventText::encodedData(value);
    }

    void settle()
    {
        settleText();
        settleBinary();
    }
    void settleText()
    {
        if (!_text.empty())
            add("\"" + _text);
        _text.clear();
    }
    void settleBinary()
    {
        if (!_binary.empty())
            add("binary " + _binary);
        _binary.clear();
    }

    std::string _notations;
    std::string _entities;
    std::string _text;
    std::string _binary;
    bool _content = false;
    bool _isOdd = false;
};

} // namespace Fuzz

#endif // VESK_FUZZ_EVENTTEXT_H
