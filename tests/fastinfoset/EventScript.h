// SPDX-License-Identifier: MIT
#ifndef VESK_TESTS_EVENTSCRIPT_H
#define VESK_TESTS_EVENTSCRIPT_H

#include "Octets.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/XML/AttributesImpl.h"
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace Vesk::FastInfoset
{

/// Gives events to a writer as they are named in a script, separated by spaces:
///
///     ( )                        start and end of the document
///     <a <u,a,p:a                element: qualified name if its local name is the same, or URI, local name, qualified name
///     @b=1 @u,b,p:b=1            attribute of the element in front of it, named likewise
///     >                          end of an element
///     +p=u -p                    start and end of a prefix mapping
///     "text" "*16"               characters; so many x
///     [ ]                        start and end of a CDATA section
///     #text ?target=data         comment, processing instruction
///     {pub,sys }                 start and end of a document type declaration
///     notation:n,pub,sys unparsed:e,pub,sys,n           null stands for an absent identifier
///     short:1 int:1 long:1 bool:1 float:1 double:1 octets:000102 uuid:00112233-4455-...
class EventScript
{
public:
    explicit EventScript(const std::string& script)
    {
        std::istringstream stream(script);
        for (std::string word; stream >> word;)
        {
            if (word[0] == '@')
                _events.back().push_back(word.substr(1));
            else
                _events.push_back({word});
        }
    }

    std::size_t eventCount() const { return _events.size(); }

    void play(FastInfosetWriter& writer, std::size_t event) const
    {
        const std::string& word = _events[event].front();
        const std::string rest = word.substr(1);
        switch (word[0])
        {
        case '(':
            return writer.startDocument();
        case ')':
            return writer.endDocument();
        case '<':
            return startElement(writer, _events[event]);
        case '>':
            return writer.endElement("", "", "");
        case '+':
            return writer.startPrefixMapping(before(rest, '='), behind(rest, '='));
        case '-':
            return writer.endPrefixMapping(rest);
        case '"':
            return writer.characters(text(rest.substr(0, rest.size() - 1)));
        case '[':
            return writer.startCDATA();
        case ']':
            return writer.endCDATA();
        case '#':
            return comment(writer, text(rest));
        case '?':
            return writer.processingInstruction(before(rest, '='), behind(rest, '='));
        case '{':
            return writer.startDTD("name", before(rest, ','), behind(rest, ','));
        case '}':
            return writer.endDTD();
        default:
            return playNamed(writer, before(word, ':'), behind(word, ':'));
        }
    }

    void play(FastInfosetWriter& writer) const
    {
        for (std::size_t event = 0; event < eventCount(); ++event)
            play(writer, event);
    }

private:
    using Event = std::vector<std::string>;

    struct Names
    {
        std::string uri;
        std::string localName;
        std::string qname;
    };

    static std::string before(const std::string& text, char separator) { return text.substr(0, text.find(separator)); }
    static std::string behind(const std::string& text, char separator)
    {
        const std::size_t place = text.find(separator);
        return place == std::string::npos ? std::string() : text.substr(place + 1);
    }

    static std::string text(const std::string& word)
    {
        return !word.empty() && word[0] == '*' ? std::string(std::stoul(word.substr(1)), 'x') : word;
    }

    static std::vector<std::string> list(const std::string& words)
    {
        std::vector<std::string> result(1);
        for (const char c : words)
        {
            if (c == ',')
                result.emplace_back();
            else
                result.back() += c;
        }
        return result;
    }

    static Names names(const std::string& words)
    {
        const std::vector<std::string> parts = list(words);
        return parts.size() == 1 ? Names{"", words, words} : Names{parts.at(0), parts.at(1), parts.at(2)};
    }

    static void startElement(FastInfosetWriter& writer, const Event& event)
    {
        XML::AttributesImpl attributes;
        for (std::size_t i = 1; i < event.size(); ++i)
        {
            const Names attribute = names(before(event[i], '='));
            attributes.addAttribute(attribute.uri, attribute.localName, attribute.qname, "CDATA",
                                    text(behind(event[i], '=')));
        }
        const Names element = names(event.front().substr(1));
        writer.startElement(element.uri, element.localName, element.qname, attributes);
    }

    static void comment(FastInfosetWriter& writer, const std::string& text)
    {
        writer.comment(text.data(), 0, static_cast<int>(text.size()));
    }

    static void playNamed(FastInfosetWriter& writer, const std::string& name, const std::string& value)
    {
        if (name == "notation" || name == "unparsed")
            declare(writer, name, list(value));
        else if (name == "octets")
            writer.binaryData(octetsOf(value).data(), octetsOf(value).size());
        else if (name == "uuid")
            writer.encodedData(UUID(value));
        else if (name == "short")
            writer.encodedData(static_cast<short>(std::stoi(value)));
        else if (name == "int")
            writer.encodedData(std::stoi(value));
        else if (name == "long")
            writer.encodedData(std::stol(value));
        else if (name == "bool")
            writer.encodedData(value == "1");
        else if (name == "float")
            writer.encodedData(std::stof(value));
        else if (name == "double")
            writer.encodedData(std::stod(value));
        else
            throw std::invalid_argument("no such event: " + name);
    }

    static void declare(FastInfosetWriter& writer, const std::string& name, const std::vector<std::string>& words)
    {
        const auto identifier = [&words](std::size_t i)
        {
            return words.at(i) == "null" ? nullptr : &words.at(i);
        };
        if (name == "notation")
            writer.notationDecl(words.at(0), identifier(1), identifier(2));
        else
            writer.unparsedEntityDecl(words.at(0), identifier(1), words.at(2), words.at(3));
    }

    std::vector<Event> _events;
};

} // namespace Vesk::FastInfoset

#endif // VESK_TESTS_EVENTSCRIPT_H
