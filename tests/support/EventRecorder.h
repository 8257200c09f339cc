// SPDX-License-Identifier: MIT
#ifndef VESK_TESTS_EVENTRECORDER_H
#define VESK_TESTS_EVENTRECORDER_H

#include "Vesk/XML/Attributes.h"
#include "Vesk/XML/ContentHandler.h"
#include "Vesk/XML/DTDHandler.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/LexicalHandler.h"
#include "Vesk/XML/SAXParser.h"
#include <algorithm>
#include <istream>
#include <sstream>
#include <string>
#include <vector>

/// Records the events of a document as lines of text, so that two documents can be compared as two strings.
///
/// What may differ without changing the document is evened out: adjacent character data is joined, attributes and the
/// prefix mappings of an element are sorted, empty CDATA sections are left out, and notations, then unparsed entities,
/// stand in front. Qualified names, xmlns attributes, the name of the document type and declarations that are not read are
/// recorded on demand only: the binary format does not keep them.
class EventRecorder : public Vesk::XML::ContentHandler, public Vesk::XML::LexicalHandler, public Vesk::XML::DTDHandler
{
public:
    enum Detail
    {
        EXPANDED_NAMES,
        QUALIFIED_NAMES
    };

    explicit EventRecorder(Detail detail = EXPANDED_NAMES)
        : _withQNames(detail == QUALIFIED_NAMES)
    {
    }

    /// One event a line.
    std::string events()
    {
        settle();
        return _notations + _entities + _events;
    }

    void attachTo(Vesk::XML::XMLReader& reader)
    {
        reader.setContentHandler(this);
        reader.setDTDHandler(this);
        reader.setProperty(Vesk::XML::XMLReader::PROPERTY_LEXICAL_HANDLER,
                           static_cast<Vesk::XML::LexicalHandler*>(this));
    }

    void setDocumentLocator(const Vesk::XML::Locator*) override {}
    void startDocument() override { record("start document"); }
    void endDocument() override { record("end document"); }

    void startElement(const std::string& uri, const std::string& localName, const std::string& qname,
                      const Vesk::XML::Attributes& attributes) override
    {
        record("<" + name(uri, localName, qname));
        std::vector<std::string> lines;
        for (int i = 0; i < attributes.getLength(); ++i)
        {
            if (_withQNames || !isNamespaceDeclaration(attributes.getQName(i)))
            {
                lines.push_back(" @" + name(attributes.getURI(i), attributes.getLocalName(i), attributes.getQName(i)) +
                                "=" + escaped(attributes.getValue(i)));
            }
        }
        addSorted(lines);
    }

    void endElement(const std::string& uri, const std::string& localName, const std::string& qname) override
    {
        record(">" + name(uri, localName, qname));
    }

    void characters(const char ch[], int start, int length) override
    {
        if (length > 0)
        {
            settleMappings();
            if (_inCDATA == CDATA_STARTED)
            {
                settleText();
                _events += "start CDATA\n";
                _inCDATA = CDATA_RECORDED;
            }
            _text.append(ch + start, static_cast<std::size_t>(length));
        }
    }
    void ignorableWhitespace(const char ch[], int start, int length) override { characters(ch, start, length); }

    void processingInstruction(const std::string& target, const std::string& data) override
    {
        record("?" + target + " " + escaped(data));
    }

    void startPrefixMapping(const std::string& prefix, const std::string& uri) override
    {
        settleText();
        _mappings.push_back("map " + prefix + "=" + escaped(uri));
    }
    void endPrefixMapping(const std::string& prefix) override
    {
        settleText();
        _mappings.push_back("unmap " + prefix);
    }

    void skippedEntity(const std::string& name) override
    {
        const bool hasDeclarations = name[0] == '%' || name == "[dtd]";
        if (_withQNames || !hasDeclarations)
            record("skipped &" + name);
    }

    void startDTD(const std::string& name, const std::string& publicId, const std::string& systemId) override
    {
        record("start DTD " + (_withQNames ? name + " " : "") + "[" + escaped(publicId) + "] [" + escaped(systemId) +
               "]");
    }
    void endDTD() override { record("end DTD"); }

    void startEntity(const std::string&) override {}
    void endEntity(const std::string&) override {}

    void startCDATA() override { _inCDATA = CDATA_STARTED; }
    void endCDATA() override
    {
        if (_inCDATA == CDATA_RECORDED)
            record("end CDATA");
        _inCDATA = NO_CDATA;
    }

    void comment(const char ch[], int start, int length) override
    {
        record("#" + escaped(std::string(ch + start, static_cast<std::size_t>(length))));
    }

    void notationDecl(const std::string& name, const std::string* publicId, const std::string* systemId) override
    {
        _notations += "notation " + name + identifier(publicId) + identifier(systemId) + "\n";
    }
    void unparsedEntityDecl(const std::string& name, const std::string* publicId, const std::string& systemId,
                            const std::string& notationName) override
    {
        _entities += "entity " + name + identifier(publicId) + identifier(&systemId) + " " + notationName + "\n";
    }

private:
    enum CDATAState
    {
        NO_CDATA,
        CDATA_STARTED,
        CDATA_RECORDED
    };

    static bool isNamespaceDeclaration(const std::string& qname)
    {
        return qname == "xmlns" || qname.compare(0, 6, "xmlns:") == 0;
    }

    static std::string escaped(const std::string& text)
    {
        std::string result;
        for (const char c : text)
        {
            switch (c)
            {
            case '\n':
                result += "\\n";
                break;
            case '\r':
                result += "\\r";
                break;
            case '\t':
                result += "\\t";
                break;
            case '\\':
                result += "\\\\";
                break;
            default:
                result += c;
            }
        }
        return result;
    }

    // An absent identifier and an empty one are the same.
    static std::string identifier(const std::string* id) { return " [" + (id ? escaped(*id) : std::string()) + "]"; }

    std::string name(const std::string& uri, const std::string& localName, const std::string& qname) const
    {
        const std::string expanded = uri.empty() ? localName : "{" + uri + "}" + localName;
        return _withQNames ? expanded + " " + qname : expanded;
    }

    void record(const std::string& line)
    {
        settle();
        _events += line + "\n";
    }

    void addSorted(std::vector<std::string>& lines)
    {
        std::sort(lines.begin(), lines.end());
        for (const std::string& line : lines)
            _events += line + "\n";
        lines.clear();
    }

    // Text and prefix mappings are held back until an event of another kind shows that they are complete.
    void settle()
    {
        settleText();
        settleMappings();
    }
    void settleText()
    {
        if (!_text.empty())
            _events += "\"" + escaped(_text) + "\n";
        _text.clear();
    }
    void settleMappings() { addSorted(_mappings); }

    const bool _withQNames;
    std::string _notations;
    std::string _entities;
    std::string _events;
    std::string _text;
    std::vector<std::string> _mappings;
    CDATAState _inCDATA = NO_CDATA;
};

/// The recorded events of a document in XML text.
inline std::string eventsOfXML(std::istream& xml, EventRecorder::Detail detail = EventRecorder::EXPANDED_NAMES)
{
    EventRecorder recorder(detail);
    Vesk::XML::SAXParser parser;
    recorder.attachTo(parser);
    Vesk::XML::InputSource source(xml);
    parser.parse(&source);
    return recorder.events();
}

inline std::string eventsOfXML(const std::string& xml, EventRecorder::Detail detail = EventRecorder::EXPANDED_NAMES)
{
    std::istringstream stream(xml);
    return eventsOfXML(stream, detail);
}

#endif // VESK_TESTS_EVENTRECORDER_H
