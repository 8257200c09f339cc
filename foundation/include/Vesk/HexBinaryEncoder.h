// SPDX-License-Identifier: MIT
#ifndef VESK_HEXBINARYENCODER_H
#define VESK_HEXBINARYENCODER_H

#include "Vesk/Foundation.h"
#include <memory>
#include <ostream>

namespace Vesk
{

/// Writes what is written to it as hexadecimal digits, two in upper case for each octet, to another stream, which is
/// borrowed. Otherwise like Base64Encoder.
class VESK_FOUNDATION_API HexBinaryEncoder : public std::ostream
{
public:
    /// Borrows the target, which must outlive the encoder.
    explicit HexBinaryEncoder(std::ostream& target);
    /// Closes. Whoever needs to know whether that succeeded calls close().
    ~HexBinaryEncoder() override;

    /// Begins a new line ("\n") after so many characters; 0, the value at first, for none. To be set before writing.
    void setLineLength(int characters);

    /// Writes what has not been written yet. Nothing may be written afterwards.
    void close();

private:
    class Buffer;
    std::unique_ptr<Buffer> _buffer;
};

} // namespace Vesk

#endif // VESK_HEXBINARYENCODER_H
