// SPDX-License-Identifier: MIT
#include "OutputFile.h"
#include "Failure.h"
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Vesk::Tool
{

namespace
{

constexpr std::size_t BLOCK_OCTETS = 64 * 1024;
const char STANDARD_OUTPUT[] = "-";

mode_t readProcessMask()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return mask;
}

// Can only be read by changing it, which must not happen while another thread creates a file.
mode_t processMask()
{
    static const mode_t mask = readProcessMask();
    return mask;
}

} // namespace

OutputFile::OutputFile(const std::string& path, bool mayReplace, mode_t newRights)
    : std::ostream(nullptr),
      _path(path),
      _name(path == STANDARD_OUTPUT ? "standard output" : path),
      _mayReplace(mayReplace),
      _descriptor(openDescriptor(newRights)),
      _buffer(_name, _descriptor.get())
{
    rdbuf(&_buffer);
    exceptions(badbit); // lets the buffer's FileError through instead of turning it into a flag
}

int OutputFile::openDescriptor(mode_t newRights)
{
    if (_path == STANDARD_OUTPUT)
        return STDOUT_FILENO;

    struct stat status = {};
    const bool exists = ::stat(_path.c_str(), &status) == 0;
    if (!exists && errno != ENOENT)
        throw FileError(_name, errno);
    if (exists && !S_ISREG(status.st_mode))
    {
        const int descriptor = ::open(_path.c_str(), O_WRONLY | O_CLOEXEC);
        if (descriptor < 0)
            throw FileError(_name, errno);
        return descriptor;
    }
    if (exists && !_mayReplace)
        throw FileError::exists(_name);
    // Renaming asks for the right to change the folder only; a file that is protected against writing stays as it is.
    if (exists && ::access(_path.c_str(), W_OK) != 0)
        throw FileError(_name, errno);
    _temporary = std::make_unique<TemporaryFile>(_path);
    constexpr mode_t ACCESS_RIGHTS = S_IRWXU | S_IRWXG | S_IRWXO;
    return _temporary->open(exists ? status.st_mode & ACCESS_RIGHTS : newRights & ~processMask());
}

void OutputFile::commit()
{
    _buffer.writeOut();
    if (!_descriptor.close())
        throw FileError(_name, errno);
    if (_temporary)
        _temporary->moveToTarget(_mayReplace);
}

OutputFile::Buffer::Buffer(const std::string& name, int descriptor)
    : _name(name),
      _descriptor(descriptor),
      _block(BLOCK_OCTETS)
{
    setp(_block.data(), _block.data() + _block.size());
}

OutputFile::Buffer::int_type OutputFile::Buffer::overflow(int_type octet)
{
    writeOut();
    return traits_type::eq_int_type(octet, traits_type::eof()) ? traits_type::not_eof(octet)
                                                               : sputc(traits_type::to_char_type(octet));
}

void OutputFile::Buffer::writeOut()
{
    for (const char* next = pbase(); next != pptr();)
    {
        const ssize_t octetCount = ::write(_descriptor, next, static_cast<std::size_t>(pptr() - next));
        if (octetCount >= 0)
            next += octetCount;
        else if (errno != EINTR)
            throwWriteError(_name, errno);
    }
    _writtenOctets += static_cast<std::uint64_t>(pptr() - pbase());
    setp(_block.data(), _block.data() + _block.size());
}

} // namespace Vesk::Tool
