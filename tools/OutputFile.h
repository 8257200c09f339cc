// SPDX-License-Identifier: MIT
#ifndef VESKFI_OUTPUTFILE_H
#define VESKFI_OUTPUTFILE_H

#include "FileDescriptor.h"
#include "TemporaryFile.h"
#include <cstdint>
#include <memory>
#include <ostream>
#include <streambuf>
#include <string>
#include <sys/types.h>
#include <vector>

namespace Vesk::Tool
{

/// A file, or standard output, as a stream that is written in large blocks, whatever is flushed in between.
///
/// A regular file appears, or changes, all at once with commit(): until then everything goes to a temporary file beside
/// it, and without commit() it stays as it was. Standard output, devices and pipes are written as blocks fill up.
/// What the system reports while writing is thrown as a FileError, through the writer that writes the stream.
class OutputFile : public std::ostream
{
public:
    /// The rights of a new file before the process's mask is applied.
    static constexpr mode_t USUAL_RIGHTS = 0666;

    /// "-" is standard output. A regular file that exists is replaced only if that is allowed, and keeps its rights; a
    /// new one gets the given ones, as far as the process's mask lets it. Throws FileError if the file cannot be written.
    OutputFile(const std::string& path, bool mayReplace, mode_t newRights);

    /// How messages call the file.
    const std::string& name() const { return _name; }

    /// Octets written so far, those in the buffer included.
    std::uint64_t octetCount() const { return _buffer.octetCount(); }

    /// Writes what is left, closes the file and puts it in its place. Throws FileError if any of that fails.
    void commit();

private:
    class Buffer : public std::streambuf
    {
    public:
        /// Borrows both.
        Buffer(const std::string& name, int descriptor);

        void writeOut();
        std::uint64_t octetCount() const { return _writtenOctets + static_cast<std::uint64_t>(pptr() - pbase()); }

    protected:
        int_type overflow(int_type octet) override;
        // The Fast Infoset writer flushes with every item, which would be a system call each.
        int sync() override { return 0; }

    private:
        const std::string& _name;
        const int _descriptor;
        std::vector<char> _block;
        std::uint64_t _writtenOctets = 0;
    };

    int openDescriptor(mode_t newRights);

    const std::string _path;
    const std::string _name; // how messages call the file
    const bool _mayReplace;
    std::unique_ptr<TemporaryFile> _temporary; // null where the target itself is written
    FileDescriptor _descriptor;
    Buffer _buffer;
};

} // namespace Vesk::Tool

#endif // VESKFI_OUTPUTFILE_H
