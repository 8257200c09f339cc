// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_NULLENCODING_H
#define VESK_FASTINFOSET_NULLENCODING_H

#include "Vesk/FastInfoset/Encoding.h"

namespace Vesk::FastInfoset
{

/// Plain text: not an algorithm, and known to no registry.
class VESK_FASTINFOSET_API NullEncoding : public Encoding
{
public:
    static constexpr int TYPE = 0;

    /// No text yet, but room for 1024 octets: meant to be filled through content() again and again.
    NullEncoding();

    /// Copies the text. Throws FISEncodingException "Illegal empty string for NullEncoding" if there is none.
    explicit NullEncoding(const std::string& text);
    NullEncoding(const char* text, int octetCount);

    /// Reads a text, length first, and hands over a new object, or replaces text.
    /// Requires: the reader at bit 1, 4 or 6 of an octet; it stands behind the text afterwards.
    static AutoPtr<Encoding> decode(BitStreamReader& reader);
    static void decode(BitStreamReader& reader, std::string& text);

    /// The text's length: any text but the empty one can be written.
    static int check(const std::string& text);

    /// Writes the text, length first. Throws FISEncodingException if it is empty.
    static void encode(BitStreamWriter& writer, const std::string& text);

    int type() const override;

    /// Appends the other's text if it is of the same type.
    bool merge(const Encoding& other) override;

    void write(BitStreamWriter& writer) const override;

    DecodeMethod decodeMethod() const override;
    CheckMethod checkMethod() const override;
    EncodeMethod encodeMethod() const override;

    /// Delivers the text in one characters call.
    void handle(FISContentHandler* handler) const override;
    using Encoding::handle;

    /// Nothing to do: the content string is the value.
    void createContent() override;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_NULLENCODING_H
