// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_ENCODING_H
#define VESK_FASTINFOSET_ENCODING_H

#include "Vesk/AutoPtr.h"
#include "Vesk/FastInfoset/FastInfoset.h"
#include "Vesk/RefCountedObject.h"
#include <string>

namespace Vesk::XML
{
class ContentHandler;
}

namespace Vesk::FastInfoset
{

class BitStreamReader;
class BitStreamWriter;
class FISContentHandler;

/// A value of character content together with the encoding algorithm (X.891 clause 10) that stores it.
///
/// Objects are shared by reference count and held through AutoPtr<Encoding>; one that is never shared may be a local
/// variable. They are not copied, and each is used by one thread at a time.
///
/// Every object has a content string. For text it is the value itself, for hexadecimal and base64 data the raw
/// octets. For typed values it is a cache of their text that createContent() fills and merge() leaves as it was.
///
/// Each concrete class has three static functions, which the registries EncodingAlgorithm and DecodingAlgorithm hold:
///   - decode(reader) reads the length and the octets of one value and hands over a new object. It stands where a
///     length can start (bit 1, 4 or 6 of an octet, counted from 0) and leaves the reader on an octet boundary.
///   - check(text) tells how many octets the class needs for a text; 0 or less: it cannot encode the text.
///   - encode(writer, text) writes the text as one value, length first. Throws FISEncodingException on bad text.
///
/// All texts are UTF-8.
class VESK_FASTINFOSET_API Encoding // NOLINT(cppcoreguidelines-virtual-class-destructor): see RefCountedObject
    : public RefCountedObject
{
public:
    /// The types of the static functions above.
    using DecodeMethod = AutoPtr<Encoding> (*)(BitStreamReader& reader);
    using CheckMethod = int (*)(const std::string& text);
    using EncodeMethod = void (*)(BitStreamWriter& writer, const std::string& text);

    /// The index of the encoding algorithm, 0 for plain text. Each index belongs to one class (0 to NullEncoding and
    /// those derived from it).
    virtual int type() const = 0;

    /// Absorbs the other value and returns true if both are of the same type. Otherwise changes nothing.
    virtual bool merge(const Encoding& other) = 0;

    /// Writes the length and the octets of the value. The writer stands at bit 1, 4 or 6 of an octet before and on an
    /// octet boundary afterwards.
    virtual void write(BitStreamWriter& writer) const = 0;

    /// The static functions of the object's class.
    virtual DecodeMethod decodeMethod() const = 0;
    virtual CheckMethod checkMethod() const = 0;
    virtual EncodeMethod encodeMethod() const = 0;

    /// Delivers the value as characters; does nothing without a handler. For typed values these are the content
    /// string, nothing if createContent() was never called. Throws RangeException if the text has 2 GiB or more, which
    /// the handler's interface cannot express.
    virtual void handle(XML::ContentHandler* handler) const;

    /// Delivers the value through the typed calls; does nothing without a handler.
    virtual void handle(FISContentHandler* handler) const = 0;

    /// The content string, valid until the object changes.
    virtual const std::string& content() const;
    virtual std::string& content();

    /// Brings the content string of a typed value up to date. The text is made when somebody asks for it, so that a
    /// typed value that nobody reads as text costs none.
    virtual void createContent() = 0;

    /// Puts the value's text into text, whatever the content string holds: what a plain ContentHandler receives and
    /// what a table stores. Hexadecimal and base64 data yield their digits, never the octets.
    virtual void text(std::string& text) const;

protected:
    Encoding() = default;
    ~Encoding() override;

    /// The next look at the content string makes it from text().
    void requireContent();

    /// Makes the content string if it is still required. To be called before the value changes.
    void materializeContent() const;

    /// Hands the text over to a handler that need not be there.
    static void characters(XML::ContentHandler* handler, const std::string& text);

private:
    mutable std::string _content;
    mutable bool _contentRequired = false;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_ENCODING_H
