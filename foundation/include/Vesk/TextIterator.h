// SPDX-License-Identifier: MIT
#ifndef VESK_TEXTITERATOR_H
#define VESK_TEXTITERATOR_H

#include "Vesk/TextEncoding.h"
#include <cstddef>
#include <iterator>
#include <string>

namespace Vesk
{

/// Walks over the code points of a text. Text and encoding are borrowed: they must outlive the iterator unchanged.
///
///     UTF8Encoding utf8;
///     const TextIterator end(text);
///     for (TextIterator it(text, utf8); it != end; ++it)
///         use(*it); // TextEncoding::ILL_FORMED for an ill-formed sequence
class VESK_FOUNDATION_API TextIterator
{
public:
    /// What the standard library asks of an input iterator.
    using iterator_category = std::input_iterator_tag;
    using value_type = int;
    using difference_type = std::ptrdiff_t;
    using pointer = const int*;
    using reference = int;

    /// At the first character.
    TextIterator(const std::string& text, const TextEncoding& encoding) noexcept;
    /// Behind the last character.
    explicit TextIterator(const std::string& text) noexcept;

    TextIterator(std::string&&, const TextEncoding&) = delete;
    explicit TextIterator(std::string&&) = delete;

    /// Requires: not behind the last character.
    int operator*() const noexcept { return _codePoint; }
    TextIterator& operator++() noexcept;

    /// Whether both stand at the same place of the same text.
    bool operator==(const TextIterator& other) const noexcept { return _position == other._position; }
    bool operator!=(const TextIterator& other) const noexcept { return _position != other._position; }

private:
    void decode() noexcept;

    const TextEncoding* _encoding = nullptr;
    const char* _position;
    const char* _next;
    const char* _end;
    int _codePoint = TextEncoding::ILL_FORMED;
};

} // namespace Vesk

#endif // VESK_TEXTITERATOR_H
