// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_NULLENCODING_H
#define VESK_FASTINFOSET_NULLENCODING_H

#include "Vesk/FastInfoset/ContentEncoding.h"

namespace Vesk::FastInfoset
{

/// Plain text: not an algorithm, and known to no registry.
class VESK_FASTINFOSET_API NullEncoding : public ContentEncoding<NullEncoding>
{
public:
    /// The index of the algorithm; 0 stands for plain text.
    static constexpr int TYPE = 0;

    /// No text yet, but room for 1024 octets: meant to be filled through content() again and again.
    NullEncoding();

    /// Copies the text. Throws FISEncodingException "Illegal empty string for NullEncoding" if there is none.
    explicit NullEncoding(const std::string& text);
    NullEncoding(const char* text, int octetCount);

    using ContentEncoding::decode;

    /// Reads a text, length first, and replaces text.
    static void decode(BitStreamReader& reader, std::string& text);

    /// The text's length: any text but the empty one can be written.
    static int check(const std::string& text);

    /// Writes the text, length first. Throws FISEncodingException "Encoder::nonEmptyOctetString cannot encode empty
    /// strings" if there is none.
    static void encode(BitStreamWriter& writer, const std::string& text);

    int type() const override;

    /// Delivers the text in one characters call.
    void handle(FISContentHandler* handler) const override;
    using Encoding::handle;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_NULLENCODING_H
