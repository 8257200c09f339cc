// SPDX-License-Identifier: MIT
#ifndef VESK_XML_XMLOUTPUT_H
#define VESK_XML_XMLOUTPUT_H

#include "Vesk/XML/XMLString.h"
#include <cstddef>
#include <cstring>
#include <iosfwd>
#include <memory>
#include <string_view>

namespace Vesk::XML
{
/// Buffered text output that escapes and checks characters.
///
/// Everything but write throws SAXException for octets that are not UTF-8 and for characters that XML does not allow.
/// Output that the stream does not take throws IOException, and so does every attempt afterwards.
class XMLOutput
{
public:
    /// Borrows the stream.
    explicit XMLOutput(std::ostream& stream);

    /// Writes markup as it is.
    void write(char c)
    {
        if (_next == _end)
            writeBeyondBuffer(std::string_view(&c, 1));
        else
            *_next++ = c;
    }
    template <class... Pieces>
    void write(const Pieces&... pieces)
    {
        writeViews(std::string_view(pieces)...);
    }

    /// Writes character data of an element, so that a reader gets the same text.
    void writeText(std::string_view text);
    /// Writes an attribute's value, to stand between quotation marks.
    void writeAttributeValue(std::string_view value);
    /// Writes text that stands where nothing can be escaped.
    void writeVerbatim(std::string_view text);

    /// Gives everything to the stream and flushes it, unless output is being held back.
    void flush();

    /// Holds back what is written from now on, at most MAX_HELD_OCTETS of it.
    void hold();
    bool isHolding() const { return _holdsBack; }
    /// Puts the text in front of what was held back and lets it go.
    void release(std::string_view text);
    /// Forgets what was held back.
    void discard();

    static constexpr std::size_t MAX_HELD_OCTETS = 16 * 1024 * 1024;

private:
    enum Context
    {
        TEXT,
        ATTRIBUTE,
        VERBATIM
    };

    template <class... Views>
    void writeViews(Views... views)
    {
        if ((views.size() + ...) <= room())
            (copy(views), ...);
        else
            (writeBeyondBuffer(views), ...);
    }
    void copy(std::string_view markup)
    {
        std::memcpy(_next, markup.data(), markup.size());
        _next += markup.size();
    }

    template <Context CONTEXT>
    const char* copyPlain(std::string_view text);
    template <Context CONTEXT>
    static const char* skipPlain(const char* next, const char* end);
    template <Context CONTEXT>
    void writeEscaped(std::string_view text);
    std::size_t room() const { return static_cast<std::size_t>(_end - _next); }
    void writeBeyondBuffer(std::string_view markup);
    void growBuffer(std::size_t octets);
    void giveBuffer();
    void give(std::string_view text);
    void checkStream() const;

    std::ostream& _stream;
    std::size_t _capacity;
    std::unique_ptr<char[]> _buffer;
    char* _next;
    char* _end;
    bool _holdsBack = false;
};
} // namespace Vesk::XML

#endif // VESK_XML_XMLOUTPUT_H
