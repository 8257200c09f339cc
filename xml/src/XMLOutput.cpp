// SPDX-License-Identifier: MIT
#include "XMLOutput.h"
#include "Vesk/Exception.h"
#include "Vesk/XML/SAXException.h"
#include "XMLCharacters.h"
#include <algorithm>
#include <array>
#include <cstdint>
#include <ostream>
#include <utility>

namespace Vesk::XML
{
namespace
{
constexpr std::size_t BUFFER_OCTETS = 64 * 1024;

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
constexpr std::string_view ESCAPED[] = {"&<>\r", "&<\"\t\n\r", ""};
constexpr std::array<OctetClass, 256> OCTET_CLASSES[] = {octetClasses(ESCAPED[0]), octetClasses(ESCAPED[1]),
                                                         octetClasses(ESCAPED[2])};

// Eight octets at a time, as the lanes of a word.
constexpr std::uint64_t LANES = 0x0101010101010101;
constexpr std::size_t WORD_OCTETS = sizeof(std::uint64_t);

std::uint64_t loadWord(const char* octets)
{
    std::uint64_t word = 0;
    std::memcpy(&word, octets, WORD_OCTETS);
    return word;
}

// True if the word holds neither a control character, tabs and line ends included, nor an octet beyond ASCII, nor one of
// those that are escaped.
//
// In a lane below 0x80, subtracting n sets the highest bit exactly if the lane holds less than n, as long as no lane
// below has borrowed, which it does with its own highest bit set only.
bool isPlain(std::uint64_t word, std::string_view escaped)
{
    std::uint64_t marks = word | (word - LANES * 0x20);
    for (const char c : escaped)
    {
        if (c >= 0x20)
            marks |= (word ^ (LANES * static_cast<unsigned char>(c))) - LANES;
    }
    return (marks & LANES * 0x80) == 0;
}

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

// Copies what needs no more than that, up to the end of the text if all of it fits in the buffer, and returns where it
// stopped.
template <XMLOutput::Context CONTEXT>
const char* XMLOutput::copyPlain(std::string_view text)
{
    const std::array<OctetClass, 256>& classes = OCTET_CLASSES[CONTEXT];
    const char* next = text.data();
    const char* const end = next + text.size();
    if (text.size() > room())
        return next;
    char* out = _next;
    for (;;)
    {
        const std::size_t rest = static_cast<std::size_t>(end - next);
        // The last word of a text that is no multiple of words reaches back into what has been copied already.
        const std::size_t back = rest < WORD_OCTETS ? WORD_OCTETS - rest : 0;
        if (rest > 0 && text.size() >= WORD_OCTETS)
        {
            const std::uint64_t word = loadWord(next - back);
            if (isPlain(word, ESCAPED[CONTEXT]))
            {
                std::memcpy(out - back, &word, WORD_OCTETS);
                out += WORD_OCTETS - back;
                next += WORD_OCTETS - back;
                continue;
            }
        }
        const char* const stop = next + std::min(rest, WORD_OCTETS);
        while (next < stop && classes[static_cast<unsigned char>(*next)] == COPY)
            *out++ = *next++;
        if (next == end || next < stop)
            break;
    }
    _next = out;
    return next;
}

// Where the next octet is that cannot be copied. Words are looked at only behind octets that can, for others tend to
// come one after the other.
template <XMLOutput::Context CONTEXT>
const char* XMLOutput::skipPlain(const char* next, const char* end)
{
    const std::array<OctetClass, 256>& classes = OCTET_CLASSES[CONTEXT];
    for (;;)
    {
        const char* const stop = next + std::min(static_cast<std::size_t>(end - next), WORD_OCTETS);
        while (next < stop && classes[static_cast<unsigned char>(*next)] == COPY)
            ++next;
        if (next < stop || next == end)
            return next;
        while (static_cast<std::size_t>(end - next) >= WORD_OCTETS && isPlain(loadWord(next), ESCAPED[CONTEXT]))
            next += WORD_OCTETS;
    }
}

template <XMLOutput::Context CONTEXT>
void XMLOutput::writeEscaped(std::string_view text)
{
    const std::array<OctetClass, 256>& classes = OCTET_CLASSES[CONTEXT];
    const char* next = copyPlain<CONTEXT>(text);
    const char* const end = text.data() + text.size();
    if (next == end)
        return;

    const char* run = next; // what can be copied as it is starts here
    for (;;)
    {
        next = skipPlain<CONTEXT>(next, end);
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
