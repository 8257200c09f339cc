// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_TYPEDTEXT_H
#define VESK_FASTINFOSET_TYPEDTEXT_H

#include "Vesk/AutoPtr.h"
#include "Vesk/FastInfoset/Encoding.h"
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Vesk::FastInfoset
{

/// Finds the value whose text is a given text, octet for octet: of the types that can hold it the smallest, and octets
/// only if it is nothing else.
class TypedText
{
public:
    explicit TypedText(const std::string& text);

    /// False if a character of the piece is in no value's text. Fast.
    static bool mayContain(std::string_view piece);

    /// True if there is a value and the document holds it in fewer octets than the text.
    bool isShorter() const { return _octetCount < textOctets(_textLength); }

    const AutoPtr<Encoding>& value() const { return _value; }

    /// Octets that the value takes in the document as character content.
    std::size_t octetCount() const { return _octetCount; }

    /// Octets that a text of this many octets takes in the document as character content, where it is not an index.
    static std::size_t textOctets(std::size_t length);

private:
    bool canHold(std::size_t payloadOctets) const;
    void consider(std::size_t payloadOctets, const AutoPtr<Encoding>& value);
    template <class Class, typename Value>
    void considerList(std::vector<Value> values);

    // True if the text is of the kind, whether storing the values is worth it or not.
    bool findIntegers(const std::string& text);
    template <class Class, typename Value>
    bool findReals(const std::string& text);
    bool findBooleans(const std::string& text);
    bool findUUIDs(const std::string& text);
    template <class Class>
    void findOctets(const std::string& text, std::size_t payloadOctets);

    std::size_t _textLength;
    std::size_t _octetCount;
    AutoPtr<Encoding> _value;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_TYPEDTEXT_H
