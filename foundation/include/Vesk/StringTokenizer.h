// SPDX-License-Identifier: MIT
#ifndef VESK_STRINGTOKENIZER_H
#define VESK_STRINGTOKENIZER_H

#include "Vesk/Foundation.h"
#include <cstddef>
#include <iterator>
#include <string_view>

namespace Vesk
{

/// Cuts a text at every separator, without trimming: two separators in a row have an empty token between them, and a
/// separator at either end has one outside. The empty text has no tokens.
///
///     for (std::string_view token : StringTokenizer(text, ' '))
///
/// The text is borrowed; the tokens are views into it. Nothing is allocated.
class VESK_FOUNDATION_API StringTokenizer
{
public:
    /// Stands at a token, or behind the last one.
    class VESK_FOUNDATION_API Iterator
    {
    public:
        /// What the standard library asks of an input iterator.
        using iterator_category = std::input_iterator_tag;
        using value_type = std::string_view;
        using difference_type = std::ptrdiff_t;
        using pointer = const std::string_view*;
        using reference = const std::string_view&;

        /// The token. Requires: not behind the last one.
        reference operator*() const noexcept { return _token; }
        pointer operator->() const noexcept { return &_token; }
        /// Moves to the next token. Requires: not behind the last one.
        Iterator& operator++() noexcept;
        /// Whether both stand at the same token of the same text.
        bool operator==(const Iterator& other) const noexcept { return _token.data() == other._token.data(); }
        bool operator!=(const Iterator& other) const noexcept { return !(*this == other); }

    private:
        friend class StringTokenizer;

        Iterator() noexcept = default;
        Iterator(std::string_view text, char separator) noexcept;
        void cutToken(const char* begin) noexcept;

        const char* _textEnd = nullptr;
        std::string_view _token; // its data is null behind the last token
        char _separator = 0;
    };

    /// Borrows the text.
    StringTokenizer(std::string_view text, char separator) noexcept
        : _text(text),
          _separator(separator)
    {
    }

    /// The range of the tokens.
    Iterator begin() const noexcept { return Iterator(_text, _separator); }
    Iterator end() const noexcept { return Iterator(); }

private:
    std::string_view _text;
    char _separator;
};

} // namespace Vesk

#endif // VESK_STRINGTOKENIZER_H
