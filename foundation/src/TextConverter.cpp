// SPDX-License-Identifier: MIT
#include "Vesk/TextConverter.h"

namespace Vesk
{

int TextConverter::convert(const std::string& in, std::string& out) const
{
    out.clear();
    char defaultOctets[TextEncoding::MAX_OCTETS];
    const std::size_t defaultOctetCount = _outEncoding.encode(_defaultChar, defaultOctets);
    std::size_t replacedCount = 0;
    const char* position = in.data();
    const char* end = position + in.size();
    while (position != end)
    {
        const int codePoint = _inEncoding.decode(position, end);
        char octets[TextEncoding::MAX_OCTETS];
        const std::size_t octetCount = _outEncoding.encode(codePoint, octets);
        if (octetCount > 0)
        {
            out.append(octets, octetCount);
        }
        else
        {
            out.append(defaultOctets, defaultOctetCount);
            ++replacedCount;
        }
    }
    return static_cast<int>(replacedCount);
}

} // namespace Vesk
