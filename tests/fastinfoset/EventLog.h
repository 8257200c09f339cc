// SPDX-License-Identifier: MIT
#ifndef VESK_TESTS_EVENTLOG_H
#define VESK_TESTS_EVENTLOG_H

#include "Octets.h"
#include "TestStreams.h"
#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FISDocumentHandler.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/NumberFormatter.h"
#include "Vesk/XML/Attributes.h"
#include "Vesk/XML/DTDHandler.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/LexicalHandler.h"
#include <gtest/gtest.h>
#include <string>

namespace Vesk::FastInfoset
{

/// Logs every call that a parser makes, exactly as it is made, in one line:
///
///     declaration=no vocabulary start +p=u <{u}a(p:a) {u}b="v"> "text" ?target data? #comment# </{u}a(p:a)> -p end
///
/// Handler is ContentHandler or FISContentHandler; the latter logs typed values as "int=1".
template <class Handler>
class BasicEventLog : public Handler, public XML::LexicalHandler, public XML::DTDHandler, public FISDocumentHandler
{
public:
    void add(const std::string& event)
    {
        if (!_events.empty())
            _events += ' ';
        _events += event;
        afterEvent();
    }

    const XML::Locator* locator() const { return _locator; }

    const std::string& events() const { return _events; }

    /// Makes the parser report everything here.
    void attachTo(FastInfosetParser& parser)
    {
        parser.setContentHandler(this);
        parser.setDTDHandler(this);
        parser.setDocumentHandler(this);
        parser.setProperty(XML::XMLReader::PROPERTY_LEXICAL_HANDLER, static_cast<XML::LexicalHandler*>(this));
    }

    void setDocumentLocator(const XML::Locator* locator) override { _locator = locator; }
    void startDocument() override { add("start"); }
    void endDocument() override { add("end"); }
    void startElement(const std::string& uri, const std::string& localName, const std::string& qname,
                      const XML::Attributes& attributes) override
    {
        std::string event = "<" + name(uri, localName, qname);
        for (int i = 0; i < attributes.getLength(); ++i)
        {
            event += " " + name(attributes.getURI(i), attributes.getLocalName(i), attributes.getQName(i)) +
                     attributes.getType(i) + "=\"" + attributes.getValue(i) + "\"";
        }
        add(event + ">");
    }
    void endElement(const std::string& uri, const std::string& localName, const std::string& qname) override
    {
        add("</" + name(uri, localName, qname) + ">");
    }
    void characters(const char ch[], int start, int length) override
    {
        EXPECT_EQ(ch[start + length], '\0') << "other handlers look for the end";
        add("\"" + std::string(ch + start, static_cast<std::size_t>(length)) + "\"");
    }
    void ignorableWhitespace(const char[], int, int) override { add("whitespace"); }
    void processingInstruction(const std::string& target, const std::string& data) override
    {
        add("?" + target + " " + data + "?");
    }
    void startPrefixMapping(const std::string& prefix, const std::string& uri) override
    {
        add("+" + prefix + "=" + uri);
    }
    void endPrefixMapping(const std::string& prefix) override { add("-" + prefix); }
    void skippedEntity(const std::string&) override { add("skipped"); }

    void startDTD(const std::string& dtdName, const std::string& publicId, const std::string& systemId) override
    {
        add("dtd(" + dtdName + "," + publicId + "," + systemId);
    }
    void endDTD() override { add("dtd)"); }
    void startEntity(const std::string&) override { add("entity("); }
    void endEntity(const std::string&) override { add("entity)"); }
    void startCDATA() override { add("cdata("); }
    void endCDATA() override { add("cdata)"); }
    void comment(const char ch[], int start, int length) override
    {
        add("#" + std::string(ch + start, static_cast<std::size_t>(length)) + "#");
    }

    void notationDecl(const std::string& notation, const std::string* publicId, const std::string* systemId) override
    {
        add("notation(" + notation + "," + optional(publicId) + "," + optional(systemId) + ")");
    }
    void unparsedEntityDecl(const std::string& entity, const std::string* publicId, const std::string& systemId,
                            const std::string& notationName) override
    {
        add("unparsed(" + entity + "," + optional(publicId) + "," + systemId + "," + notationName + ")");
    }

