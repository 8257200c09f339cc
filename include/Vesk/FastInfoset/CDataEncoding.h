// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_CDATAENCODING_H
#define VESK_FASTINFOSET_CDATAENCODING_H

#include "Vesk/FastInfoset/ContentEncoding.h"

namespace Vesk::FastInfoset
{

/// The text of a CDATA section, encoding algorithm 10.
class VESK_FASTINFOSET_API CDataEncoding : public ContentEncoding<CDataEncoding>
{
public:
    /// The index of the algorithm.
    static constexpr int TYPE = 10;

    /// Copies the text. Throws FISEncodingException "Illegal empty string for CDataEncoding" if there is none.
    explicit CDataEncoding(const std::string& text);
    CDataEncoding(const char* text, int octetCount);

    using ContentEncoding::decode;

    /// Reads a text, length first, and replaces text.
    static void decode(BitStreamReader& reader, std::string& text);

    /// The text's length: any text but the empty one can be written.
    static int check(const std::string& text);

    int type() const override;

    /// Delivers the text in one characters call.
    void handle(FISContentHandler* handler) const override;
    using Encoding::handle;

private:
    friend ContentEncoding;

    CDataEncoding() = default;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_CDATAENCODING_H
