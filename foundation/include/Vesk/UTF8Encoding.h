// SPDX-License-Identifier: MIT
#ifndef VESK_UTF8ENCODING_H
#define VESK_UTF8ENCODING_H

#include "Vesk/TextEncoding.h"

namespace Vesk
{

/// UTF-8 as Unicode and RFC 3629 define it: 1 to 4 octets.
class VESK_FOUNDATION_API UTF8Encoding : public TextEncoding
{
public:
    int decode(const char*& begin, const char* end) const noexcept override;
    std::size_t encode(int codePoint, char* target) const noexcept override;
};

} // namespace Vesk

#endif // VESK_UTF8ENCODING_H
