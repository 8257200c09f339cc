// SPDX-License-Identifier: MIT
#ifndef VESK_TEXTCONVERTER_H
#define VESK_TEXTCONVERTER_H

#include "Vesk/TextEncoding.h"
#include <string>

namespace Vesk
{

/// Converts text from one encoding to another. Both encodings are borrowed: they must outlive the converter.
class VESK_FOUNDATION_API TextConverter
{
public:
    /// defaultChar is the code point that stands in for ill-formed sequences. One that the target encoding cannot write is
    /// left out.
    TextConverter(const TextEncoding& inEncoding, const TextEncoding& outEncoding, int defaultChar = '?') noexcept
        : _inEncoding(inEncoding),
          _outEncoding(outEncoding),
          _defaultChar(defaultChar)
    {
    }

    /// Replaces the text of out, which is another string than in, and returns the number of characters that were replaced
    /// by the default character: one for each ill-formed sequence (see TextEncoding::decode()).
    int convert(const std::string& in, std::string& out) const;

private:
    const TextEncoding& _inEncoding;
    const TextEncoding& _outEncoding;
    int _defaultChar;
};

} // namespace Vesk

#endif // VESK_TEXTCONVERTER_H
