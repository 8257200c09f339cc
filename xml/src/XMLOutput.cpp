// SPDX-License-Identifier: MIT
#include "XMLOutput.h"
#include "Vesk/Exception.h"
#include "Vesk/XML/SAXException.h"
#include "XMLCharacters.h"
#include <algorithm>
#include <array>
#include <ostream>
#include <utility>

namespace Vesk::XML
{
namespace
{
constexpr std::size_t BUFFER_OCTETS = 64 * 1024;

// Texts up to this length are copied octet by octet while they are looked at.
constexpr std::size_t MAX_SHORT_OCTETS = 32;

// What to do with an octet of text.
enum OctetClass : unsigned char
{
    COPY,
    ESCAPE,
    CHECK, // starts a character beyond ASCII
    REFUSE
};

constexpr std::array<OctetClass, 256> octetClasses(std::string_view escaped)
{
    std::array<OctetClass, 256> classes = {};
    for (unsigned int c = 0; c < 256; ++c)
        classes[c] = c >= 0x80 ? CHECK : c < 0x20 && c != '\t' && c != '\n' && c != '\r' ? REFUSE : COPY;
    for (const char c : escaped)
        classes[static_cast<unsigned char>(c)] = ESCAPE;
    return classes;
}

// In the order of XMLOutput::Context. ">" is escaped wherever it stands in text, so that "]]>" cannot arise, not even
// from several pieces.
constexpr std::array<OctetClass, 256> OCTET_CLASSES[] = {octetClasses("&<>\r"), octetClasses("&<\"\t\n\r"),
                                                         octetClasses("")};

std::string_view escapeOf(char c)
{
    switch (c)
    {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\t':
        return "&#x9;";
    case '\n':
        return "&#xA;";
    default:
        return "&#xD;";
    }
}
} // namespace

XMLOutput::XMLOutput(std::ostream& stream)
    : _stream(stream),
      _capacity(BUFFER_OCTETS),
      _buffer(new char[_capacity]),
      _next(_buffer.get()),
      _end(_next + _capacity)
{
}

void XMLOutput::writeText(std::string_view text)
{
    writeEscaped<TEXT>(text);
}

void XMLOutput::writeAttributeValue(std::string_view value)
{
    writeEscaped<ATTRIBUTE>(value);
}

void XMLOutput::writeVerbatim(std::string_view text)
{
    writeEscaped<VERBATIM>(text);
}

template <XMLOutput::Context CONTEXT>
void XMLOutput::writeEscaped(std::string_view text)
{
    const std::array<OctetClass, 256>& classes = OCTET_CLASSES[CONTEXT];
    const char* next = text.data();
    const char* const end = next + text.size();
    if (text.size() <= MAX_SHORT_OCTETS && text.size() <= room())
    {
        char* out = _next;
        while (next < end && classes[static_cast<unsigned char>(*next)] == COPY)
            *out++ = *next++;
        _next = out;
    }

    const char* run = next; // what can be copied as it is starts here
    for (;;)
    {
        while (next < end && classes[static_cast<unsigned char>(*next)] == COPY)
            ++next;
        if (next == end)
            break;
        switch (classes[static_cast<unsigned char>(*next)])
        {
        case CHECK:
            next += XMLCharacters::octetsOfCharacter(std::string_view(next, static_cast<std::size_t>(end - next)));
            break;
        case ESCAPE:
            write(std::string_view(run, static_cast<std::size_t>(next - run)));
            write(escapeOf(*next));
            run = ++next;
            break;
        default:
            XMLCharacters::throwNotAllowed(static_cast<unsigned char>(*next));
        }
    }
    if (run < end)
        write(std::string_view(run, static_cast<std::size_t>(end - run)));
}

void XMLOutput::flush()
{
    if (_holdsBack)
        return;
    giveBuffer();
    _stream.flush();
    checkStream();
}

void XMLOutput::hold()
{
    giveBuffer();
    _holdsBack = true;
}

void XMLOutput::release(std::string_view text)
{
    _holdsBack = false;
    give(text);
    giveBuffer();
}

void XMLOutput::discard()
{
    if (_holdsBack)
        _next = _buffer.get();
    _holdsBack = false;
}

void XMLOutput::writeBeyondBuffer(std::string_view markup)
{
    if (markup.size() > room())
    {
        if (_holdsBack)
            growBuffer(markup.size());
        else
            giveBuffer();
    }
    if (markup.size() > room())
        give(markup);
    else
        copy(markup);
}

void XMLOutput::growBuffer(std::size_t octets)
{
    const std::size_t used = static_cast<std::size_t>(_next - _buffer.get());
    if (octets > MAX_HELD_OCTETS - used)
        throw SAXException("Too much in front of the root element");
    const std::size_t capacity = std::min(std::max(2 * _capacity, used + octets), MAX_HELD_OCTETS);
    std::unique_ptr<char[]> buffer(new char[capacity]);
    std::memcpy(buffer.get(), _buffer.get(), used);
    _buffer = std::move(buffer);
    _capacity = capacity;
    _next = _buffer.get() + used;
    _end = _buffer.get() + capacity;
}

void XMLOutput::giveBuffer()
{
    const std::size_t octets = static_cast<std::size_t>(_next - _buffer.get());
    _next = _buffer.get();
    give(std::string_view(_buffer.get(), octets));
}

void XMLOutput::give(std::string_view text)
{
    checkStream();
    _stream.write(text.data(), static_cast<std::streamsize>(text.size()));
    checkStream();
}

void XMLOutput::checkStream() const
{
    if (!_stream)
        throw IOException("Cannot write the XML document");
}
} // namespace Vesk::XML
