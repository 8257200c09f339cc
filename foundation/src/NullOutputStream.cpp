// SPDX-License-Identifier: MIT
#include "Vesk/NullOutputStream.h"

namespace Vesk
{

NullOutputStream::Buffer::int_type NullOutputStream::Buffer::overflow(int_type octet)
{
    return traits_type::not_eof(octet);
}

std::streamsize NullOutputStream::Buffer::xsputn(const char*, std::streamsize octetCount)
{
    return octetCount;
}

NullOutputStream::NullOutputStream()
    : std::ostream(nullptr)
{
    rdbuf(&_buffer);
}

NullOutputStream::~NullOutputStream() = default;

} // namespace Vesk
