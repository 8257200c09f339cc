// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_NULLREFENCODING_H
#define VESK_FASTINFOSET_NULLREFENCODING_H

#include "Vesk/FastInfoset/NullEncoding.h"

namespace Vesk::FastInfoset
{

/// Plain text that is owned elsewhere, for example by a vocabulary table.
///
/// The text is borrowed: the caller keeps it alive and unchanged while the object refers to it.
class VESK_FASTINFOSET_API NullRefEncoding : public NullEncoding
{
public:
    /// Borrows the text, which must stay as long as the object.
    explicit NullRefEncoding(const std::string& text);
    explicit NullRefEncoding(const std::string&& text) = delete;

    /// Refers to another text from now on, or to none. Without one only the two operations that always throw may be
    /// called; all others fail the check for null (NullPointerException).
    void refer(const std::string* text);

    /// Always throws InvalidAccessException "NullRefEncoding is immutable".
    bool merge(const Encoding& other) override;

    /// Delivers the referenced text, as the typed form does.
    void handle(XML::ContentHandler* handler) const override;
    using NullEncoding::handle;

    const std::string& content() const override;

    /// Always throws InvalidAccessException "NullRefEncoding is immutable".
    std::string& content() override;

private:
    const std::string* _data;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_NULLREFENCODING_H
