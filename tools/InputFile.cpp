// SPDX-License-Identifier: MIT
#include "InputFile.h"
#include "Failure.h"
#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <unistd.h>

namespace Vesk::Tool
{

namespace
{

constexpr std::size_t BLOCK_OCTETS = 64 * 1024;
constexpr std::size_t START_OCTETS = 1024;
const char STANDARD_INPUT[] = "-";

int openDescriptor(const std::string& path)
{
    return path == STANDARD_INPUT ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
}

} // namespace

InputFile::InputFile(const std::string& path)
    : std::istream(nullptr),
      _buffer(path)
{
    rdbuf(&_buffer);
    exceptions(badbit); // lets the buffer's FileError through instead of turning it into a flag
    if (::fstat(_buffer.descriptor(), &_status) != 0)
        _status = {}; // reading tells what is wrong
}

mode_t InputFile::rightsOr(mode_t rights) const
{
    return isRegularFile() ? _status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO) : rights;
}

std::uint64_t InputFile::knownOctetCount() const
{
    return isRegularFile() ? std::max(octetCount(), static_cast<std::uint64_t>(_status.st_size)) : octetCount();
}

InputFile::Buffer::Buffer(const std::string& path)
    : _name(path == STANDARD_INPUT ? "standard input" : path),
      _descriptor(openDescriptor(path)),
      _block(BLOCK_OCTETS)
{
    if (!_descriptor.isValid())
        throw FileError(_name, errno);
}

// Reads once, behind what the block holds already. Returns 0 at the end.
std::size_t InputFile::Buffer::read(std::size_t offset)
{
    ssize_t octetCount = 0;
    do
        octetCount = ::read(_descriptor.get(), _block.data() + offset, _block.size() - offset);
    while (octetCount < 0 && errno == EINTR);
    if (octetCount < 0)
        throw FileError(_name, errno);
    _octetCount += static_cast<std::uint64_t>(octetCount);
    if (_counter)
        *_counter += static_cast<std::uint64_t>(octetCount);
    return static_cast<std::size_t>(octetCount);
}

std::string_view InputFile::Buffer::start()
{
    std::size_t size = 0;
    if (!gptr())
    {
        for (std::size_t more = 1; more > 0 && size < START_OCTETS; size += more)
            more = read(size);
        setg(_block.data(), _block.data(), _block.data() + size);
    }
    return {gptr(), std::min(START_OCTETS, static_cast<std::size_t>(egptr() - gptr()))};
}

InputFile::Buffer::int_type InputFile::Buffer::underflow()
{
    const std::size_t octetCount = read(0);
    if (octetCount == 0)
        return traits_type::eof();
    setg(_block.data(), _block.data(), _block.data() + octetCount);
    return traits_type::to_int_type(_block.front());
}

} // namespace Vesk::Tool
