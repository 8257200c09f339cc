// SPDX-License-Identifier: MIT
#ifndef VESK_NULLOUTPUTSTREAM_H
#define VESK_NULLOUTPUTSTREAM_H

#include "Vesk/Foundation.h"
#include <ostream>
#include <streambuf>

namespace Vesk
{

/// Takes everything that is written to it and keeps nothing. Never fails.
class VESK_FOUNDATION_API NullOutputStream : public std::ostream
{
public:
    NullOutputStream();
    ~NullOutputStream() override;

private:
    class Buffer : public std::streambuf
    {
    protected:
        int_type overflow(int_type octet) override;
        std::streamsize xsputn(const char* data, std::streamsize octetCount) override;
    };

    Buffer _buffer;
};

} // namespace Vesk

#endif // VESK_NULLOUTPUTSTREAM_H
