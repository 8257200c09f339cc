// SPDX-License-Identifier: MIT
#include "InputFile.h"
#include "Failure.h"
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <unistd.h>

namespace Vesk::Tool
{

namespace
{

constexpr std::size_t BLOCK_OCTETS = 64 * 1024;
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
}

InputFile::Buffer::Buffer(const std::string& path)
    : _name(path == STANDARD_INPUT ? "standard input" : path),
      _descriptor(openDescriptor(path)),
      _block(BLOCK_OCTETS)
{
    if (!_descriptor.isValid())
        throw FileError(_name, errno);
}

InputFile::Buffer::int_type InputFile::Buffer::underflow()
{
    ssize_t octetCount = 0;
    do
        octetCount = ::read(_descriptor.get(), _block.data(), _block.size());
    while (octetCount < 0 && errno == EINTR);
    if (octetCount < 0)
        throw FileError(_name, errno);
    if (octetCount == 0)
        return traits_type::eof();
    setg(_block.data(), _block.data(), _block.data() + octetCount);
    return traits_type::to_int_type(_block.front());
}

} // namespace Vesk::Tool
