// SPDX-License-Identifier: MIT
#include "JSONWriter.h"
#include "Quoted.h"

namespace Vesk::Tool
{

JSONWriter::JSONWriter(std::ostream& output)
    : _output(output)
{
}

JSONWriter& JSONWriter::key(const char* name)
{
    separate();
    _output << '"' << name << "\":";
    _needsComma = false;
    return *this;
}

JSONWriter& JSONWriter::value(const std::string& text)
{
    separate();
    writeJSON(_output, text);
    return *this;
}

JSONWriter& JSONWriter::value(unsigned long number)
{
    separate();
    _output << number;
    return *this;
}

JSONWriter& JSONWriter::value(long number)
{
    separate();
    _output << number;
    return *this;
}

JSONWriter& JSONWriter::hexadecimal(std::string_view octets)
{
    separate();
    _output << '"';
    for (const char octet : octets)
    {
        const auto value = static_cast<unsigned char>(octet);
        _output.put("0123456789abcdef"[value >> 4]).put("0123456789abcdef"[value & 0xF]);
    }
    _output << '"';
    return *this;
}

void JSONWriter::separate()
{
    if (_needsComma)
        _output << ',';
    _needsComma = true;
}

JSONWriter& JSONWriter::open(char bracket)
{
    separate();
    _output << bracket;
    _needsComma = false;
    return *this;
}

JSONWriter& JSONWriter::close(char bracket)
{
    _output << bracket;
    _needsComma = true;
    return *this;
}

} // namespace Vesk::Tool
