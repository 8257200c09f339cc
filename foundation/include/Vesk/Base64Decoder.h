// SPDX-License-Identifier: MIT
#ifndef VESK_BASE64DECODER_H
#define VESK_BASE64DECODER_H

#include "Vesk/Foundation.h"
#include <istream>
#include <memory>

namespace Vesk
{

/// Reads base64 text (RFC 4648, clause 4) from another stream, which is borrowed, and delivers the octets.
///
/// White space (space, tab, line feed, carriage return) is skipped wherever it stands. Padding is required, the unused bits
/// of the last digit are zero, and only white space may follow the padding. Anything else is invalid: all octets in front
/// of it are delivered, then reading stops with badbit (as it does when the source fails). Reading never throws unless
/// exceptions() asks for it.
///
/// So the text was valid to its end exactly if, once reading has stopped, eof() holds and bad() does not:
///
///     for (int octet = decoder.get(); octet != EOF; octet = decoder.get())
///         octets += static_cast<char>(octet);
///     const bool valid = decoder.eof() && !decoder.bad();
///
/// read() with a block of octets, as many as gcount() tells, is the faster way for large data. The source is read ahead:
/// its position and state say nothing about the text.
class VESK_FOUNDATION_API Base64Decoder : public std::istream
{
public:
    /// Borrows the source, which must outlive the decoder.
    explicit Base64Decoder(std::istream& source);
    ~Base64Decoder() override;

private:
    class Buffer;
    std::unique_ptr<Buffer> _buffer;
};

} // namespace Vesk

#endif // VESK_BASE64DECODER_H
