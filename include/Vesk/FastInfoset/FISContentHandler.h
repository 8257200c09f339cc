// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_FISCONTENTHANDLER_H
#define VESK_FASTINFOSET_FISCONTENTHANDLER_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include "Vesk/UUID.h"
#include "Vesk/XML/ContentHandler.h"
#include <cstddef>

namespace Vesk::FastInfoset
{

/// A ContentHandler that takes typed content as values instead of text.
///
/// Set on a FastInfosetParser it receives character content that the document stores with a built-in encoding
/// algorithm through the calls below, in document order: one encodedData call a value, one binaryData call a block of
/// octets. Plain text, the text of CDATA sections and text that the document repeats by index arrive through
/// characters() as ever; attribute values are always text. For long rows of numbers see FISArrayHandler.
class VESK_FASTINFOSET_API FISContentHandler : public XML::ContentHandler
{
public:
    /// Octets of hexadecimal or base64 content. They are borrowed and valid during the call only.
    virtual void binaryData(const char* data, std::size_t octetCount) = 0;

    /// One value. The argument's type tells the encoding algorithm.
    virtual void encodedData(short value) = 0;
    virtual void encodedData(int value) = 0;
    virtual void encodedData(long value) = 0;
    virtual void encodedData(bool value) = 0;
    virtual void encodedData(float value) = 0;
    virtual void encodedData(double value) = 0;
    virtual void encodedData(const UUID& value) = 0;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_FISCONTENTHANDLER_H
