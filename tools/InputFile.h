// SPDX-License-Identifier: MIT
#ifndef VESKFI_INPUTFILE_H
#define VESKFI_INPUTFILE_H

#include "FileDescriptor.h"
#include <istream>
#include <streambuf>
#include <string>
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

private:
    class Buffer : public std::streambuf
    {
    public:
        explicit Buffer(const std::string& path);

        const std::string& name() const { return _name; }

    protected:
        int_type underflow() override;

    private:
        std::string _name;
        FileDescriptor _descriptor;
        std::vector<char> _block;
    };

    Buffer _buffer;
};

} // namespace Vesk::Tool

#endif // VESKFI_INPUTFILE_H
