// SPDX-License-Identifier: MIT
#include "Vesk/TextIterator.h"

namespace Vesk
{

TextIterator::TextIterator(const std::string& text, const TextEncoding& encoding) noexcept
    : _encoding(&encoding),
      _position(text.data()),
      _next(text.data()),
      _end(text.data() + text.size())
{
    decode();
}

TextIterator::TextIterator(const std::string& text) noexcept
    : _position(text.data() + text.size()),
      _next(_position),
      _end(_position)
{
}

TextIterator& TextIterator::operator++() noexcept
{
    _position = _next;
    decode();
    return *this;
}

void TextIterator::decode() noexcept
{
    if (_position != _end)
        _codePoint = _encoding->decode(_next, _end);
}

} // namespace Vesk
