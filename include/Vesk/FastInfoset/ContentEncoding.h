// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_CONTENTENCODING_H
#define VESK_FASTINFOSET_CONTENTENCODING_H

#include "Vesk/FastInfoset/Encoding.h"

namespace Vesk::FastInfoset
{

/// What the encodings have in common whose value is the content string itself: NullEncoding, CDataEncoding, HexEncoding
/// and DWordEncoding. Its octets are stored as they are.
///
/// Class is the encoding that derives from this one; the library holds the instances for its four classes.
template <class Class>
class VESK_FASTINFOSET_API ContentEncoding : public Encoding
{
public:
    /// Writes the text as one value, length first. Throws as the constructor from text does.
    static void encode(BitStreamWriter& writer, const std::string& text);

    /// Reads a value, length first, and hands over a new object.
    /// Requires: the reader at bit 1, 4 or 6 of an octet; it stands behind the value afterwards.
    static AutoPtr<Encoding> decode(BitStreamReader& reader);

    /// Appends the other's content if it is of the same type.
    bool merge(const Encoding& other) override;

    /// As in Encoding.
    void write(BitStreamWriter& writer) const override;
    DecodeMethod decodeMethod() const override;
    CheckMethod checkMethod() const override;
    EncodeMethod encodeMethod() const override;

    /// Nothing to do.
    void createContent() override;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_CONTENTENCODING_H
