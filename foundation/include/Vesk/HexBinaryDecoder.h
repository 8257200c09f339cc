// SPDX-License-Identifier: MIT
#ifndef VESK_HEXBINARYDECODER_H
#define VESK_HEXBINARYDECODER_H

#include "Vesk/Foundation.h"
#include <istream>
#include <memory>

namespace Vesk
{

/// Reads hexadecimal digits of either case from another stream, which is borrowed, and delivers the octets.
///
/// White space (space, tab, line feed, carriage return) is skipped wherever it stands. An odd digit and any other character
/// is invalid; that is told and found out in the same way as with Base64Decoder: the text was valid to its end exactly if,
/// once reading has stopped, eof() holds and bad() does not.
class VESK_FOUNDATION_API HexBinaryDecoder : public std::istream
{
public:
    /// Borrows the source, which must outlive the decoder.
    explicit HexBinaryDecoder(std::istream& source);
    ~HexBinaryDecoder() override;

private:
    class Buffer;
    std::unique_ptr<Buffer> _buffer;
};

} // namespace Vesk

#endif // VESK_HEXBINARYDECODER_H
