// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/RestrictedAlphabet.h"
#include "Vesk/Bugcheck.h"
#include "Vesk/TextIterator.h"
#include "Vesk/UTF8Encoding.h"
#include <cstddef>

namespace Vesk::FastInfoset
{

RestrictedAlphabet::RestrictedAlphabet(const std::string& utf8Characters)
    : _characters(utf8Characters)
{
    if (utf8Characters.empty())
        Bugcheck::assertion("!utf8Characters.empty()", "src/RestrictedAlphabet", 38);

    const UTF8Encoding utf8;
    const TextIterator end(_characters);
    for (TextIterator it(_characters, utf8); it != end; ++it)
        _codePoints.push_back(*it);
    _codePoints.push_back(0);

    for (std::size_t positions = _codePoints.size(); positions > 1; positions /= 2)
        ++_bitsPerCharacter;
}

} // namespace Vesk::FastInfoset
