// SPDX-License-Identifier: MIT
#ifndef VESKFI_OUTPUTFILE_H
#define VESKFI_OUTPUTFILE_H

#include "FileDescriptor.h"
#include "TemporaryFile.h"
#include <memory>
#include <ostream>
#include <streambuf>
#include <string>
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
    /// "-" is standard output. Throws FileError if the file cannot be written.
    explicit OutputFile(const std::string& path);

    /// Writes what is left, closes the file and puts it in its place. Throws FileError if any of that fails.
    void commit();

private:
    class Buffer : public std::streambuf
    {
    public:
        /// Borrows both.
        Buffer(const std::string& name, int descriptor);

        void writeOut();

    protected:
        int_type overflow(int_type octet) override;
        // The Fast Infoset writer flushes with every item, which would be a system call each.
        int sync() override { return 0; }

    private:
        const std::string& _name;
        const int _descriptor;
        std::vector<char> _block;
    };

    int openDescriptor();

    const std::string _path;
    const std::string _name;                   // how messages call the file
    std::unique_ptr<TemporaryFile> _temporary; // null where the target itself is written
    FileDescriptor _descriptor;
    Buffer _buffer;
};

} // namespace Vesk::Tool

#endif // VESKFI_OUTPUTFILE_H
