// SPDX-License-Identifier: MIT
#include "Vesk/Path.h"

namespace Vesk
{

std::string Path::getExtension() const
{
    const std::size_t name = _text.rfind('/') + 1; // npos + 1 is 0
    const std::size_t dot = _text.rfind('.');
    return dot == std::string::npos || dot <= name ? std::string() : _text.substr(dot + 1);
}

} // namespace Vesk
