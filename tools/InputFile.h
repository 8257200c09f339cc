// SPDX-License-Identifier: MIT
#ifndef VESKFI_INPUTFILE_H
#define VESKFI_INPUTFILE_H

#include "FileDescriptor.h"
#include <atomic>
#include <cstdint>
#include <istream>
#include <streambuf>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace Vesk::Tool
{

/// A file, or standard input, as a stream that is read in large blocks.
///
/// What the system reports while reading is thrown as a FileError, through the reader that reads the stream.
class InputFile : public std::istream
{
public:
    /// "-" is standard input. Throws FileError if the file cannot be opened.
    explicit InputFile(const std::string& path);

    /// How messages call the file.
    const std::string& name() const { return _buffer.name(); }

    bool isRegularFile() const { return S_ISREG(_status.st_mode); }

    /// Access rights of a regular file, otherwise those given.
    mode_t rightsOr(mode_t rights) const;

    /// The first octets of the file, up to 1024, which are still to be read. Good until the first of them is. Waits for
    /// them where they come from a pipe.
    std::string_view start() { return _buffer.start(); }

    /// Octets read so far.
    std::uint64_t octetCount() const { return _buffer.octetCount(); }

    /// Octets that there are, as far as it is known: those read so far, or more in a regular file.
    std::uint64_t knownOctetCount() const;

    /// Counts what is read from now on there as well. The counter is borrowed.
    void countIn(std::atomic<std::uint64_t>& counter) { _buffer.countIn(counter); }

private:
    class Buffer : public std::streambuf
    {
    public:
        explicit Buffer(const std::string& path);

        const std::string& name() const { return _name; }
        int descriptor() const { return _descriptor.get(); }
        std::string_view start();
        std::uint64_t octetCount() const { return _octetCount; }
        void countIn(std::atomic<std::uint64_t>& counter) { _counter = &counter; }

    protected:
        int_type underflow() override;

    private:
        std::size_t read(std::size_t offset);

        std::string _name;
        FileDescriptor _descriptor;
        std::vector<char> _block;
        std::uint64_t _octetCount = 0;
        std::atomic<std::uint64_t>* _counter = nullptr;
    };

    Buffer _buffer;
    struct stat _status = {}; // when it was opened
};

} // namespace Vesk::Tool

#endif // VESKFI_INPUTFILE_H
