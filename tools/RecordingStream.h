// SPDX-License-Identifier: MIT
#ifndef VESKFI_RECORDINGSTREAM_H
#define VESKFI_RECORDINGSTREAM_H

#include <istream>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

namespace Vesk::Tool
{

/// Passes on what another stream delivers, and keeps it until it is forgotten: for somebody who looks at octets after a
/// parser has read them.
class RecordingStream : public std::istream
{
public:
    /// The source is borrowed.
    explicit RecordingStream(std::istream& source);

    /// The octets from this offset to the one before endOffset, as far as they have been read; none if the first of them has been
    /// forgotten. Good until the next read.
    std::string_view octets(unsigned long beginOffset, unsigned long endOffset) const
    {
        return _buffer.octets(beginOffset, endOffset);
    }

    /// Octets before this offset will not be asked for again.
    void forget(unsigned long endOffset) { _buffer.forget(endOffset); }

    /// How many octets the source has delivered.
    unsigned long octetCount() const { return _buffer.octetCount(); }

private:
    class Buffer : public std::streambuf
    {
    public:
        explicit Buffer(std::istream& source);

        std::string_view octets(unsigned long beginOffset, unsigned long endOffset) const;
        void forget(unsigned long endOffset);
        unsigned long octetCount() const { return _offset + _kept.size(); }

    protected:
        int_type underflow() override;

    private:
        std::istream& _source;
        std::vector<char> _block;
        std::string _kept;
        unsigned long _offset = 0;    // of the first octet that is kept
        unsigned long _forgotten = 0; // up to here nothing need be kept
    };

    Buffer _buffer;
};

} // namespace Vesk::Tool

#endif // VESKFI_RECORDINGSTREAM_H
