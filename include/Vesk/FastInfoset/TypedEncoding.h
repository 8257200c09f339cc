// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_TYPEDENCODING_H
#define VESK_FASTINFOSET_TYPEDENCODING_H

#include "Vesk/FastInfoset/Encoding.h"
#include <string_view>
#include <vector>

namespace Vesk::FastInfoset
{

/// What the encodings of typed values have in common: ShortEncoding, IntEncoding, LongEncoding, FloatEncoding,
/// DoubleEncoding, BoolEncoding and UUIDEncoding. Each is a sequence of at least one Value in document order.
///
/// The text of a sequence is the values' texts with one space between them. Only the very text that a class itself
/// would produce for the values is accepted as text, so that a text that is stored as values comes back unchanged; the
/// exceptions are named at the classes.
///
/// Class is the encoding that derives from this one; the library holds the instances for its seven classes.
template <class Class, typename Value>
class VESK_FASTINFOSET_API TypedEncoding : public Encoding
{
public:
    /// One value.
    explicit TypedEncoding(const Value& value);

    /// Takes over the values. Throws FISEncodingException "Illegal (empty) data for ..." if there are none.
    explicit TypedEncoding(std::vector<Value> values);

    /// Reads the values from text. Throws FISEncodingException "Illegal (empty) data for ..." for the empty text and
    /// "Illegal value string for ..." for one that parse() refuses.
    explicit TypedEncoding(const std::string& text);

    /// Replaces values with those of the text, all or nothing: values is empty if any of them is refused. Values are
    /// separated by exactly one space.
    static void parse(const std::string& text, std::vector<Value>& values);

    /// Octets that the values of the text need, 0 for a text that parse() refuses.
    static int check(const std::string& text);

    /// Writes the values of the text, length first. Throws as the constructor from text does.
    static void encode(BitStreamWriter& writer, const std::string& text);

    /// Reads the values of one encoded character string, length first, and replaces values, or text with their text.
    ///
    /// Requires: the reader at bit 1, 4 or 6 of an octet; it stands behind the value afterwards.
    /// Throws FISEncodingException if the length is no multiple of the octets of one value, FISParseException
    /// "Unexpected end of stream while decoding ... values" if input ends too early. Memory is taken for octets that
    /// are there, whatever the length claims.
    static void decode(BitStreamReader& reader, std::vector<Value>& values);
    static void decode(BitStreamReader& reader, std::string& text);

    /// The same, handing over a new object whose content string is up to date.
    static AutoPtr<Encoding> decode(BitStreamReader& reader);

    /// The values, in order. Valid until the object changes.
    const std::vector<Value>& values() const { return _values; }

    /// Appends a value. The content string stays as it was.
    void append(const Value& value)
    {
        this->materializeContent();
        _values.push_back(value);
    }

    /// Appends the other's values if it is of the same type. The content string stays as it was.
    bool merge(const Encoding& other) override;

    /// As in Encoding.
    void write(BitStreamWriter& writer) const override;
    DecodeMethod decodeMethod() const override;
    CheckMethod checkMethod() const override;
    EncodeMethod encodeMethod() const override;

    /// Delivers one encodedData call a value.
    void handle(FISContentHandler* handler) const override;
    using Encoding::handle;

    /// As in Encoding.
    void createContent() override;
    void text(std::string& text) const override;

protected:
    /// Replaces text by the values' text, joined by spaces.
    static void toText(const std::vector<Value>& values, std::string& text);

private:
    std::vector<Value> _values;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_TYPEDENCODING_H
