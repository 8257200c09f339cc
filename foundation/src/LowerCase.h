// SPDX-License-Identifier: MIT
#ifndef VESK_LOWERCASE_H
#define VESK_LOWERCASE_H

#include <string>

namespace Vesk
{

/// The text with A to Z in lower case, whatever the locale.
inline std::string asciiLowerCase(std::string text)
{
    for (char& character : text)
    {
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    }
    return text;
}

} // namespace Vesk

#endif // VESK_LOWERCASE_H
