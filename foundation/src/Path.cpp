// SPDX-License-Identifier: MIT
#include "Vesk/Path.h"

namespace Vesk
{

Path::Path(const std::string& text)
    : _fileName(text.substr(text.rfind('/') + 1)) // npos + 1 is 0
{
}

std::string Path::extension() const
{
    const std::size_t dot = _fileName.rfind('.');
    return dot == 0 || dot == std::string::npos ? std::string() : _fileName.substr(dot + 1);
}

} // namespace Vesk
