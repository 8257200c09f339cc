// SPDX-License-Identifier: MIT
#ifndef VESK_BASE64ENCODER_H
#define VESK_BASE64ENCODER_H

#include "Vesk/Foundation.h"
#include <memory>
#include <ostream>

namespace Vesk
{

/// Writes what is written to it as base64 text (RFC 4648, clause 4: A-Z a-z 0-9 + / and the padding "=") to another
/// stream, which is borrowed.
///
/// The text is complete after close(). A target that fails makes this stream bad.
class VESK_FOUNDATION_API Base64Encoder : public std::ostream
{
public:
    /// Borrows the target, which must outlive the encoder.
    explicit Base64Encoder(std::ostream& target);
    /// Closes. Whoever needs to know whether that succeeded calls close().
    ~Base64Encoder() override;

    /// Begins a new line ("\n") after so many characters; 0, the value at first, for none. To be set before writing.
    void setLineLength(int characters);

    /// Writes the last octets with their padding. Nothing may be written afterwards.
    void close();

private:
    class Buffer;
    std::unique_ptr<Buffer> _buffer;
};

} // namespace Vesk

#endif // VESK_BASE64ENCODER_H
