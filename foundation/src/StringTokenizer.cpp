// SPDX-License-Identifier: MIT
#include "Vesk/StringTokenizer.h"

namespace Vesk
{

StringTokenizer::Iterator::Iterator(std::string_view text, char separator) noexcept
    : _textEnd(text.data() + text.size()),
      _separator(separator)
{
    if (!text.empty())
        cutToken(text.data());
}

StringTokenizer::Iterator& StringTokenizer::Iterator::operator++() noexcept
{
    const char* tokenEnd = _token.data() + _token.size();
    if (tokenEnd == _textEnd)
        _token = std::string_view();
    else
        cutToken(tokenEnd + 1);
    return *this;
}

void StringTokenizer::Iterator::cutToken(const char* begin) noexcept
{
    const std::string_view rest(begin, static_cast<std::size_t>(_textEnd - begin));
    _token = rest.substr(0, rest.find(_separator));
}

} // namespace Vesk