    void setWriteXMLDeclaration(bool write) override { add(write ? "declaration=yes" : "declaration=no"); }
    void setExternalVocabulary(const std::string& uri, const DocumentVocabulary&) override { add("external=" + uri); }
    void setDocumentVocabulary(const DocumentVocabulary& vocabulary) override
    {
        _vocabulary = vocabulary;
        add("vocabulary");
    }
    /// What the last document began with.
    DocumentVocabulary& getDocumentVocabulary() override { return _vocabulary; }
    const DocumentVocabulary& getDocumentVocabulary() const override { return _vocabulary; }

protected:
    /// For tests that do more than listen.
    virtual void afterEvent() {}

private:
    static std::string name(const std::string& uri, const std::string& localName, const std::string& qname)
    {
        return (uri.empty() ? "" : "{" + uri + "}") + localName + (qname.empty() ? "" : "(" + qname + ")");
    }
    static std::string optional(const std::string* id) { return id ? *id : "null"; }

    std::string _events;
    const XML::Locator* _locator = nullptr;
    DocumentVocabulary _vocabulary{DocumentVocabulary::VOC_VECTOR};
};

using EventLog = BasicEventLog<XML::ContentHandler>;

class TypedEventLog : public BasicEventLog<FISContentHandler>
{
public:
    void binaryData(const char* data, std::size_t octetCount) override
    {
        add("binary=" + hexOf(std::string(data, octetCount)));
    }
    void encodedData(short value) override { add("short=" + NumberFormatter::format(static_cast<int>(value))); }
    void encodedData(int value) override { add("int=" + NumberFormatter::format(value)); }
    void encodedData(long value) override { add("long=" + NumberFormatter::format(value)); }
    void encodedData(bool value) override { add("bool=" + NumberFormatter::format(value)); }
    void encodedData(float value) override { add("float=" + NumberFormatter::format(value)); }
    void encodedData(double value) override { add("double=" + NumberFormatter::format(value)); }
    void encodedData(const UUID& value) override { add("uuid=" + value.toString()); }
};

/// Runs something that may throw and returns what it threw: "!FISException(message)", or nothing.
template <typename Action>
std::string failureOf(Action action)
{
    try
    {
        action();
        return std::string();
    }
    catch (const Exception& exception)
    {
        return std::string("!") + exception.className() + "(" + exception.message() + ")";
    }
    catch (const std::exception& exception)
    {
        return std::string("!std(") + exception.what() + ")";
    }
}

/// From exactly the octets in memory if the block size is 0, else from a stream that delivers such blocks.
inline void parseOctets(FastInfosetParser& parser, const std::string& octets, std::size_t blockSize)
{
    if (blockSize == 0)
    {
        const ExactBlock block(octets);
        parser.parseMemoryNP(block.data(), block.size());
        return;
    }
    BlockInputStream stream(octets, blockSize);
    XML::InputSource source(stream);
    parser.parse(&source);
}

/// The events of a document and how it ended, if not well.
template <class Log = EventLog>
std::string eventsOf(FastInfosetParser& parser, const std::string& octets, std::size_t blockSize = 0)
{
    Log log;
    log.attachTo(parser);
    const std::string failure = failureOf([&] { parseOctets(parser, octets, blockSize); });
    if (!failure.empty())
        log.add(failure);
    return log.events();
}

template <class Log = EventLog>
std::string eventsOf(const std::string& octets,
                     DocumentVocabulary::VocabularyImpl impl = DocumentVocabulary::VOC_VECTOR,
                     std::size_t blockSize = 0)
{
    FastInfosetParser parser(impl);
    return eventsOf<Log>(parser, octets, blockSize);
}

inline constexpr DocumentVocabulary::VocabularyImpl ALL_TABLES[] = {
    DocumentVocabulary::VOC_VECTOR, DocumentVocabulary::VOC_HASH, DocumentVocabulary::VOC_MAP};

/// The same, and expects the same from memory and from streams with all kinds of tables.
template <class Log = EventLog>
std::string eventsEverywhere(const std::string& octets)
{
    const std::string events = eventsOf<Log>(octets);
    for (const DocumentVocabulary::VocabularyImpl impl : ALL_TABLES)
    {
        for (const std::size_t blockSize : {0u, 1u, 2u, 3u, 5u})
        {
            EXPECT_EQ(eventsOf<Log>(octets, impl, blockSize), events)
                << "tables " << impl << ", blocks of " << blockSize << ": " << hexOf(octets);
        }
    }
    return events;
}

} // namespace Vesk::FastInfoset

#endif // VESK_TESTS_EVENTLOG_H
